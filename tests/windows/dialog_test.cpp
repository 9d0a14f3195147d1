// The file dialogs, driven as the system shows them.
#include "controls/Dialog.h"
#include "windows/FormTest.h"

#include <optional>

namespace {

constexpr std::u16string_view kLayout = u"form\n"
                                        u"f\t\tfrmFiles\tform\t\t\t4500\t3000\tFiles\t\t\n"
                                        u"f\tfrmFiles\tDialog\tMSComDlg.CommonDialog\t0\t0\t0\t0\t\t\t\n";

constexpr std::u16string_view kBeside = u"form\nf\t\tfrmBeside\tform\t\t\t1500\t1500\tBeside\t\t\n";

struct FilesForm {
    Form Window;
    ::Dialog Dialog;
    Form Beside;
    FilesForm() {
        Window.Bind(u"Dialog", Dialog).Create(kLayout);
        Beside.Create(kBeside);
        Beside.Show();
        Window.Show();
    }
};

// Its name box is a combo with this id, or an edit with the other.
constexpr int kNameCombo = 0x47C, kNameEdit = 0x480;

HWND NameBox(HWND dialog) {
    const HWND combo = GetDlgItem(dialog, kNameCombo);
    return combo ? combo : GetDlgItem(dialog, kNameEdit);
}

BOOL CALLBACK TakeFileDialog(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t name[16];
    GetClassNameW(window, name, 16);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window) || std::wstring(name) != L"#32770" ||
        !NameBox(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

class Files : public gui::FormTest<FilesForm> {
protected:
    void SetUp() override {
        gui::FormTest<FilesForm>::SetUp();
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        m_Folder = Units(folder) + (u"zc-dialog-" + text::Decimal(GetCurrentProcessId()));
        CreateDirectoryW(Wide(m_Folder), nullptr);
        for (const char16_t* name : {u"a.txt", u"b c.txt", u"\x0995.txt"}) {
            const std::u16string path = m_Folder + u"\\" + name;
            CloseHandle(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        }
        GetCurrentDirectoryW(MAX_PATH, m_Before);
        m_Ui.Run([this] {
            m_Shown->Dialog.InitDir = m_Folder;
            m_Shown->Dialog.CancelError = true;
            m_Shown->Dialog.Filter = u"Text files (*.txt)|*.txt";
        });
    }
    void TearDown() override {
        SetCurrentDirectoryW(m_Before);
        gui::FormTest<FilesForm>::TearDown();
    }

    // Begins to show the dialog; m_Ended will be the number of the failure, 0 for none.
    void Begin(bool save) {
        m_Ended.reset();
        m_Ui.Post([this, save] {
            try {
                save ? m_Shown->Dialog.ShowSave() : m_Shown->Dialog.ShowOpen();
                m_Ended = 0;
            } catch (const RuntimeFailure& failure) {
                m_Ended = failure.Number();
                MSG message; // a handler's failure has asked all loops to end
                PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
                EventFrame::Forget();
            }
        });
    }
    HWND WaitForDialog() {
        HWND dialog = nullptr;
        EXPECT_TRUE(gui::WaitUntil([&] {
            EnumWindows(TakeFileDialog, reinterpret_cast<LPARAM>(&dialog));
            return dialog != nullptr;
        }));
        EXPECT_FALSE(IsWindowEnabled(m_Shown->Window.Base.hWnd()));
        EXPECT_FALSE(IsWindowEnabled(m_Shown->Beside.Base.hWnd()));
        return dialog;
    }
    // Waits for the end of the call, and looks that both forms take input again.
    int End() {
        EXPECT_TRUE(Becomes([&] { return m_Ended.has_value(); }));
        EXPECT_TRUE(IsWindowEnabled(m_Shown->Window.Base.hWnd()));
        EXPECT_TRUE(IsWindowEnabled(m_Shown->Beside.Base.hWnd()));
        return m_Ended.value_or(-1);
    }
    static void PressIn(HWND dialog, int button) {
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    }
    // Shows the dialog, types and presses; the number of the failure, 0 for none.
    int Drive(bool save, const wchar_t* typed, int button) {
        Begin(save);
        const HWND dialog = WaitForDialog();
        m_Title = WindowText(dialog);
        if (typed) SendMessageW(NameBox(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed));
        PressIn(dialog, button);
        const int number = End();
        EXPECT_TRUE(gui::WaitUntil([&] { return GetForegroundWindow() == m_Shown->Window.Base.hWnd(); }));
        return number;
    }

    std::optional<int> m_Ended;
    std::u16string m_Folder, m_Title;
    wchar_t m_Before[MAX_PATH] = L"";
};

constexpr unsigned kOpenMany = 0x281A04;
constexpr unsigned kOpenOne = 2627588;
constexpr unsigned kSave = 2623494;

TEST_F(Files, ACancelRaisesItsNumberAndLeavesTheName) {
    m_Ui.Run([&] {
        m_Shown->Dialog.Flags = kOpenMany;
        m_Shown->Dialog.DialogTitle = u"Select Text File(s) to Convert...";
    });
    EXPECT_EQ(Drive(false, nullptr, IDCANCEL), 32755);
    EXPECT_EQ(m_Title, u"Select Text File(s) to Convert...");
    EXPECT_EQ(m_Shown->Dialog.FileName, u"");
    m_Ui.Run([&] {
        m_Shown->Dialog.CancelError = false;
        m_Shown->Dialog.FileName = u"kept.txt";
    });
    EXPECT_EQ(Drive(false, nullptr, IDCANCEL), 0);
    EXPECT_EQ(m_Shown->Dialog.FileName, u"kept.txt");
}

TEST_F(Files, OneFileIsAWholePath) {
    m_Ui.Run([&] { m_Shown->Dialog.Flags = kOpenMany; });
    EXPECT_EQ(Drive(false, L"a.txt", IDOK), 0);
    EXPECT_EQ(m_Shown->Dialog.FileName, m_Folder + u"\\a.txt");
    m_Ui.Run([&] {
        m_Shown->Dialog.Flags = kOpenOne;
        m_Shown->Dialog.FileName.clear();
    });
    EXPECT_EQ(Drive(false, L"b c.txt", IDOK), 0);
    EXPECT_EQ(m_Shown->Dialog.FileName, m_Folder + u"\\b c.txt");
}

TEST_F(Files, SeveralFilesAreFolderAndNames) {
    m_Ui.Run([&] { m_Shown->Dialog.Flags = kOpenMany; });
    EXPECT_EQ(Drive(false, L"\"a.txt\" \"b c.txt\" \"\x0995.txt\"", IDOK), 0);
    const auto parts = text::Split(m_Shown->Dialog.FileName, std::u16string_view(u"\0", 1));
    ASSERT_EQ(parts.size(), 4u);
    EXPECT_EQ(parts[0], m_Folder);
    EXPECT_EQ(parts[1], u"a.txt");
    EXPECT_EQ(parts[2], u"b c.txt");
    EXPECT_EQ(parts[3], u"\x0995.txt");
}

TEST_F(Files, ANameWithoutExtensionGetsTheDefaultOne) {
    m_Ui.Run([&] {
        m_Shown->Dialog.Flags = kSave;
        m_Shown->Dialog.DefaultExt = u".txt"; // the system wants it without the dot
    });
    EXPECT_EQ(Drive(true, L"new", IDOK), 0);
    EXPECT_EQ(m_Shown->Dialog.FileName, m_Folder + u"\\new.txt");
}

TEST_F(Files, TheFolderPickerMovesTheCurrentDirectory) {
    m_Ui.Run([&] {
        m_Shown->Dialog.DialogTitle = u"Select a directory";
        m_Shown->Dialog.FileName = u"Select a Directory";
        m_Shown->Dialog.Flags = 260;
        m_Shown->Dialog.Filter = u"Folders|*.~#!";
    });
    EXPECT_EQ(Drive(true, nullptr, IDOK), 0);
    wchar_t now[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(Units(now), m_Folder);
}

TEST_F(Files, AFailureOfAHandlerMeanwhileComesOutOfTheCall) {
    m_Ui.Run([&] {
        m_Shown->Dialog.Flags = kOpenOne;
        m_Shown->Beside.MouseDown = [](auto&&...) { throw RuntimeFailure(kOverflow, u"test"); };
    });
    Begin(false);
    WaitForDialog();
    m_Ui.Run([&] { SendMessageW(m_Shown->Beside.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, 0); });
    EXPECT_EQ(End(), kOverflow);
}

TEST_F(Files, AFormThatIsShownOrEnabledMeanwhileWaits) {
    std::unique_ptr<Form> late;
    m_Ui.Run([&] { m_Shown->Dialog.Flags = kOpenOne; });
    Begin(false);
    const HWND dialog = WaitForDialog();
    m_Ui.Run([&] {
        late = std::make_unique<Form>();
        late->Create(kBeside);
        late->Show();
        for (Form* form : {&m_Shown->Window, &m_Shown->Beside}) {
            form->Base.Enabled(false);
            form->Base.Enabled(true);
            EXPECT_FALSE(IsWindowEnabled(form->Base.hWnd()));
        }
        EXPECT_FALSE(IsWindowEnabled(late->Base.hWnd()));
    });
    PressIn(dialog, IDCANCEL);
    EXPECT_EQ(End(), 32755);
    EXPECT_TRUE(IsWindowEnabled(late->Base.hWnd()));
    m_Ui.Run([&] { late.reset(); });
}

TEST_F(Files, AFormThatIsDisabledMeanwhileStaysSo) {
    m_Ui.Run([&] { m_Shown->Dialog.Flags = kOpenOne; });
    for (Form* form : {&m_Shown->Window, &m_Shown->Beside}) {
        Begin(false);
        const HWND dialog = WaitForDialog();
        m_Ui.Run([&] { form->Base.Enabled(false); });
        PressIn(dialog, IDCANCEL);
        EXPECT_TRUE(Becomes([&] { return m_Ended.has_value(); }));
        EXPECT_FALSE(IsWindowEnabled(form->Base.hWnd()));
        m_Ui.Run([&] { form->Base.Enabled(true); });
        EXPECT_TRUE(IsWindowEnabled(form->Base.hWnd()));
    }
}

// The dialog belongs to the modal form; the forms behind that one stay disabled at its end.
TEST_F(Files, OverAModalFormOnlyThatOneComesBack) {
    constexpr std::u16string_view kAsk = u"form\n"
                                         u"f\t\tfrmAsk\tform\t\t\t3000\t1500\tAsk\t\t\n"
                                         u"f\tfrmAsk\tDialog\tMSComDlg.CommonDialog\t0\t0\t0\t0\t\t\t\n";
    std::unique_ptr<Form> ask;
    ::Dialog files;
    bool back = false;
    m_Ui.Post([&] {
        ask = std::make_unique<Form>();
        ask->Bind(u"Dialog", files).Create(kAsk);
        ask->ShowModal(&m_Shown->Window);
        back = true;
    });
    ASSERT_TRUE(Becomes([&] { return ask && IsWindowVisible(ask->Base.hWnd()); }));
    bool chosen = false;
    m_Ui.Post([&] {
        files.ShowOpen();
        chosen = true;
    });
    PressIn(WaitForDialog(), IDCANCEL);
    EXPECT_TRUE(Becomes([&] { return chosen; }));
    EXPECT_TRUE(IsWindowEnabled(ask->Base.hWnd()));
    EXPECT_FALSE(IsWindowEnabled(m_Shown->Window.Base.hWnd()));
    EXPECT_FALSE(IsWindowEnabled(m_Shown->Beside.Base.hWnd()));
    m_Ui.Run([&] { ask->Hide(); });
    EXPECT_TRUE(Becomes([&] { return back; }));
    EXPECT_TRUE(IsWindowEnabled(m_Shown->Window.Base.hWnd()));
    EXPECT_TRUE(IsWindowEnabled(m_Shown->Beside.Base.hWnd()));
    m_Ui.Run([&] { ask.reset(); });
}

TEST_F(Files, ItsFormMayGoMeanwhile) {
    m_Ui.Run([&] { m_Shown->Dialog.Flags = kOpenOne; });
    Begin(false);
    WaitForDialog();
    m_Ui.Run([&] { m_Shown->Window.Unload(); });
    EXPECT_TRUE(Becomes([&] { return m_Ended.has_value(); }));
    EXPECT_TRUE(IsWindowEnabled(m_Shown->Beside.Base.hWnd()));
}

} // namespace
