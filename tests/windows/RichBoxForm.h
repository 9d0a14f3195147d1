// A form with a paste box and a result box, and what comes to them by the clipboard.
#pragma once

#include "controls/Label.h"
#include "controls/PasteBox.h"
#include "controls/ResultBox.h"
#include "windows/FormTest.h"

#include <richedit.h>
#include <string>

namespace gui {

constexpr std::u16string_view kBoxesLayout =
    u"form\n"
    u"f\t\tfrmBoxes\tform\t\t\t6000\t6000\tBoxes\t\t\n"
    u"f\tfrmBoxes\tLabelPaste\tlabel\t150\t150\t3000\t300\t&Paste here:\t\t\n"
    u"f\tfrmBoxes\tPaste\trichtext\t150\t450\t3705\t2130\t\t1\t\n"
    u"f\tfrmBoxes\tResult\tunitext\t150\t3000\t3705\t2130\t\t2\tAccessibleName=Converted text\n";

struct BoxesForm {
    Form Window;
    Label LabelPaste;
    PasteBox Paste;
    ResultBox Result;
    BoxesForm() {
        Window.Bind(u"LabelPaste", LabelPaste)
            .Bind(u"Paste", Paste)
            .Bind(u"Result", Result)
            .Create(kBoxesLayout);
        Window.Show();
    }
};

using Boxes = FormTest<BoxesForm>;

inline void Chord(WORD held, WORD key) {
    Key(held, false);
    Type(key);
    Key(held, true);
}

inline HANDLE Block(const void* bytes, std::size_t size) {
    const HANDLE block = GlobalAlloc(GMEM_MOVEABLE, size);
    memcpy(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    return block;
}

// What a word processor leaves on the clipboard: RTF and its plain text. The RTF's text is
// another one, so that a test sees which was taken. Either may be empty.
inline void PutOnClipboard(const std::string& rtf, const std::u16string& plain) {
    ASSERT_TRUE(WaitUntil([] { return OpenClipboard(nullptr) != 0; }));
    EmptyClipboard();
    if (!rtf.empty())
        SetClipboardData(RegisterClipboardFormatW(L"Rich Text Format"), Block(rtf.c_str(), rtf.size() + 1));
    if (!plain.empty())
        SetClipboardData(CF_UNICODETEXT, Block(plain.c_str(), (plain.size() + 1) * sizeof(char16_t)));
    CloseClipboard();
}

inline const std::string kRtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Serif;}}\\f0\\fs72\\b from the RTF}";

inline CHARFORMAT2W FormatAt(HWND box, LONG from, LONG to) {
    CHARRANGE range{from, to}, before{};
    SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&before));
    SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    SendMessageW(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&before));
    return format;
}

} // namespace gui
