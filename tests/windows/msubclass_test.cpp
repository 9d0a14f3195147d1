#include "controls/MSubclass.h"

#include "base/RuntimeFailure.h"
#include "controls/EventFrame.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr UINT kMessage = WM_USER + 7;
constexpr UINT kOther = WM_USER + 8;
constexpr LRESULT kPreviousAnswer = 70;

std::vector<std::string> g_Log; // who was called, in order

LRESULT CALLBACK Previous(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kMessage || message == kOther) {
        g_Log.push_back("previous");
        return kPreviousAnswer;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

class Client final : public ISubclass {
public:
    Client(const char* name, int response, LRESULT answer = 0)
        : m_Name(name), m_Response(response), m_Answer(answer) {}

    int MsgResponse() override { return m_Response; }
    void MsgResponse(int response) override { m_Response = response; }
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override {
        g_Log.push_back(m_Name);
        m_Seen = {hWnd, iMsg, wParam, lParam, {}, {}};
        const LRESULT answer = m_Answer;
        const auto within = m_Within; // may end this client
        if (within) within();
        return answer;
    }

    std::function<void()> m_Within;
    MSG m_Seen{};

private:
    std::string m_Name;
    int m_Response;
    LRESULT m_Answer;
};

using Calls = std::vector<std::string>;

class Subclass : public testing::Test {
protected:
    void SetUp() override {
        g_Log.clear();
        m_Window = gui::MakeWindow(nullptr, {10, 10, 60, 60}, Previous);
    }
    void TearDown() override {
        if (IsWindow(m_Window)) DestroyWindow(m_Window);
    }

    LRESULT Send(UINT message = kMessage) { return SendMessageW(m_Window, message, 3, 4); }
    bool IsOriginal() const {
        return GetWindowLongPtrW(m_Window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(Previous);
    }
    std::wstring Digits() const { return std::to_wstring(reinterpret_cast<LONG_PTR>(m_Window)); }
    void* Property(const std::wstring& name) const { return GetPropW(m_Window, name.c_str()); }
    LONG_PTR Count(const std::wstring& name) const { return reinterpret_cast<LONG_PTR>(Property(name)); }
    void Attach(Client& client, UINT message = kMessage) {
        MSubclass::AttachMessage(client, m_Window, message);
    }
    void Detach(Client& client, UINT message = kMessage) {
        MSubclass::DetachMessage(client, m_Window, message);
    }

    HWND m_Window = nullptr;
};

struct Counted {
    std::wstring digits;
    int count = 0;
};

BOOL CALLBACK CountProperty(HWND, LPWSTR name, HANDLE, ULONG_PTR counted) {
    auto& to = *reinterpret_cast<Counted*>(counted);
    if (!IS_INTRESOURCE(name) && std::wstring(name).find(to.digits) != std::wstring::npos) ++to.count;
    return TRUE;
}

// Properties that name the window's handle; the system may keep others there.
int Properties(HWND window) {
    Counted counted{std::to_wstring(reinterpret_cast<LONG_PTR>(window))};
    EnumPropsExW(window, CountProperty, reinterpret_cast<ULONG_PTR>(&counted));
    return counted.count;
}

void ExpectFailure(const std::function<void()>& call, int number, const std::u16string& text) {
    try {
        call();
        ADD_FAILURE() << "no failure " << number;
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(number, failure.Number());
        EXPECT_EQ(text, failure.Description());
        EXPECT_EQ(u"Zorvak Converter.WindowProc", failure.Source());
    }
}

TEST_F(Subclass, AHandleThatIsNoWindowIsRefused) {
    Client client("client", ISubclass::kClientFirst);
    ExpectFailure([&] { MSubclass::AttachMessage(client, nullptr, kMessage); }, 13083, u"Invalid window");
    DestroyWindow(m_Window);
    ExpectFailure([&] { Attach(client); }, 13083, u"Invalid window");
}

TEST_F(Subclass, AWindowOfAnotherProcessIsRefused) {
    const HWND desktop = GetDesktopWindow();
    DWORD process = 0;
    GetWindowThreadProcessId(desktop, &process);
    ASSERT_NE(GetCurrentProcessId(), process);
    Client client("client", ISubclass::kClientFirst);
    ExpectFailure([&] { MSubclass::AttachMessage(client, desktop, kMessage); }, 13084,
                  u"Can't modify external window");
    EXPECT_EQ(0, Properties(desktop));
}

// While a window of a class without a procedure is being made, there is none to take over.
int g_FailureOfHook = 0;
LRESULT CALLBACK AttachToNewWindow(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        Client client("client", ISubclass::kClientFirst);
        try {
            MSubclass::AttachMessage(client, reinterpret_cast<HWND>(wParam), kMessage);
        } catch (const RuntimeFailure& failure) {
            g_FailureOfHook = failure.Number();
            EXPECT_EQ(u"Can't subclass window", failure.Description());
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(Subclass, AWindowThatGivesNoProcedureIsRefused) {
    WNDCLASSW kind{};
    kind.lpszClassName = L"ZorvakTestWithoutProcedure";
    kind.hInstance = GetModuleHandleW(nullptr);
    ASSERT_NE(0, RegisterClassW(&kind));
    g_FailureOfHook = 0;
    HHOOK hook = SetWindowsHookExW(WH_CBT, AttachToNewWindow, nullptr, GetCurrentThreadId());
    HWND window =
        CreateWindowExW(0, kind.lpszClassName, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(13081, g_FailureOfHook);
    if (window) DestroyWindow(window);
}

TEST_F(Subclass, TheSameClientTwiceIsRefusedAndLeavesNothingBehind) {
    Client client("client", ISubclass::kClientFirst);
    Attach(client);
    ExpectFailure([&] { Attach(client); }, 13082, u"Message already handled by another class");
    EXPECT_EQ(1, Count(L"C" + Digits()));
    Send();
    EXPECT_EQ((Calls{"client", "previous"}), g_Log);
    Detach(client);
    EXPECT_TRUE(IsOriginal());
    EXPECT_EQ(0, Properties(m_Window));
}

TEST_F(Subclass, TheBookkeepingStandsInTheWindowsProperties) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst);
    Attach(one);
    Attach(two);
    Attach(two, kOther);
    const std::wstring h = Digits(), m = std::to_wstring(kMessage), other = std::to_wstring(kOther);
    EXPECT_EQ(reinterpret_cast<void*>(Previous), Property(h));
    EXPECT_EQ(3, Count(L"C" + h));
    EXPECT_EQ(2, Count(h + L"#" + m + L"C"));
    EXPECT_EQ(static_cast<ISubclass*>(&one), Property(h + L"#" + m + L"#1"));
    EXPECT_EQ(static_cast<ISubclass*>(&two), Property(h + L"#" + m + L"#2"));
    EXPECT_EQ(1, Count(h + L"#" + other + L"C"));
    EXPECT_EQ(static_cast<ISubclass*>(&two), Property(h + L"#" + other + L"#1"));
    Detach(one);
    EXPECT_EQ(2, Count(L"C" + h));
    EXPECT_EQ(1, Count(h + L"#" + m + L"C"));
    EXPECT_EQ(static_cast<ISubclass*>(&two), Property(h + L"#" + m + L"#1"));
    EXPECT_EQ(nullptr, Property(h + L"#" + m + L"#2"));
    Detach(two);
    EXPECT_FALSE(IsOriginal());
    Detach(two, kOther);
    EXPECT_TRUE(IsOriginal());
    EXPECT_EQ(0, Properties(m_Window));
}

TEST_F(Subclass, TheClientAloneHandlesTheMessage) {
    Client client("client", ISubclass::kClientAlone, 5);
    Attach(client);
    EXPECT_EQ(5, Send());
    EXPECT_EQ((Calls{"client"}), g_Log);
    EXPECT_EQ(m_Window, client.m_Seen.hwnd);
    EXPECT_EQ(kMessage, client.m_Seen.message);
    EXPECT_EQ(3u, client.m_Seen.wParam);
    EXPECT_EQ(4, client.m_Seen.lParam);
    Detach(client);
}

TEST_F(Subclass, TheClientFirstThenThePreviousProcedureWhoseResultGoesBack) {
    Client client("client", ISubclass::kClientFirst, 5);
    Attach(client);
    EXPECT_EQ(kPreviousAnswer, Send());
    EXPECT_EQ((Calls{"client", "previous"}), g_Log);
    Detach(client);
}

TEST_F(Subclass, ThePreviousProcedureFirstThenTheClientWhoseResultGoesBack) {
    Client client("client", ISubclass::kPreviousFirst, 5);
    Attach(client);
    EXPECT_EQ(5, Send());
    EXPECT_EQ((Calls{"previous", "client"}), g_Log);
    Detach(client);
}

TEST_F(Subclass, OtherMessagesGoToThePreviousProcedureOnly) {
    Client client("client", ISubclass::kClientAlone, 5);
    Attach(client);
    EXPECT_EQ(kPreviousAnswer, Send(kOther));
    EXPECT_EQ((Calls{"previous"}), g_Log);
    Detach(client);
}

TEST_F(Subclass, TwoClientsAreCalledInTheOrderOfTheirAttachment) {
    Client one("one", ISubclass::kClientAlone, 1), two("two", ISubclass::kClientAlone, 2);
    Attach(two);
    Attach(one);
    EXPECT_EQ(1, Send());
    EXPECT_EQ((Calls{"two", "one"}), g_Log);
    Detach(one);
    Detach(two);
}

TEST_F(Subclass, ThePreviousProcedureRunsOnceBeforeTheFirstOrBehindTheLast) {
    Client one("one", ISubclass::kPreviousFirst, 1), two("two", ISubclass::kClientFirst, 2);
    Attach(one);
    Attach(two);
    EXPECT_EQ(2, Send());
    EXPECT_EQ((Calls{"previous", "one", "two"}), g_Log);

    g_Log.clear();
    one.MsgResponse(ISubclass::kClientFirst);   // only asked of the last
    two.MsgResponse(ISubclass::kPreviousFirst); // only asked of the first
    EXPECT_EQ(2, Send());
    EXPECT_EQ((Calls{"one", "two"}), g_Log);
    Detach(one);
    Detach(two);
}

TEST_F(Subclass, WhatTheClientsInTheMiddleAnswerDoesNotMatter) {
    for (int middle : {0, 1, 2}) {
        g_Log.clear();
        Client one("one", ISubclass::kClientAlone, 1), two("two", middle, 2),
            three("three", ISubclass::kClientFirst, 3);
        Attach(one);
        Attach(two);
        Attach(three);
        EXPECT_EQ(kPreviousAnswer, Send());
        EXPECT_EQ((Calls{"one", "two", "three", "previous"}), g_Log);
        Detach(two);
        Detach(one);
        Detach(three);
    }
    EXPECT_TRUE(IsOriginal());
}

TEST_F(Subclass, TheResponseMayBeSettledInsideTheCall) {
    Client client("client", ISubclass::kClientFirst, 5);
    client.m_Within = [&] { client.MsgResponse(ISubclass::kClientAlone); };
    Attach(client);
    EXPECT_EQ(5, Send());
    EXPECT_EQ((Calls{"client"}), g_Log);
    Detach(client);
}

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

TEST_F(Subclass, DetachingWhatIsNotAttachedDoesNothing) {
    Client one("one", ISubclass::kClientFirst), two("two", ISubclass::kClientFirst);
    Detach(one);
    EXPECT_TRUE(IsOriginal());
    Attach(one);
    Detach(two);
    Detach(one, kOther);
    EXPECT_EQ(1, Count(L"C" + Digits()));
    Send();
    EXPECT_EQ((Calls{"one", "previous"}), g_Log);
    Detach(one);
    Detach(one);
    EXPECT_TRUE(IsOriginal());
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

TEST_F(Subclass, TheOldProcedureCanBeCalledInsideOnly) {
    Client client("client", ISubclass::kClientAlone, 5);
    LRESULT old = 0;
    UINT current = 0;
    client.m_Within = [&] {
        current = MSubclass::CurrentMessage();
        old = MSubclass::CallOldWindowProc(m_Window, kMessage, 3, 4);
    };
    Attach(client);
    EXPECT_EQ(5, Send());
    EXPECT_EQ(kPreviousAnswer, old);
    EXPECT_EQ(kMessage, current);
    EXPECT_EQ((Calls{"client", "previous"}), g_Log);
    EXPECT_EQ(0u, MSubclass::CurrentMessage());
    EXPECT_EQ(0, MSubclass::CallOldWindowProc(m_Window, kMessage, 3, 4));
    EXPECT_EQ((Calls{"client", "previous"}), g_Log);
    Detach(client);
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
