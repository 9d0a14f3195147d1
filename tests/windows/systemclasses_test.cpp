// What the kit gives to the system's own window classes, and what it takes from them.
#include "controls/FieldFrame.h"
#include "controls/Painting.h"
#include "controls/Theme.h"
#include "windows/EveryForm.h"
#include "windows/Pixels.h"

#include <map>

namespace {

// Parameters of all windows that this thread makes.
std::map<HWND, void*> g_Given;
LRESULT CALLBACK NoteParameter(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND)
        g_Given[reinterpret_cast<HWND>(wParam)] =
            reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs->lpCreateParams;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// What the system's list view is asked to take borders and scroll bars from.
WNDPROC g_ListView = nullptr;
std::vector<RECT> g_Asked;
LRESULT CALLBACK NoteSizes(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCALCSIZE) g_Asked.push_back(*reinterpret_cast<const RECT*>(lParam));
    return CallWindowProcW(g_ListView, window, message, wParam, lParam);
}

class SystemClasses : public gui::FormTest<gui::EveryForm> {
protected:
    // The whole field with its border, as it paints itself.
    gui::Pixels Printed(const Control& field) {
        RECT place;
        GetWindowRect(field.hWnd(), &place);
        return gui::Drawn(WidthOf(place), HeightOf(place), [&](HDC dc) {
            SendMessageW(field.hWnd(), WM_PRINT, reinterpret_cast<WPARAM>(dc), PRF_NONCLIENT);
        });
    }
};

// They may read a parameter of creation in their own way; only the kit's own class gets one.
TEST_F(SystemClasses, GetNoParameterOfTheKit) {
    m_Ui.Run([&] {
        const HHOOK hook = SetWindowsHookExW(WH_CBT, NoteParameter, nullptr, GetCurrentThreadId());
        {
            const gui::EveryForm form;
            int ofTheSystem = 0;
            for (const Control* control : form.Window.Controls()) {
                if (!control->hWnd()) continue;
                SCOPED_TRACE(text::ToUtf8(control->FullName()));
                ASSERT_TRUE(g_Given.contains(control->hWnd()));
                const bool own = !control->Kind().WindowClass;
                EXPECT_EQ(g_Given[control->hWnd()] != nullptr, own);
                if (!own) ++ofTheSystem;
            }
            EXPECT_EQ(ofTheSystem, 6); // text, combo, list view, two rich boxes, font list
        }
        UnhookWindowsHookEx(hook);
        g_Given.clear();
    });
}

// A scroll bar has the width of the monitor's DPI, and the metrics tell another one.
TEST_F(SystemClasses, AFieldsBorderNeedsNoWidthOfTheScrollBar) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
    std::u16string lines;
    for (int i = 0; i < 100; ++i) lines += u"line\r\n";
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] {
            const Control& box = m_Shown->Paste.Base;
            m_Shown->Paste.Text(lines);
            ASSERT_TRUE(GetWindowLongW(box.hWnd(), GWL_STYLE) & WS_VSCROLL);
            const gui::Pixels before = Printed(box);
            const int hair = HairLine(dpi), middle = before.Height / 2, right = before.Width - 1;
            EXPECT_EQ(before.At(right, middle), palette::FieldBorder) << dpi;
            EXPECT_EQ(before.At(right - hair, middle), palette::Card) << dpi;
            // Not painted over: what lies inside the padding of three pixels.
            EXPECT_NE(before.At(right - Scaled(3, dpi), middle), palette::Card) << dpi;
            for (const int change : {-6, 20}) {
                NONCLIENTMETRICSW other = metrics;
                other.iScrollWidth += change;
                const int width = GetSystemMetrics(SM_CXVSCROLL);
                SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof other, &other, 0);
                EXPECT_NE(GetSystemMetrics(SM_CXVSCROLL), width);
                EXPECT_TRUE(Printed(box) == before) << change << " at " << dpi;
                SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
            }
        });
    }
}

TEST_F(SystemClasses, ListsWithoutASizeAreNotTurnedInsideOut) {
    m_Ui.Run([&] {
        const HWND any = m_Shown->Table.Base.hWnd();
        g_ListView = reinterpret_cast<WNDPROC>(
            SetClassLongPtrW(any, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(NoteSizes)));
        {
            gui::EveryForm form;
            for (const int size : {0, 15, 30}) {
                g_Asked.clear();
                form.Table.Base.Move(150, 150, size, size);
                EXPECT_FALSE(g_Asked.empty());
                for (const RECT& asked : g_Asked) {
                    EXPECT_GE(asked.right, asked.left) << size;
                    EXPECT_GE(asked.bottom, asked.top) << size;
                }
            }
        }
        SetClassLongPtrW(any, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_ListView));
    });
}

} // namespace
