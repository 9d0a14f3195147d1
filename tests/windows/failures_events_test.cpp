// Every event of every control and helper, by a handler that throws: the failure is kept and
// ends the loops. The house rules look that no event is missing here.
#include "controls/ComboField.h"
#include "controls/MSubclass.h"
#include "controls/cSizeMoveHelper.h"
#include "windows/EveryForm.h"

#include <ole2.h>
#include <shlobj.h>

namespace {

constexpr int kThrown = 4711;
constexpr auto Throw = [](auto&&...) { throw RuntimeFailure(kThrown, u"test"); };

struct FailingClient final : ISubclass {
    int MsgResponse() override { return kClientFirst; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND, UINT, WPARAM, LPARAM) override { throw RuntimeFailure(kThrown, u"test"); }
};

struct FailingForm : gui::EveryForm {
    cSizeMoveHelper Mover;
    FailingClient Client;
    FailingForm() { Mover.Attach(Window.Base.hWnd()); }
    HWND hWnd() const { return Window.Base.hWnd(); }
};

using Step = std::function<void(FailingForm&)>;
struct Row {
    const char* Event;
    Step Wire, Cause; // on the thread of the windows; what is posted is handled behind Cause
};

LRESULT Send(const Control& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(control.hWnd(), message, wParam, lParam);
}

constexpr LPARAM kAt = MAKELPARAM(5, 5); // in every control, on the first row of a list

void PressAt(const Control& control, UINT down, UINT up) {
    Send(control, down, 0, kAt);
    Send(control, up, 0, kAt);
}

void TypeInto(const Control& control, WPARAM key) {
    Send(control, WM_KEYDOWN, key, 1);
    Send(control, WM_KEYUP, key, 1);
}

// The window inside a box.
HWND PartOf(const Control& combo, bool list) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(combo.hWnd(), &parts);
    return list ? parts.hwndList : parts.hwndItem;
}

void FilterKey(const Control& focused, UINT message, WPARAM key) {
    MSG typed{focused.hWnd(), message, key, 1, 0, {}};
    Forms::Filter(typed);
}

// One file, as a drag brings it; the clipboard holds the files.
void DropFile(const Control& list) {
    constexpr wchar_t kNames[] = L"C:\\a.txt\0";
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + sizeof kNames);
    auto* files = static_cast<DROPFILES*>(GlobalLock(block));
    files->pFiles = sizeof *files;
    files->fWide = TRUE;
    memcpy(files + 1, kNames, sizeof kNames);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(list.hWnd()));
    EmptyClipboard();
    SetClipboardData(CF_HDROP, block);
    CloseClipboard();
    IDataObject* data = nullptr;
    ASSERT_EQ(OleGetClipboard(&data), S_OK);
    auto* target = static_cast<IDropTarget*>(GetPropW(list.hWnd(), L"OleDropTargetInterface"));
    ASSERT_NE(target, nullptr);
    DWORD effect = DROPEFFECT_COPY;
    target->DragEnter(data, MK_LBUTTON, {}, &effect);
    target->Drop(data, 0, {}, &effect);
    data->Release();
}

