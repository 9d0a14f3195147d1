// The common dialogs of before the shell's: they alone answer with flags and error numbers. All forms are
// disabled while one is open.
//
// Tested by tests/windows/dialog_test.cpp.
#include "controls/Dialog.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"

#include <algorithm>
#include <commdlg.h>
#include <vector>

namespace {

constexpr std::size_t kBuffer = 0x8000; // units; some hundred names

// The answer ends at the first NUL; of several names each ends with one, the last with two.
std::u16string Answer(const std::vector<char16_t>& buffer, bool several) {
    std::size_t end = 0;
    while (end < buffer.size() && buffer[end]) ++end;
    while (several && end + 1 < buffer.size() && buffer[end + 1]) {
        for (++end; end < buffer.size() && buffer[end];) ++end;
    }
    return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(end)};
}

} // namespace

const ControlKind Dialog::kKind{
    .TypeName = u"CommonDialog",
    .LayoutKinds = u"MSComDlg.CommonDialog|dialog",
    .HasWindow = false,
};

void Dialog::ShowOpen() {
    Show(false);
}

void Dialog::ShowSave() {
    Show(true);
}

void Dialog::Show(bool save) {
    std::vector<char16_t> buffer(kBuffer, u'\0');
    std::copy_n(FileName.begin(), std::min(FileName.size(), kBuffer - 1), buffer.begin());
    const std::u16string filter =
        Filter.empty() ? Filter : text::ReplaceAll(Filter, u"|", std::u16string_view(u"\0", 1)) + u'\0';
    const std::u16string extension = DefaultExt.starts_with(u'.') ? DefaultExt.substr(1) : DefaultExt;
    OPENFILENAMEW told{};
    told.lStructSize = sizeof told;
    told.hwndOwner = Base.Parent() ? Base.Parent()->Base.hWnd() : nullptr;
    told.lpstrFilter = filter.empty() ? nullptr : Wide(filter);
    told.lpstrFile = Wide(buffer.data());
    told.nMaxFile = static_cast<DWORD>(buffer.size());
    told.lpstrInitialDir = InitDir.empty() ? nullptr : Wide(InitDir);
    told.lpstrTitle = DialogTitle.empty() ? nullptr : Wide(DialogTitle);
    told.lpstrDefExt = extension.empty() ? nullptr : Wide(extension);
    told.Flags = Flags | OFN_EXPLORER;
    const BOOL taken = [&] {
        const SystemModal alone(Base.Parent());
        return save ? GetSaveFileNameW(&told) : GetOpenFileNameW(&told);
    }();
    EventFrame::Rethrow();
    if (taken) {
        FileName = Answer(buffer, (Flags & OFN_ALLOWMULTISELECT) != 0);
        return;
    }
    const DWORD error = CommDlgExtendedError();
    if (error)
        throw RuntimeFailure(32767 - static_cast<int>(error), u"CommonDialog", u"The dialog cannot be shown");
    if (CancelError) throw RuntimeFailure(kDialogCancelled, u"CommonDialog", u"Cancel was selected.");
}
