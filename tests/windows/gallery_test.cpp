// The gallery: every control of the kit has a sheet, and a sheet is the same each time.
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/EventFrame.h"
#include "gallery/Sheets.h"
#include "windows/Gui.h"
#include "windows/Pixels.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace {

// The type names of the controls that have a face, as their sources tell them.
std::set<std::string> KindsInTheSources() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(ZC_SOURCE_DIR "/src/controls")) {
        if (entry.path().extension() != ".cpp") continue;
        std::stringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        const std::string source = text.str();
        const auto kind = source.find("::kKind{");
        if (kind == std::string::npos) continue;
        const std::string table = source.substr(kind, source.find("\n};", kind) - kind);
        if (table.find(".HasWindow = false") != std::string::npos) continue;
        const auto from = table.find("u\"") + 2;
        names.insert(table.substr(from, table.find('"', from) - from));
    }
    return names;
}

gui::Pixels Picture(const gallery::Sheet& sheet, int dpi) {
    gallery::SheetWindow shown(sheet);
    SendMessageW(shown.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), 0);
    shown.Window.Show();
    HideCaret(nullptr);
    return gui::WindowOf(shown.Window.Base.hWnd());
}

void OnUiThread(const std::function<void()>& job) {
    gui::UiThread ui;
    ui.Run([&] {
        try {
            job();
        } catch (const RuntimeFailure& failure) {
            ADD_FAILURE() << text::ToUtf8(failure.Source()) << ": " << text::ToUtf8(failure.Description());
        }
        EXPECT_FALSE(EventFrame::Ending());
        EventFrame::Forget();
    });
}

TEST(Gallery, EveryControlHasASheet) {
    std::set<std::string> shown;
    for (const gallery::Sheet& sheet : gallery::Sheets()) {
        for (const ControlKind* kind : sheet.Shows)
            shown.insert(text::ToUtf8(std::u16string(kind->TypeName)));
    }
    const std::set<std::string> known = KindsInTheSources();
    EXPECT_TRUE(known.count("TextBox")); // the sources have been read
    for (const std::string& name : known) EXPECT_TRUE(shown.count(name)) << name;
}

TEST(Gallery, ASheetIsTheSameEachTime) {
    gui::MoveTo({0, 0});
    for (const gallery::Sheet& sheet : gallery::Sheets()) {
        for (const int dpi : {96, 144}) {
            OnUiThread([&] {
                const gui::Pixels first = Picture(sheet, dpi);
                EXPECT_GT(first.Width, 0);
                EXPECT_TRUE(first == Picture(sheet, dpi))
                    << text::ToUtf8(std::u16string(sheet.Name)) << " " << dpi;
            });
        }
    }
}

TEST(Gallery, HighContrastUsesTheSystemsColoursAndGoesAgain) {
    OnUiThread([] {
        const gallery::Sheet& sheet = gallery::Sheets().front();
        const COLORREF window = GetSysColor(COLOR_WINDOW);
        const gui::Pixels before = Picture(sheet, 96);
        gallery::UseContrastTheme(true);
        const gui::Pixels contrast = Picture(sheet, 96);
        EXPECT_EQ(contrast.At(2, 2), GetSysColor(COLOR_WINDOW));
        EXPECT_NE(window, GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(contrast.Count(palette::FocusNeutral), 0);
        EXPECT_GT(before.Count(palette::FocusNeutral), 0);
        gallery::UseContrastTheme(false);
        EXPECT_EQ(GetSysColor(COLOR_WINDOW), window);
        EXPECT_TRUE(before == Picture(sheet, 96));
    });
}

} // namespace