const Row kRows[] = {
    {"CheckBox.MouseMove", [](auto& f) { f.Tick.MouseMove = Throw; },
     [](auto& f) { Send(f.Tick.Base, WM_MOUSEMOVE, 0, kAt); }},
    {"CheckBox.Click", [](auto& f) { f.Tick.Click = Throw; },
     [](auto& f) { TypeInto(f.Tick.Base, VK_SPACE); }},
    {"CheckList.Click", [](auto& f) { f.Ticks.Click = Throw; },
     [](auto& f) { PressAt(f.Ticks.Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"ComboBox.Click", [](auto& f) { f.Choice->Click = Throw; },
     [](auto& f) {
         f.Choice->Base.SetFocus();
         TypeInto(f.Choice->Base, VK_DOWN);
     }},
    {"FontCombo.Click", [](auto& f) { f.Faces.Click = Throw; },
     [](auto& f) {
         ComboField::Toggle(f.Faces.Base);
         gui::DoDefault(PartOf(f.Faces.Base, true), 2);
     }},
    {"FontCombo.KeyDown", [](auto& f) { f.Faces.KeyDown = Throw; },
     [](auto& f) { SendMessageW(PartOf(f.Faces.Base, false), WM_KEYDOWN, 'A', 1); }},
    {"FontCombo.KeyDown", [](auto& f) { f.Faces.KeyDown = Throw; },
     [](auto& f) { SendMessageW(PartOf(f.Faces.Base, false), WM_SYSKEYDOWN, 'A', 1 | 1 << 29); }},
    {"Form.Resize", [](auto& f) { f.Window.Resize = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_SIZE, SIZE_RESTORED); }},
    {"Form.MouseDown", [](auto& f) { f.Window.MouseDown = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_LBUTTONDOWN, MK_LBUTTON, kAt); }},
    {"Form.Closing", [](auto& f) { f.Window.Closing = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_CLOSE); }},
    {"Form.DpiChanged", [](auto& f) { f.Window.DpiChanged = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_DPICHANGED, MAKEWPARAM(120, 120)); }},
    {"Form.PaintGround", [](auto& f) { f.Window.PaintGround = Throw; },
     [](auto& f) {
         f.Window.RefreshGround();
         UpdateWindow(f.hWnd());
     }},
    {"Label.MouseDown", [](auto& f) { f.Title->MouseDown = Throw; },
     [](auto& f) { Send(f.Title->Base, WM_LBUTTONDOWN, MK_LBUTTON, kAt); }},
    {"McListBox.MouseEnter", [](auto& f) { f.Rows.MouseEnter = Throw; },
     [](auto& f) { Send(f.Rows.Base, WM_MOUSEMOVE, 0, kAt); }},
    {"McListBox.MouseLeave", [](auto& f) { f.Rows.MouseLeave = Throw; },
     [](auto& f) {
         Send(f.Rows.Base, WM_MOUSEMOVE, 0, kAt);
         Send(f.Rows.Base, WM_MOUSELEAVE);
     }},
    {"McListBox.Click", [](auto& f) { f.Rows.Click = Throw; },
     [](auto& f) { PressAt(f.Rows.Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"McListBox.SelChange", [](auto& f) { f.Rows.SelChange = Throw; },
     [](auto& f) { TypeInto(f.Rows.Base, VK_DOWN); }},
    {"McListBox.DbClick", [](auto& f) { f.Rows.DbClick = Throw; },
     [](auto& f) { PressAt(f.Rows.Base, WM_LBUTTONDBLCLK, WM_LBUTTONUP); }},
    {"McListBox.KeyDown", [](auto& f) { f.Rows.KeyDown = Throw; },
     [](auto& f) { TypeInto(f.Rows.Base, VK_DELETE); }},
    {"McListBox.KeyUp", [](auto& f) { f.Rows.KeyUp = Throw; },
     [](auto& f) { TypeInto(f.Rows.Base, VK_DELETE); }},
    {"McListBox.KeyPress", [](auto& f) { f.Rows.KeyPress = Throw; },
     [](auto& f) { Send(f.Rows.Base, WM_CHAR, 'q', 1); }},
    {"McListBox.MouseUp", [](auto& f) { f.Rows.MouseUp = Throw; },
     [](auto& f) { PressAt(f.Rows.Base, WM_RBUTTONDOWN, WM_RBUTTONUP); }},
    {"McListBox.MouseMove", [](auto& f) { f.Rows.MouseMove = Throw; },
     [](auto& f) { Send(f.Rows.Base, WM_MOUSEMOVE, 0, kAt); }},
    {"McListBox.MouseDown", [](auto& f) { f.Rows.MouseDown = Throw; },
     [](auto& f) { PressAt(f.Rows.Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"McListBox.OLEDragDrop", [](auto& f) { f.Rows.OLEDragDrop = Throw; },
     [](auto& f) { DropFile(f.Rows.Base); }},
    {"OptionButtonC.MouseMove", [](auto& f) { f.Task[0].MouseMove = Throw; },
     [](auto& f) { Send(f.Task[0].Base, WM_MOUSEMOVE, 0, kAt); }},
    {"OptionButtonC.Click", [](auto& f) { f.Task[0].Click = Throw; },
     [](auto& f) { PressAt(f.Task[0].Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"PictureBox.Paint", [](auto& f) { f.Image->Paint = Throw; }, [](auto& f) { f.Image->Base.Refresh(); }},
    {"PictureBox.MouseDown", [](auto& f) { f.Image->MouseDown = Throw; },
     [](auto& f) { Send(f.Image->Base, WM_RBUTTONDOWN, MK_RBUTTON, kAt); }},
    {"TavrelButton.Click", [](auto& f) { f.Go->Click = Throw; },
     [](auto& f) { PressAt(f.Go->Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"TavrelButton.KeyDown", [](auto& f) { f.Go->KeyDown = Throw; },
     [](auto& f) { TypeInto(f.Go->Base, VK_DELETE); }},
    {"TavrelButton.KeyPress", [](auto& f) { f.Go->KeyPress = Throw; },
     [](auto& f) { Send(f.Go->Base, WM_CHAR, 'q', 1); }},
    {"TavrelButton.KeyUp", [](auto& f) { f.Go->KeyUp = Throw; },
     [](auto& f) { TypeInto(f.Go->Base, VK_SPACE); }},
    {"TavrelButton.MouseDown", [](auto& f) { f.Go->MouseDown = Throw; },
     [](auto& f) { PressAt(f.Go->Base, WM_RBUTTONDOWN, WM_RBUTTONUP); }},
    {"TavrelButton.MouseMove", [](auto& f) { f.Go->MouseMove = Throw; },
     [](auto& f) { Send(f.Go->Base, WM_MOUSEMOVE, 0, kAt); }},
    {"TavrelButton.MouseUp", [](auto& f) { f.Go->MouseUp = Throw; },
     [](auto& f) { PressAt(f.Go->Base, WM_LBUTTONDOWN, WM_LBUTTONUP); }},
    {"TavrelButton.MouseIn", [](auto& f) { f.Go->MouseIn = Throw; },
     [](auto& f) { Send(f.Go->Base, WM_MOUSEMOVE, 0, kAt); }},
    {"TavrelButton.MouseOut", [](auto& f) { f.Go->MouseOut = Throw; },
     [](auto& f) { Send(f.Go->Base, WM_MOUSEMOVE, 0, kAt); }}, // the mouse is elsewhere
    {"TextBox.Change", [](auto& f) { f.Text->Change = Throw; }, [](auto& f) { f.Text->Text(u"x"); }},
    {"Timer.Tick", [](auto& f) { f.Clock->Tick = Throw; }, [](auto& f) { f.Clock->Enabled(true); }},
    {"TwoColumnList.MouseDown", [](auto& f) { f.Table.MouseDown = Throw; },
     [](auto& f) { Send(f.Table.Base, WM_RBUTTONDOWN, MK_RBUTTON, kAt); }},
    {"TwoColumnList.Click", [](auto& f) { f.Table.Click = Throw; },
     [](auto& f) {
         NMITEMACTIVATE told{};
         told.hdr = {f.Table.Base.hWnd(), 0, static_cast<UINT>(NM_CLICK)};
         Send(f.Window.Base, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told));
     }},
    {"TwoColumnList.SelChange", [](auto& f) { f.Table.SelChange = Throw; },
     [](auto& f) { f.Table.ListIndex(1); }},
    {"cSizeMoveHelper.EnterSizeMove", [](auto& f) { f.Mover.EnterSizeMove = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_ENTERSIZEMOVE); }},
    {"cSizeMoveHelper.ExitSizeMove", [](auto& f) { f.Mover.ExitSizeMove = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_EXITSIZEMOVE); }},
    {"cSizeMoveHelper.Activate", [](auto& f) { f.Mover.Activate = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_ACTIVATE, WA_CLICKACTIVE); }},
    {"cSizeMoveHelper.Deactivate", [](auto& f) { f.Mover.Deactivate = Throw; },
     [](auto& f) { Send(f.Window.Base, WM_ACTIVATE, WA_INACTIVE); }},
    {"cSizeMoveHelper.Moving", [](auto& f) { f.Mover.Moving = Throw; },
     [](auto& f) {
         RECT place{0, 0, 400, 300};
         Send(f.Window.Base, WM_MOVING, 0, reinterpret_cast<LPARAM>(&place));
     }},
    {"cSizeMoveHelper.Sizing", [](auto& f) { f.Mover.Sizing = Throw; },
     [](auto& f) {
         RECT place{0, 0, 400, 300};
         Send(f.Window.Base, WM_SIZING, 0, reinterpret_cast<LPARAM>(&place));
     }},
    // Other ways into the program.
    {"a client of a message", [](auto& f) { MSubclass::AttachMessage(f.Client, f.hWnd(), WM_USER); },
     [](auto& f) { Send(f.Window.Base, WM_USER); }},
    {"the form's Enter",
     [](auto& f) {
         f.Window.DefaultButton = &f.Go->Base;
         f.Go->Click = Throw;
     },
     [](auto& f) { FilterKey(f.Text->Base, WM_KEYDOWN, VK_RETURN); }},
    {"the form's Esc",
     [](auto& f) {
         f.Window.CancelButton = &f.Go->Base;
         f.Go->Click = Throw;
     },
     [](auto& f) { FilterKey(f.Text->Base, WM_KEYDOWN, VK_ESCAPE); }},
    {"an access key",
     [](auto& f) {
         f.Go->Caption(u"&Go");
         f.Go->Click = Throw;
     },
     [](auto& f) { FilterKey(f.Text->Base, WM_SYSCHAR, 'g'); }},
    {"an arrow in a group", [](auto& f) { f.Task[1].Click = Throw; },
     [](auto& f) {
         f.Task[0].Base.SetFocus();
         Send(f.Task[0].Base, WM_KEYDOWN, VK_DOWN, 1);
     }},
    {"a screen reader's press", [](auto& f) { f.Go->Click = Throw; },
     [](auto& f) { gui::DoDefault(f.Go->Base.hWnd()); }},
    {"a screen reader's tick", [](auto& f) { f.Ticks.Click = Throw; },
     [](auto& f) { gui::DoDefault(f.Ticks.Base.hWnd(), 1); }},
    {"a screen reader's selection", [](auto& f) { f.Rows.SelChange = Throw; },
     [](auto& f) { gui::Select(f.Rows.Base.hWnd(), SELFLAG_TAKESELECTION, 1); }},
};

class FailingEvents : public gui::FormTest<FailingForm> {};

// Until something has failed; a cause that brings nothing about ends the wait.
void Pump() {
    const ULONGLONG end = GetTickCount64() + 5'000;
    MSG message;
    while (!EventFrame::Ending() && GetTickCount64() < end) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        else
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

TEST_F(FailingEvents, AreKeptAndEndTheLoops) {
    gui::MoveTo({1, 1});
    for (const Row& row : kRows) {
        m_Ui.Run([&] {
            m_Shown = std::make_unique<FailingForm>();
            row.Wire(*m_Shown);
            EXPECT_FALSE(EventFrame::Ending()) << row.Event;
            row.Cause(*m_Shown);
            Pump();
            int number = 0;
            try {
                EventFrame::Rethrow();
            } catch (const RuntimeFailure& failure) {
                number = failure.Number();
            }
            EXPECT_EQ(number, kThrown) << row.Event;
            m_Shown.reset(); // as at the end of the program
            MSG message;
            EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << row.Event;
            EventFrame::Forget();
        });
    }
}

} // namespace
