// Attaching and detaching, its failures and its bookkeeping; who is called when.
#include "base/RuntimeFailure.h"
#include "windows/SubclassTest.h"

namespace {

using namespace subclass;

class Subclass : public SubclassTest {};

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

// Names of properties go into a table that all programs of the session share.
class FullTableOfNames {
public:
    ~FullTableOfNames() {
        for (const ATOM name : m_Names) GlobalDeleteAtom(name);
    }
    void Fill() {
        while (const ATOM name = GlobalAddAtomW((L"Zorvak test " + std::to_wstring(m_Names.size())).c_str()))
            m_Names.push_back(name);
    }
    void FreeOne() {
        GlobalDeleteAtom(m_Names.back());
        m_Names.pop_back();
    }

private:
    std::vector<ATOM> m_Names;
};

TEST_F(Subclass, WithoutRoomForItsNamesNothingIsChanged) {
    Client client("client", ISubclass::kClientAlone);
    FullTableOfNames full;
    full.Fill();
    // The attachment takes four names, and fails at each of them.
    for (int room = 0; room < 4; ++room) {
        ExpectFailure([&] { Attach(client); }, 13081, u"Can't subclass window");
        EXPECT_TRUE(IsOriginal()) << room;
        EXPECT_EQ(0, Properties(m_Window)) << room;
        EXPECT_EQ(kPreviousAnswer, Send()) << room;
        full.FreeOne();
    }
    Attach(client);
    EXPECT_EQ(0, Send());
    Detach(client);
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

} // namespace
