// The tip that tells the whole text of a cut cell of the table.
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"

#include <commctrl.h>

namespace {

struct TipsForm {
    Form Window;
    TwoColumnList Table;
    TipsForm() {
        Window.Bind(u"Table", Table)
            .Create(u"form\nf\t\tfrmTips\tform\t\t\t6600\t4500\tTips\t\t\n"
                    u"f\tfrmTips\tTable\tlistview\t150\t150\t6000\t2490\t\t1\tColumns=Old|New; "
                    u"AccessibleName=Fonts\n");
        Table.AddItem(u"SutonnyMJ", u"SolaimanLipi");
        Table.AddItem(std::u16string(60, u'O') + u"ld", std::u16string(60, u'N') + u"ew");
        for (int i = 0; i < 20; ++i) Table.AddItem(u"short", u"short");
        Window.Show();
    }
};

// A tip that is seen.
BOOL CALLBACK NoteTip(HWND window, LPARAM seen) {
    wchar_t name[32];
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 32);
    if (process == GetCurrentProcessId() && std::wstring_view(name) == TOOLTIPS_CLASSW &&
        IsWindowVisible(window))
        reinterpret_cast<std::vector<HWND>*>(seen)->push_back(window);
    return TRUE;
}

class TableTips : public gui::FormTest<TipsForm> {
protected:
    HWND List() { return m_Shown->Table.Base.hWnd(); }
    POINT CellOf(int row, int column) {
        RECT place{LVIR_LABEL, column, 0, 0};
        m_Ui.Run([&] {
            SendMessageW(List(), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&place));
        });
        return gui::ToScreen(List(), place.left + Px(20), (place.top + place.bottom) / 2);
    }
    // The text of the tip on the screen; empty where there is not just one.
    std::u16string Told() {
        return On([] {
            std::vector<HWND> tips;
            EnumWindows(NoteTip, reinterpret_cast<LPARAM>(&tips));
            return tips.size() == 1 ? WindowText(tips.front()) : std::u16string();
        });
    }
    bool Tells(const std::u16string& text) {
        return gui::WaitUntil([&] { return Told() == text; });
    }
};

TEST_F(TableTips, EachCutCellTellsItsTextAndOthersNone) {
    gui::MoveTo(CellOf(1, 0));
    EXPECT_TRUE(Tells(std::u16string(60, u'O') + u"ld"));
    gui::MoveTo(CellOf(1, 1));
    EXPECT_TRUE(Tells(std::u16string(60, u'N') + u"ew"));
    gui::MoveTo(CellOf(0, 0));
    EXPECT_TRUE(Tells(u""));
    Sleep(2 * GetDoubleClickTime()); // longer than a tip waits
    EXPECT_EQ(Told(), u"");
}

TEST_F(TableTips, ATipGoesWithWhatItTells) {
    const std::u16string cut = std::u16string(60, u'O') + u"ld";
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"changed", [&] { m_Shown->Table.Text(1, 0, u"new"); }},
        {"scrolled", [&] { SendMessageW(List(), WM_VSCROLL, SB_PAGEDOWN, 0); }},
        {"removed", [&] { m_Shown->Table.Clear(); }},
        {"gone", [&] { m_Shown->Window.Unload(); }},
    };
    for (const auto& [name, change] : ways) {
        gui::MoveTo({1, 1});
        m_Ui.Run([&] { m_Shown = std::make_unique<TipsForm>(); });
        ASSERT_TRUE(gui::Activate(m_Shown->Window.Base.hWnd()));
        gui::MoveTo(CellOf(1, 0));
        ASSERT_TRUE(Tells(cut)) << name;
        m_Ui.Run([&] {
            change();
            if (List()) UpdateWindow(List());
        });
        EXPECT_EQ(Told(), u"") << name;
    }
}

} // namespace
