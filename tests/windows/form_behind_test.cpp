// What cannot be done behind a modal form, and forms that an event of a button opens.
#include "windows/ModalTest.h"

#include <thread>

namespace {

using BehindModal = gui::ModalTest;

TEST_F(BehindModal, ScreenReadersPressNothingBehindIt) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    const HWND go = m_Shown->Go.Base.hWnd();
    m_Ui.Run([&] { EXPECT_NE(gui::DoDefault(go), S_OK); });
    EXPECT_EQ(m_Shown->Clicks, 0);
    const LONG state = Said(m_Shown->Go.Base).State;
    EXPECT_TRUE(state & STATE_SYSTEM_UNAVAILABLE);
    EXPECT_FALSE(state & STATE_SYSTEM_FOCUSABLE);
    EXPECT_FALSE(Said(m_Ask->Ok.Base).State & STATE_SYSTEM_UNAVAILABLE);
    // It is not painted as disabled.
    EXPECT_TRUE(On([&] { return m_Shown->Go.Base.EnabledInAll(); }));
    Hide(m_Ask);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_FALSE(Said(m_Shown->Go.Base).State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(go), S_OK); });
    EXPECT_EQ(m_Shown->Clicks, 1);
}

// The press is on its way when the modal form comes.
TEST_F(BehindModal, APressThatComesTooLateIsDropped) {
    m_Ui.Run([&] {
        gui::AskForm ask;
        IAccessible* object = nullptr;
        ASSERT_EQ(AccessibleObjectFromWindow(m_Shown->Go.Base.hWnd(), static_cast<DWORD>(OBJID_CLIENT),
                                             IID_IAccessible, reinterpret_cast<void**>(&object)),
                  S_OK);
        VARIANT self{};
        self.vt = VT_I4;
        EXPECT_EQ(object->accDoDefaultAction(self), S_OK);
        object->Release();
        m_Ui.Post([&] { ask.Window.Hide(); }); // behind the press
        ask.Window.ShowModal(&m_Shown->Window);
        EXPECT_EQ(m_Shown->Clicks, 0);
    });
}

TEST_F(BehindModal, AScreenReaderDoesNotWaitForTheFormThatItHasOpened) {
    Make(m_Ask);
    m_Ui.Run([&] { m_Shown->Go.Click = [&] { m_Ask->Window.ShowModal(&m_Shown->Window); }; });
    std::atomic<bool> answered = false;
    std::thread reader([&] {
        CoInitialize(nullptr);
        EXPECT_EQ(gui::DoDefault(m_Shown->Go.Base.hWnd()), S_OK);
        answered = true;
        CoUninitialize();
    });
    EXPECT_TRUE(Becomes([&] { return IsWindowVisible(m_Ask->hWnd()) != 0; }));
    EXPECT_TRUE(gui::WaitUntil([&] { return answered.load(); }));
    Hide(m_Ask);
    reader.join();
}

TEST_F(BehindModal, FocusGivenBehindItComesWithTheEnd) {
    Make(m_Ask);
    m_Ui.Run([&] { m_Shown->Go.Base.SetFocus(); });
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Run([&] { m_Shown->Text.Base.SetFocus(); });
    EXPECT_TRUE(On([&] { return m_Ask->Ok.Base.HasFocus(); }));
    Hide(m_Ask);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(FocusComesTo(m_Shown->Text.Base));
}

TEST_F(BehindModal, OpenedByAClickItGivesTheFocusBack) {
    Make(m_Ask);
    bool back = false;
    m_Ui.Run([&] {
        m_Shown->Go.Click = [&] {
            m_Ask->Window.ShowModal(&m_Shown->Window);
            back = true;
        };
    });
    gui::Click(gui::CentreOf(m_Shown->Go.Base.hWnd()));
    ASSERT_TRUE(FocusComesTo(m_Ask->Ok.Base));
    // The mouse is free: the press has ended before its handler ran.
    EXPECT_EQ(On([] { return GetCapture(); }), nullptr);
    gui::Type(VK_RETURN);
    ASSERT_TRUE(Becomes([&] { return back; }));
    EXPECT_TRUE(FocusComesTo(m_Shown->Go.Base));
    EXPECT_FALSE(On([&] { return m_Shown->Go.State().Pressed; }));
}

TEST_F(BehindModal, OpenedByMouseInItLeavesTheButtonWhenItEnds) {
    Make(m_Ask);
    int ins = 0, outs = 0;
    m_Ui.Run([&] {
        m_Shown->Go.MouseIn = [&](int) {
            if (++ins == 1) m_Ask->Window.ShowModal(&m_Shown->Window);
        };
        m_Shown->Go.MouseOut = [&](int) { ++outs; };
    });
    gui::MoveTo(gui::CentreOf(m_Shown->Go.Base.hWnd()));
    ASSERT_TRUE(FocusComesTo(m_Ask->Ok.Base));
    gui::MoveTo({1, 1});
    EXPECT_TRUE(Becomes([&] { return outs == 1; }));
    gui::Type(VK_RETURN);
    EXPECT_TRUE(gui::WaitUntil([&] { return IsWindowEnabled(Main()) != 0; }));
    EXPECT_TRUE(FocusComesTo(m_Shown->Go.Base));
    EXPECT_FALSE(On([&] { return m_Shown->Go.State().Hovering; }));
    EXPECT_EQ(ins, 1);
}

} // namespace
