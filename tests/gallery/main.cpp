// gallery                          a window to choose a sheet from
// gallery --write FOLDER [--dpi N] [--contrast]
//                                  writes each sheet as a file NAME-N.bmp or NAME-contrast.bmp
// Codes: 0, 1 for a failure, 64 for wrong arguments.

#include "base/DoEvents.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/ComboBox.h"
#include "gallery/Sheets.h"
#include "gallery/TipPictures.h"
#include "windows/Pixels.h"

#include <shellapi.h>

#include <cstdio>
#include <cstring>

namespace {

void WriteBitmap(const gui::Pixels& pixels, const std::u16string& path) {
    const int stride = (pixels.Width * 3 + 3) / 4 * 4;
    std::string body;
    for (int y = pixels.Height; y-- > 0;) {
        std::string line;
        for (int x = 0; x < pixels.Width; ++x) {
            const COLORREF colour = pixels.At(x, y);
            line += static_cast<char>(GetBValue(colour));
            line += static_cast<char>(GetGValue(colour));
            line += static_cast<char>(GetRValue(colour));
        }
        line.resize(static_cast<std::size_t>(stride), '\0');
        body += line;
    }
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = pixels.Width;
    info.biHeight = pixels.Height;
    info.biPlanes = 1;
    info.biBitCount = 24;
    BITMAPFILEHEADER head{};
    head.bfType = 0x4D42; // "BM"
    head.bfOffBits = sizeof head + sizeof info;
    head.bfSize = static_cast<DWORD>(head.bfOffBits + body.size());
    FILE* file = _wfopen(Wide(path), L"wb");
    if (!file) throw RuntimeFailure(75, u"gallery", u"Cannot write " + path);
    std::fwrite(&head, sizeof head, 1, file);
    std::fwrite(&info, sizeof info, 1, file);
    std::fwrite(body.data(), 1, body.size(), file);
    std::fclose(file);
}

// The window as it stands on the screen.
gui::Pixels OnScreen(Form& form) {
    const HWND window = form.Base.hWnd();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME | RDW_UPDATENOW);
    DoEvents();
    HideCaret(nullptr);
    RECT client;
    GetClientRect(window, &client);
    return gui::Drawn(client.right, client.bottom, [&](HDC dc) {
        const HDC from = GetDC(window);
        BitBlt(dc, 0, 0, client.right, client.bottom, from, 0, 0, SRCCOPY);
        ReleaseDC(window, from);
        // Beside a shaped window there is the screen.
        const HRGN shape = CreateRectRgn(0, 0, 0, 0), beside = CreateRectRgnIndirect(&client);
        if (GetWindowRgn(window, shape) > NULLREGION &&
            CombineRgn(beside, beside, shape, RGN_DIFF) > NULLREGION)
            FillRgn(dc, beside, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        DeleteObject(beside);
        DeleteObject(shape);
    });
}

void WriteSheets(const std::u16string& folder, int dpi, bool contrast) {
    SetCursorPos(0, 0); // over no control
    gallery::UseContrastTheme(contrast);
    for (const gallery::Sheet& sheet : gallery::Sheets()) {
        gallery::SheetWindow shown(sheet);
        if (dpi != shown.Window.Dpi())
            SendMessageW(shown.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), 0);
        shown.Window.Show();
        DoEvents();
        const std::u16string variant = contrast ? u"contrast" : text::Decimal(dpi);
        gui::Pixels picture = OnScreen(shown.Window);
        gallery::AddTips(sheet, shown.Window, picture);
        WriteBitmap(picture, folder + u"\\" + std::u16string(sheet.Name) + u"-" + variant + u".bmp");
    }
    gallery::UseContrastTheme(false);
}

constexpr std::u16string_view kChooser =
    u"form\tcontainer\tcontrol\tkind\tleft\ttop\twidth\theight\tcaption\ttab\tproperties\n"
    u"chooser\t\tchooser\tform\t\t\t4500\t720\tGallery\t\tCaptionBar=yes\n"
    u"chooser\tchooser\tLabelSheet\tlabel\t180\t180\t900\t360\t&Sheet:\t\t\n"
    u"chooser\tchooser\tSheet\tcombo\t1080\t180\t3240\t360\t\t1\t\n";

int Choose() {
    Form chooser;
    ComboBox sheet;
    std::vector<std::unique_ptr<gallery::SheetWindow>> open;
    chooser.Bind(u"Sheet", sheet).Create(kChooser);
    for (const gallery::Sheet& one : gallery::Sheets()) sheet.AddItem(std::u16string(one.Name));
    sheet.Click = [&] {
        const auto& chosen = gallery::Sheets()[static_cast<std::size_t>(sheet.ListIndex())];
        open.push_back(std::make_unique<gallery::SheetWindow>(chosen));
        open.back()->Window.Show();
    };
    chooser.Closing = [] { PostQuitMessage(0); };
    chooser.Show();
    return Forms::Run();
}

int Run(int count, wchar_t** arguments) {
    std::u16string folder;
    int dpi = 96;
    bool contrast = false;
    for (int i = 1; i < count; ++i) {
        const std::u16string_view argument = Units(arguments[i]);
        if (argument == u"--write" && i + 1 < count)
            folder = Units(arguments[++i]);
        else if (argument == u"--dpi" && i + 1 < count)
            dpi = ParseNumber(Units(arguments[++i]));
        else if (argument == u"--contrast")
            contrast = true;
        else
            return 64;
    }
    if (folder.empty()) return count == 1 ? Choose() : 64;
    WriteSheets(folder, dpi, contrast);
    return 0;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    try {
        return Run(count, arguments);
    } catch (const RuntimeFailure& failure) {
        std::fprintf(stderr, "gallery: %s: %s\n", text::ToUtf8(failure.Source()).c_str(),
                     text::ToUtf8(failure.Description()).c_str());
        return 1;
    }
}
