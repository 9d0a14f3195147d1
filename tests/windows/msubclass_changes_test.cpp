// What changes while clients are being called: they detach, end, fail, send messages or
// destroy the window; others subclass it too.
#include "base/RuntimeFailure.h"
#include "controls/EventFrame.h"
#include "windows/SubclassTest.h"

#include <atomic>
#include <memory>

namespace {

using namespace subclass;

class Subclass : public SubclassTest {};

TEST_F(Subclass, DetachingInsideItsOwnCallSkipsNobody) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst),
        three("three", ISubclass::kClientFirst);
    one.m_Within = [&] { Detach(one); };
    for (Client* client : {&one, &two, &three}) Attach(*client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"one", "two", "three", "previous"}), g_Log);
    g_Log.clear();
    Send();
    EXPECT_EQ((Calls{"two", "three", "previous"}), g_Log);
    Detach(two);
    Detach(three);
}

TEST_F(Subclass, TheLastClientDetachesInsideItsCallAndTheMessageStillGoesOn) {
    Client client("client", ISubclass::kClientFirst, 5);
    client.m_Within = [&] { Detach(client); };
    Attach(client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"client", "previous"}), g_Log);
    EXPECT_TRUE(IsOriginal());
    EXPECT_EQ(0, Properties(m_Window));
}

TEST_F(Subclass, AClientMayEndInsideItsOwnCall) {
    auto client = std::make_unique<Client>("client", ISubclass::kClientAlone, 5);
    client->m_Within = [&] {
        Detach(*client);
        client.reset();
    };
    Attach(*client);
    EXPECT_EQ(5, Send());
    EXPECT_EQ((Calls{"client"}), g_Log);
    EXPECT_EQ(kPreviousAnswer, Send());
}

TEST_F(Subclass, AClientThatAnotherOneDetachedIsNotCalledAnyMore) {
    Client one("one", ISubclass::kClientFirst);
    auto two = std::make_unique<Client>("two", ISubclass::kClientAlone);
    one.m_Within = [&] {
        Detach(*two);
        two.reset();
    };
    Attach(one);
    Attach(*two);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"one", "previous"}), g_Log);
    Detach(one);
}

TEST_F(Subclass, AClientAttachedInsideACallGetsTheNextMessage) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst);
    one.m_Within = [&] {
        one.m_Within = {};
        Attach(two);
    };
    Attach(one);
    Send();
    EXPECT_EQ((Calls{"one", "previous"}), g_Log);
    g_Log.clear();
    Send();
    EXPECT_EQ((Calls{"one", "two", "previous"}), g_Log);
    Detach(one);
    Detach(two);
}

TEST_F(Subclass, AWindowDestroyedWithClientsLetsThemGo) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst);
    int left = -1;
    two.m_Within = [&] { left = Properties(m_Window); };
    Attach(one, WM_DESTROY);
    Attach(two, WM_NCDESTROY);
    Attach(two, kMessage);
    DestroyWindow(m_Window);
    EXPECT_EQ((Calls{"one", "two"}), g_Log);
    EXPECT_GT(left, 0); // still there for the clients of the last message
    EXPECT_FALSE(IsWindow(m_Window));
    Detach(one, WM_DESTROY);
    Detach(two, WM_NCDESTROY);
    Detach(two, kMessage);
}

std::atomic<int> g_PropertiesAtEnd{-1};
LRESULT CALLBACK CountsAtItsEnd(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP) g_PropertiesAtEnd = Properties(window);
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(Subclass, ADestroyedWindowKeepsNoProperty) {
    Client client("client", ISubclass::kClientFirst);
    SetWindowLongPtrW(m_Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountsAtItsEnd));
    Attach(client, kMessage);
    Attach(client, kOther);
    // As destroying does it, but the window stays and can be looked into.
    SendMessageW(m_Window, WM_NCDESTROY, 0, 0);
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(CountsAtItsEnd), GetWindowLongPtrW(m_Window, GWLP_WNDPROC));
    SendMessageW(m_Window, WM_APP, 0, 0);
    EXPECT_EQ(0, g_PropertiesAtEnd);
}

TEST_F(Subclass, AWindowDestroyedInsideACallGetsNothingMore) {
    Client one("one", ISubclass::kClientFirst, 1), two("two", ISubclass::kClientFirst, 2);
    one.m_Within = [&] { DestroyWindow(m_Window); };
    Attach(one);
    Attach(two);
    EXPECT_EQ(1, Send());
    EXPECT_EQ((Calls{"one"}), g_Log);
}

