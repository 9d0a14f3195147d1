#include "controls/cSizeMoveHelper.h"

#include "base/RuntimeFailure.h"
#include "controls/modWin.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

bool FullDrag() {
    BOOL on = FALSE;
    SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &on, 0);
    return on != FALSE;
}
void SetFullDrag(bool on) {
    SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, on, nullptr, 0);
}

LRESULT CALLBACK Form(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN) {
        modWin::DragWindow(window, kLeftButton);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// A form and another window, both on a thread of their own; the log is read when the
// thread has come to rest.
class SizeMove : public testing::Test {
protected:
    void SetUp() override {
        m_DragBefore = FullDrag();
        SetFullDrag(true);
        m_Ui.Run([this] {
            m_Form = gui::MakeWindow(nullptr, {100, 100, 300, 250}, Form);
            m_Other = gui::MakeWindow(nullptr, {500, 300, 600, 400});
        });
        ASSERT_TRUE(gui::Activate(m_Other));
    }
    void TearDown() override {
        m_Ui.Run([this] {
            m_Helper.reset();
            DestroyWindow(m_Form);
            DestroyWindow(m_Other);
        });
        SetFullDrag(m_DragBefore);
    }

    void AttachWithLog(bool noFullDrag = false) {
        m_Ui.Run([this, noFullDrag] {
            m_Helper->EnterSizeMove = [this] { m_Log.push_back("enter"); };
            m_Helper->ExitSizeMove = [this] { m_Log.push_back("exit"); };
            m_Helper->Activate = [this](bool byMouse) {
                m_Log.push_back(byMouse ? "activate by mouse" : "activate");
            };
            m_Helper->Deactivate = [this] { m_Log.push_back("deactivate"); };
            m_Helper->Moving = [this](LONG& l, LONG& t, LONG& w, LONG& h) {
                m_Log.push_back("moving");
                m_Last = {l, t, w, h};
            };
            m_Helper->Sizing = [this](LONG& l, LONG& t, LONG& w, LONG& h) {
                m_Log.push_back("sizing");
                m_Last = {l, t, w, h};
            };
            m_Helper->NoFullDrag(noFullDrag);
            m_Helper->Attach(m_Form);
        });
    }
    std::vector<std::string> Log() {
        std::vector<std::string> log;
        m_Ui.Run([&] { log.swap(m_Log); });
        return log;
    }
    bool Active() {
        bool active = false;
        m_Ui.Run([&] { active = m_Helper->Active(); });
        return active;
    }
    RECT Place() const {
        RECT place{};
        GetWindowRect(m_Form, &place);
        return place;
    }
    // Drags the form by the mouse, in steps of (10, 5).
    void Drag(int steps) {
        const POINT from = gui::ToScreen(m_Form, 50, 40);
        gui::MoveTo(from);
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(gui::WaitUntil([this] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            return GetGUIThreadInfo(GetWindowThreadProcessId(m_Form, nullptr), &info) &&
                   (info.flags & GUI_INMOVESIZE) != 0;
        }));
        for (int step = 1; step <= steps; ++step) gui::MoveTo({from.x + 10 * step, from.y + 5 * step});
        gui::Press(MOUSEEVENTF_LEFTUP);
        ASSERT_TRUE(gui::WaitUntil([this] {
            bool ended = false;
            m_Ui.Run([&] { ended = !m_Log.empty() && m_Log.back() == "exit"; });
            return ended;
        }));
    }

    gui::UiThread m_Ui;
    bool m_DragBefore = false;
    HWND m_Form = nullptr, m_Other = nullptr;
    std::unique_ptr<cSizeMoveHelper> m_Helper = std::make_unique<cSizeMoveHelper>();
    std::vector<std::string> m_Log;
    std::vector<LONG> m_Last;
};

using Events = std::vector<std::string>;

TEST_F(SizeMove, ADragIsToldStepByStep) {
    AttachWithLog();
    ASSERT_TRUE(gui::Activate(m_Form));
    Log();
    Drag(5);
    Events log = Log();
    ASSERT_GE(log.size(), 3u);
    EXPECT_EQ("enter", log.front());
    EXPECT_EQ("exit", log.back());
    for (std::size_t i = 1; i + 1 < log.size(); ++i) EXPECT_EQ("moving", log[i]);
    EXPECT_EQ((std::vector<LONG>{150, 125, 200, 150}), m_Last);
    EXPECT_EQ(150, Place().left);
    EXPECT_EQ(125, Place().top);
}

