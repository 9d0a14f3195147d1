// A form with a font list of four entries, two of one name, and a box behind it.
#pragma once

#include "controls/ComboField.h"
#include "controls/FontCombo.h"
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

#include <vector>

namespace gui {

constexpr std::u16string_view kFontsLayout =
    u"form\n"
    u"f\t\tfrmFonts\tform\t\t\t6000\t6000\tFonts\t\t\n"
    u"f\tfrmFonts\tLabelFont\tlabel\t150\t150\t4740\t300\tDisplay &font:\t\t\n"
    u"f\tfrmFonts\tFonts\tfontcombo\t150\t450\t4740\t360\t\t1\t\n"
    u"f\tfrmFonts\tLabelOther\tlabel\t150\t900\t4740\t300\t&Other:\t\t\n"
    u"f\tfrmFonts\tOther\ttext\t150\t1200\t2250\t360\t\t2\tAccessibleName=Other\n";

struct FontsForm {
    Form Window;
    Label LabelFont;
    FontCombo Fonts;
    TextBox Other;
    std::vector<int> Keys;
    int Clicks = 0;
    FontsForm() {
        Window.Bind(u"LabelFont", LabelFont).Bind(u"Fonts", Fonts).Bind(u"Other", Other).Create(kFontsLayout);
        for (const char16_t* name : {u"Tahoma", u"Lohit Bengali", u"Liberation Serif", u"Tahoma"})
            Fonts.AddItem(name, {name, 12, false, false});
        Fonts.Click = [this] { ++Clicks; };
        Window.Show();
    }
};

class FontCombos : public FormTest<FontsForm> {
protected:
    bool Dropped() {
        return On([&] { return ComboField::Dropped(m_Shown->Fonts.Base); });
    }
    HWND Part(bool list) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(m_Shown->Fonts.Base.hWnd(), &parts);
        return list ? parts.hwndList : parts.hwndItem;
    }
    // Opens the list by a click on the arrow.
    void Drop() {
        RECT client;
        GetClientRect(m_Shown->Fonts.Base.hWnd(), &client);
        Click(ToScreen(m_Shown->Fonts.Base.hWnd(), client.right - 8, client.bottom / 2));
        ASSERT_TRUE(WaitUntil([&] { return Dropped(); }));
    }
    void ClickRow(int row) {
        const int height = On([&] {
            return static_cast<int>(SendMessageW(m_Shown->Fonts.Base.hWnd(), CB_GETITEMHEIGHT, 0, 0));
        });
        Click(ToScreen(Part(true), 20, height * row + height / 2));
    }
};

} // namespace gui