TEST_F(Subclass, NestedMessagesKeepTheirOwnNumberAndProcedure) {
    HWND second = gui::MakeWindow(nullptr, {70, 70, 90, 90});
    Client outer("outer", ISubclass::kClientAlone), inner("inner", ISubclass::kClientAlone);
    UINT before = 0, within = 0, behind = 0;
    outer.m_Within = [&] {
        before = MSubclass::CurrentMessage();
        SendMessageW(second, kOther, 0, 0);
        behind = MSubclass::CurrentMessage();
        MSubclass::CallOldWindowProc(m_Window, kMessage, 0, 0);
    };
    inner.m_Within = [&] { within = MSubclass::CurrentMessage(); };
    Attach(outer);
    MSubclass::AttachMessage(inner, second, kOther);
    Send();
    EXPECT_EQ(kMessage, before);
    EXPECT_EQ(kOther, within);
    EXPECT_EQ(kMessage, behind);
    EXPECT_EQ((Calls{"outer", "inner", "previous"}), g_Log);
    Detach(outer);
    MSubclass::DetachMessage(inner, second, kOther);
    DestroyWindow(second);
}

WNDPROC g_BehindStranger = nullptr;
LRESULT CALLBACK Stranger(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kMessage) g_Log.push_back("stranger");
    return CallWindowProcW(g_BehindStranger, window, message, wParam, lParam);
}

TEST_F(Subclass, AnotherSubclasserInFrontIsNotCutOff) {
    Client client("client", ISubclass::kClientFirst);
    Attach(client);
    g_BehindStranger = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Stranger)));
    Detach(client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"stranger", "previous"}), g_Log);
    g_Log.clear();
    Attach(client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"stranger", "client", "previous"}), g_Log);
    // The stranger leaves first: now the procedure can go back.
    SetWindowLongPtrW(m_Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_BehindStranger));
    Detach(client);
    EXPECT_TRUE(IsOriginal());
    EXPECT_EQ(0, Properties(m_Window));
}

// A failure inside a client: kept, and the message loops are asked to end.
class FailingClient : public Subclass {
protected:
    void TearDown() override {
        EventFrame::Forget();
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        Subclass::TearDown();
    }
    int KeptNumber() const {
        try {
            EventFrame::Rethrow();
        } catch (const RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
};

TEST_F(FailingClient, TheFailureIsKeptAndTheWindowStillGetsTheMessage) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst);
    one.m_Within = [] { throw RuntimeFailure(13, u"one"); };
    Attach(one);
    Attach(two);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"one", "previous"}), g_Log);
    EXPECT_EQ(13, KeptNumber());
    EXPECT_EQ(0u, MSubclass::CurrentMessage());
    MSG quit{};
    ASSERT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    // From here on no client runs any more.
    g_Log.clear();
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"previous"}), g_Log);
    Detach(one);
    Detach(two);
    EXPECT_TRUE(IsOriginal());
}

TEST_F(FailingClient, ThePreviousProcedureDoesNotRunTwice) {
    Client client("client", ISubclass::kPreviousFirst);
    client.m_Within = [] { throw RuntimeFailure(13, u"client"); };
    Attach(client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"previous", "client"}), g_Log);
    Detach(client);
}

TEST_F(FailingClient, AFailureAtTheEndOfTheWindowLeavesNoProperty) {
    Client client("client", ISubclass::kClientFirst);
    client.m_Within = [] { throw RuntimeFailure(13, u"client"); };
    SetWindowLongPtrW(m_Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountsAtItsEnd));
    Attach(client, WM_NCDESTROY);
    g_PropertiesAtEnd = -1;
    SendMessageW(m_Window, WM_NCDESTROY, 0, 0);
    SendMessageW(m_Window, WM_APP, 0, 0);
    EXPECT_EQ(0, g_PropertiesAtEnd);
    EXPECT_EQ(13, KeptNumber());
}

TEST(SubclassWithTheMouse, ARealClickReachesClientAndWindow) {
    g_Log.clear();
    gui::UiThread ui;
    HWND window = nullptr;
    Client client("client", ISubclass::kClientFirst);
    ui.Run([&] {
        window = gui::MakeWindow(nullptr, {200, 200, 300, 300}, Previous);
        MSubclass::AttachMessage(client, window, WM_LBUTTONUP);
    });
    ASSERT_TRUE(gui::Activate(window));
    gui::Click(gui::ToScreen(window, 12, 34));
    LPARAM place = 0;
    EXPECT_TRUE(gui::WaitUntil([&] {
        ui.Run([&] { place = client.m_Seen.lParam; });
        return place != 0;
    }));
    EXPECT_EQ(MAKELPARAM(12, 34), place);
    ui.Run([&] {
        MSubclass::DetachMessage(client, window, WM_LBUTTONUP);
        DestroyWindow(window);
    });
}

} // namespace
