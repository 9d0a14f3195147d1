// The modal show: which forms take input meanwhile, and whatever ends it.
#include "windows/ModalTest.h"

namespace {

using Modal = gui::ModalTest;

TEST_F(Modal, DisablesTheOthersUntilItIsHidden) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    EXPECT_FALSE(IsWindowEnabled(Main()));
    gui::Click(gui::CentreOf(m_Shown->Go.Base.hWnd()));
    m_Ui.Settle();
    EXPECT_EQ(m_Shown->Clicks, 0);
    EXPECT_FALSE(m_Ask.Back);
    ASSERT_TRUE(gui::Activate(m_Ask->hWnd()));
    gui::Type(VK_RETURN);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(IsWindowEnabled(Main()));
    EXPECT_TRUE(gui::WaitUntil([&] { return GetForegroundWindow() == Main(); }));
    EXPECT_TRUE(FocusComesTo(m_Shown->Go.Base));
}

TEST_F(Modal, MayBeDestroyedByItsOwnButton) {
    Make(m_Ask);
    m_Ui.Run([&] { m_Ask->Ok.Click = [&] { m_Ask.Form.reset(); }; });
    Show(m_Ask, &m_Shown->Window);
    gui::Type(VK_RETURN);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_EQ(m_Ask.Form, nullptr);
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(Modal, TheEndOfTheProgramComesThroughTheLoop) {
    m_Ui.Run([&] {
        gui::AskForm ask;
        PostQuitMessage(3);
        ask.Window.ShowModal(&m_Shown->Window);
        MSG message; // the outer loop sees it too; here it is taken out for the other tests
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EXPECT_EQ(message.wParam, 3u);
        EXPECT_TRUE(IsWindowEnabled(Main()));
    });
}

TEST_F(Modal, AFailureOfItsHandlerEndsItAndComesOutOfTheCall) {
    Make(m_Ask);
    m_Ui.Run([&] { m_Ask->Ok.Click = [] { throw RuntimeFailure(kOverflow, u"test"); }; });
    Show(m_Ask, &m_Shown->Window);
    gui::Type(VK_RETURN);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_EQ(m_Ask.Failure, kOverflow);
    EXPECT_TRUE(IsWindowEnabled(Main()));
    m_Ui.Run([] { EventFrame::Forget(); });
}

TEST_F(Modal, EveryWayOfGoingEndsIt) {
    const struct {
        const char* How;
        std::function<void(gui::AskForm&)> Go;
    } ways[] = {
        {"Hide", [](gui::AskForm& ask) { ask.Window.Hide(); }},
        {"Visible", [](gui::AskForm& ask) { ask.Window.Base.Visible(false); }},
        {"Unload", [](gui::AskForm& ask) { ask.Window.Unload(); }},
        {"WM_CLOSE", [](gui::AskForm& ask) { SendMessageW(ask.hWnd(), WM_CLOSE, 0, 0); }},
        {"the system hides it", [](gui::AskForm& ask) { ShowWindow(ask.hWnd(), SW_HIDE); }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.How);
        Make(m_Ask);
        Show(m_Ask, &m_Shown->Window);
        EXPECT_FALSE(IsWindowEnabled(Main()));
        m_Ui.Run([&] { way.Go(*m_Ask.Form); });
        ASSERT_TRUE(ComesBack(m_Ask));
        EXPECT_EQ(m_Ask.Failure, 0);
        EXPECT_TRUE(IsWindowEnabled(Main()));
        EXPECT_TRUE(gui::WaitUntil([&] { return GetForegroundWindow() == Main(); }));
        m_Ui.Run([&] { m_Ask.Form.reset(); });
    }
}

TEST_F(Modal, EndsWhenTheSystemDestroysItsWindow) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Run([&] { DestroyWindow(m_Ask->hWnd()); });
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

// Another program sends WM_CLOSE: no message of the queue wakes the loop then.
TEST_F(Modal, ACloseThatIsSentFromElsewhereEndsItAtOnce) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Settle();
    SendMessageW(m_Ask->hWnd(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(ComesBack(m_Ask));
}

TEST_F(Modal, EndsWithItsOwner) {
    Make(m_Other);
    Make(m_Ask);
    m_Ui.Run([&] { m_Other->Window.Show(); });
    Show(m_Ask, &m_Other->Window);
    SendMessageW(m_Other->hWnd(), WM_CLOSE, 0, 0); // a disabled window takes it too
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_EQ(m_Ask->hWnd(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(Modal, AHiddenFormOutlivesTheOwnerOfItsLastShow) {
    Make(m_Other);
    Make(m_Ask);
    Show(m_Ask, &m_Other->Window);
    Hide(m_Ask);
    ASSERT_TRUE(ComesBack(m_Ask));
    m_Ui.Run([&] { m_Other.Form.reset(); });
    EXPECT_NE(m_Ask->hWnd(), nullptr);
    Show(m_Ask, &m_Shown->Window);
    Hide(m_Ask);
    EXPECT_TRUE(ComesBack(m_Ask));
}

TEST_F(Modal, AFormWithoutAWindowIsRefused) {
    Make(m_Ask);
    m_Ui.Run([&] {
        m_Ask->Window.Unload();
        try {
            m_Ask->Window.ShowModal(&m_Shown->Window);
            ADD_FAILURE() << "it was shown";
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.Number(), kObjectNotSet);
        }
        EXPECT_TRUE(IsWindowEnabled(Main()));
    });
}

TEST_F(Modal, TheSameFormTwiceIsRefused) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Run([&] {
        try {
            m_Ask->Window.ShowModal(nullptr);
            ADD_FAILURE() << "it was shown";
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.Number(), kInvalidCall);
        }
    });
    EXPECT_FALSE(m_Ask.Back);
    Hide(m_Ask);
    EXPECT_TRUE(ComesBack(m_Ask));
}

// The inner one was there before, and had been disabled with all others.
TEST_F(Modal, NestedOnesTakeInputOneAfterTheOther) {
    Make(m_Other);
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    EXPECT_FALSE(IsWindowEnabled(m_Other->hWnd()));
    Show(m_Other, &m_Ask->Window);
    EXPECT_TRUE(IsWindowEnabled(m_Other->hWnd()));
    EXPECT_FALSE(IsWindowEnabled(m_Ask->hWnd()));
    EXPECT_FALSE(IsWindowEnabled(Main()));
    gui::Type(VK_RETURN);
    ASSERT_TRUE(ComesBack(m_Other));
    EXPECT_TRUE(IsWindowEnabled(m_Ask->hWnd()));
    EXPECT_FALSE(IsWindowEnabled(Main()));
    ASSERT_TRUE(FocusComesTo(m_Ask->Ok.Base));
    gui::Type(VK_RETURN);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(Modal, TheOuterOneMayEndFirst) {
    Make(m_Ask);
    Make(m_Other);
    Show(m_Ask, &m_Shown->Window);
    Show(m_Other, &m_Ask->Window);
    Hide(m_Ask);
    EXPECT_FALSE(IsWindowEnabled(Main()));
    EXPECT_TRUE(IsWindowEnabled(m_Other->hWnd()));
    EXPECT_FALSE(m_Other.Back);
    Hide(m_Other);
    ASSERT_TRUE(ComesBack(m_Other));
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(Modal, NestedOnesGoTogetherWithTheOuterOne) {
    Make(m_Ask);
    Make(m_Other);
    Show(m_Ask, &m_Shown->Window);
    Show(m_Other, &m_Ask->Window);
    m_Ui.Run([&] { m_Ask.Form.reset(); });
    ASSERT_TRUE(ComesBack(m_Other));
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_EQ(m_Other->hWnd(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

TEST_F(Modal, AFormThatIsShownMeanwhileWaitsForItsTurn) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Run([&] {
        m_Other.Form = std::make_unique<gui::AskForm>();
        m_Other->Window.Show();
    });
    EXPECT_TRUE(IsWindowVisible(m_Other->hWnd()));
    EXPECT_FALSE(IsWindowEnabled(m_Other->hWnd()));
    EXPECT_TRUE(On([&] { return m_Ask->Ok.Base.HasFocus(); })); // it has not come in between
    Hide(m_Ask);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_TRUE(IsWindowEnabled(m_Other->hWnd()));
}

TEST_F(Modal, EnabledFromCodeCountsWhenItHasEnded) {
    Make(m_Ask);
    Show(m_Ask, &m_Shown->Window);
    m_Ui.Run([&] {
        m_Shown->Window.Base.Enabled(false);
        m_Shown->Window.Base.Enabled(true);
    });
    EXPECT_FALSE(IsWindowEnabled(Main()));
    m_Ui.Run([&] { m_Shown->Window.Base.Enabled(false); });
    Hide(m_Ask);
    ASSERT_TRUE(ComesBack(m_Ask));
    EXPECT_FALSE(IsWindowEnabled(Main()));
    m_Ui.Run([&] { m_Shown->Window.Base.Enabled(true); });
    EXPECT_TRUE(IsWindowEnabled(Main()));
}

} // namespace
