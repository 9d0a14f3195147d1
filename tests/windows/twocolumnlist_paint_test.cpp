// What stands on the screen after each change of the table is what it would paint now.
#include "controls/TextBox.h"
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmTable\tform\t\t\t4500\t3000\tTable\t\t\n"
    u"f\tfrmTable\tTable\tlistview\t150\t150\t3000\t1500\t\t1\tColumns=One|Two; AccessibleName=Table\n"
    u"f\tfrmTable\tOther\ttext\t150\t2400\t2250\t360\t\t2\tAccessibleName=Other\n";

struct TableForm {
    Form Window;
    TwoColumnList Table;
    TextBox Other;
    TableForm() {
        Window.Bind(u"Table", Table).Bind(u"Other", Other).Create(kLayout);
        for (int i = 0; i < 3; ++i) Add();
        Window.Show();
    }
    void Add() { Table.AddItem(u"row " + text::Decimal(Table.ListCount()), u"second"); }
};

class TablePaint : public gui::FormTest<TableForm> {
protected:
    // Empty, or where the first pixel is that was left behind.
    std::string Stale() {
        m_Ui.Settle();
        return On([&]() -> std::string {
            const HWND list = m_Shown->Table.Base.hWnd();
            for (int i = 0; i < 3; ++i) UpdateWindow(list); // a paint may ask for another one
            const gui::Pixels shown = gui::ShownOf(list), fresh = gui::ClientOf(list);
            for (int y = Px(24); y < fresh.Height; ++y) { // behind the header
                for (int x = 0; x < fresh.Width; ++x) {
                    if (shown.At(x, y) != fresh.At(x, y)) return std::to_string(x) + " " + std::to_string(y);
                }
            }
            return {};
        });
    }
    void Does(const char* what, const std::function<void(TwoColumnList&)>& change) {
        m_Ui.Run([&] { change(m_Shown->Table); });
        EXPECT_EQ(Stale(), "") << what;
    }
};

TEST_F(TablePaint, NothingIsLeftBehind) {
    for (const int dpi : {96, 144}) {
        SCOPED_TRACE(dpi);
        SetDpi(dpi);
        for (const int row : {1, 0, 2, -1, 1}) Does("select", [&](auto& table) { table.ListIndex(row); });
        Does("focus", [](auto& table) { table.Base.SetFocus(); });
        for (const WORD key : {VK_UP, VK_DOWN, VK_END, VK_HOME}) {
            gui::Type(key);
            EXPECT_EQ(Stale(), "") << key;
        }
        while (On([&] { return m_Shown->Table.ListCount(); }) < 14) // the scroll bar comes meanwhile
            Does("add", [&](auto&) { m_Shown->Add(); });
        Does("scroll", [](auto& table) { table.EnsureVisible(13); });
        for (const int row : {12, 11, 13}) Does("select", [&](auto& table) { table.ListIndex(row); });
        Does("remove above", [](auto& table) { table.Remove(0); });
        Does("remove selected", [](auto& table) { table.Remove(table.ListIndex()); });
        while (On([&] { return m_Shown->Table.ListCount(); }) > 3) // and goes
            Does("remove", [](auto& table) { table.Remove(1); });
    }
}

} // namespace