TEST_F(SizeMove, AHandlerOfMovingSteersTheWindow) {
    AttachWithLog();
    m_Ui.Run([this] { m_Helper->Moving = [](LONG& left, LONG&, LONG&, LONG&) { left = 77; }; });
    ASSERT_TRUE(gui::Activate(m_Form));
    Drag(4);
    EXPECT_EQ(77, Place().left);
    EXPECT_EQ(120, Place().top);
    EXPECT_EQ(77 + 200, Place().right);
}

TEST_F(SizeMove, AHandlerOfSizingSteersTheRectangle) {
    AttachWithLog();
    m_Ui.Run([this] {
        m_Helper->Sizing = [](LONG& left, LONG& top, LONG& width, LONG& height) {
            left += 1;
            top += 2;
            width *= 2;
            height *= 3;
        };
        RECT place{10, 20, 110, 70};
        const LRESULT answer =
            SendMessageW(m_Form, WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(TRUE, answer);
        EXPECT_EQ(11, place.left);
        EXPECT_EQ(22, place.top);
        EXPECT_EQ(11 + 200, place.right);
        EXPECT_EQ(22 + 150, place.bottom);
    });
}

TEST_F(SizeMove, AChangeOfSizeFromCodeLooksLikeOneByTheUser) {
    AttachWithLog();
    SetWindowPos(m_Form, nullptr, 120, 130, 210, 160, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ((Events{"sizing"}), Log());
    EXPECT_EQ((std::vector<LONG>{120, 130, 210, 160}), m_Last);
}

TEST_F(SizeMove, WithinASizeMoveAChangeOfSizeIsNotToldTwice) {
    AttachWithLog();
    m_Ui.Run([this] {
        SendMessageW(m_Form, WM_ENTERSIZEMOVE, 0, 0);
        SetWindowPos(m_Form, nullptr, 0, 0, 215, 165, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
        SendMessageW(m_Form, WM_EXITSIZEMOVE, 0, 0);
        SetWindowPos(m_Form, nullptr, 0, 0, 220, 170, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
    });
    EXPECT_EQ((Events{"enter", "exit", "sizing"}), Log());
}

TEST_F(SizeMove, TheNoteOfASizeMoveEndsBehindTheEventOfItsEnd) {
    AttachWithLog();
    m_Ui.Run([this] {
        m_Helper->ExitSizeMove = [this] {
            m_Log.push_back("exit");
            SetWindowPos(m_Form, nullptr, 0, 0, 190, 140, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
        };
        SendMessageW(m_Form, WM_ENTERSIZEMOVE, 0, 0);
        SendMessageW(m_Form, WM_EXITSIZEMOVE, 0, 0);
    });
    EXPECT_EQ((Events{"enter", "exit"}), Log());
}

TEST_F(SizeMove, ActivationTellsWhetherItCameByMouse) {
    AttachWithLog();
    EXPECT_FALSE(Active());
    ASSERT_TRUE(gui::Activate(m_Form));
    EXPECT_EQ((Events{"activate"}), Log());
    EXPECT_TRUE(Active());
    ASSERT_TRUE(gui::Activate(m_Other));
    EXPECT_EQ((Events{"deactivate"}), Log());
    EXPECT_FALSE(Active());
    gui::Click(gui::ToScreen(m_Form, 50, 40));
    ASSERT_TRUE(gui::WaitUntil([this] { return Active(); }));
    EXPECT_EQ("activate by mouse", Log().front());
}

TEST_F(SizeMove, FullDragIsOffWhileTheWindowIsActiveAndBackBehindThat) {
    ASSERT_TRUE(FullDrag());
    AttachWithLog(true);
    EXPECT_TRUE(FullDrag()); // not active yet
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Settle();
    EXPECT_FALSE(FullDrag());
    ASSERT_TRUE(gui::Activate(m_Other));
    m_Ui.Settle();
    EXPECT_TRUE(FullDrag());
}

TEST_F(SizeMove, WithoutNoFullDragTheSettingIsLeftAlone) {
    AttachWithLog(false);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Settle();
    EXPECT_TRUE(FullDrag());
}

TEST_F(SizeMove, ASettingThatWasOffStaysOff) {
    SetFullDrag(false);
    AttachWithLog(true);
    ASSERT_TRUE(gui::Activate(m_Form));
    ASSERT_TRUE(gui::Activate(m_Other));
    m_Ui.Settle();
    EXPECT_FALSE(FullDrag());
    m_Ui.Run([this] { m_Helper->Detach(); });
    EXPECT_FALSE(FullDrag());
}

TEST_F(SizeMove, NoFullDragWorksAtOnceInAnActiveWindow) {
    AttachWithLog(false);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Run([this] { m_Helper->NoFullDrag(true); });
    EXPECT_FALSE(FullDrag());
    m_Ui.Run([this] { m_Helper->NoFullDrag(false); });
    EXPECT_TRUE(FullDrag());
}

TEST_F(SizeMove, AttachingToAnActiveWindowCountsAsItsActivation) {
    ASSERT_TRUE(gui::Activate(m_Form));
    AttachWithLog(true);
    EXPECT_TRUE(Active());
    EXPECT_FALSE(FullDrag());
}

TEST_F(SizeMove, DetachPutsTheSettingBack) {
    AttachWithLog(true);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Run([this] { m_Helper->Detach(); });
    EXPECT_TRUE(FullDrag());
    EXPECT_FALSE(Active());
    Log();
    ASSERT_TRUE(gui::Activate(m_Other));
    EXPECT_EQ(Events{}, Log());
}

TEST_F(SizeMove, TheEndOfTheHelperPutsTheSettingBack) {
    AttachWithLog(true);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Settle();
    EXPECT_FALSE(FullDrag());
    m_Ui.Run([this] { m_Helper.reset(); });
    EXPECT_TRUE(FullDrag());
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(Form), GetWindowLongPtrW(m_Form, GWLP_WNDPROC));
}

TEST_F(SizeMove, TheEndOfTheWindowPutsTheSettingBackAndDetaches) {
    AttachWithLog(true);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Run([this] { DestroyWindow(m_Form); });
    EXPECT_TRUE(FullDrag());
    EXPECT_FALSE(Active());
}

TEST_F(SizeMove, ASecondAttachLetsTheFirstWindowGo) {
    AttachWithLog(true);
    ASSERT_TRUE(gui::Activate(m_Form));
    m_Ui.Run([this] { m_Helper->Attach(m_Other); });
    EXPECT_TRUE(FullDrag()); // the second window is not the active one
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(Form), GetWindowLongPtrW(m_Form, GWLP_WNDPROC));
    Log();
    ASSERT_TRUE(gui::Activate(m_Other));
    EXPECT_EQ((Events{"activate"}), Log());
    EXPECT_FALSE(FullDrag());
}

TEST_F(SizeMove, ARefusedWindowLeavesTheHelperDetached) {
    AttachWithLog();
    m_Ui.Run([this] { EXPECT_THROW(m_Helper->Attach(nullptr), RuntimeFailure); });
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(Form), GetWindowLongPtrW(m_Form, GWLP_WNDPROC));
}

TEST_F(SizeMove, AHandlerMayEndTheHelper) {
    AttachWithLog();
    m_Ui.Run([this] {
        m_Helper->ExitSizeMove = [this] { m_Helper.reset(); };
        SendMessageW(m_Form, WM_ENTERSIZEMOVE, 0, 0);
        SendMessageW(m_Form, WM_EXITSIZEMOVE, 0, 0);
        EXPECT_EQ(nullptr, m_Helper);
    });
}

// Processes that the next test starts, since each keeps what it has once read of the
// setting: one ends while its window is active, its helper never told; one only looks.
TEST(SizeMoveChild, DISABLED_EndsWhileItsWindowIsActive) {
    ASSERT_TRUE(FullDrag());
    static auto* helper = new cSizeMoveHelper;
    HWND form = gui::MakeWindow(nullptr, {100, 100, 300, 250}, Form);
    helper->NoFullDrag(true);
    helper->Attach(form);
    SendMessageW(form, WM_ACTIVATE, WA_ACTIVE, 0);
    std::exit(FullDrag() ? 3 : 7);
}
TEST(SizeMoveChild, DISABLED_FindsFullDragOn) {
    EXPECT_TRUE(FullDrag());
}

TEST(SizeMoveProcess, TheEndOfTheProcessPutsTheSettingBack) {
    const bool before = FullDrag();
    SetFullDrag(true);
    EXPECT_EQ(7, gui::RunCase("SizeMoveChild.DISABLED_EndsWhileItsWindowIsActive"));
    EXPECT_EQ(0, gui::RunCase("SizeMoveChild.DISABLED_FindsFullDragOn"));
    SetFullDrag(before);
}

} // namespace
