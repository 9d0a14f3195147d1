// Controls of the system that are destroyed by what their own procedure raises. The procedure
// goes on behind the handler, so its window must still be there, but for nobody else.
#include "base/DoEvents.h"
#include "controls/ComboBox.h"
#include "controls/FontCombo.h"
#include "controls/Frame.h"
#include "controls/MSubclass.h"
#include "controls/PasteBox.h"
#include "controls/TextBox.h"
#include "controls/TwoColumnList.h"
#include "controls/modXPCombo.h"
#include "windows/FormTest.h"

#include <commctrl.h>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmWithin\tform\t\t\t9000\t4500\tWithin\t\t\n"
    u"f\tfrmWithin\tBox\tframe\t150\t150\t8550\t4200\t\t\tBackColor=Card\n"
    u"f\tBox\tOther\ttext\t150\t150\t1500\t360\t\t1\tAccessibleName=Other\n"
    u"f\tBox\tText\ttext\t150\t600\t1500\t360\t\t2\tAccessibleName=Text\n"
    u"f\tBox\tSecret\ttext\t150\t1050\t1500\t360\t\t3\tAccessibleName=Secret; PasswordChar=*\n"
    u"f\tBox\tChoice\tcombo\t150\t1500\t1500\t360\t\t4\tAccessibleName=Choice\n"
    u"f\tBox\tFaces\tfontcombo\t150\t1950\t1500\t360\t\t5\tAccessibleName=Faces\n"
    u"f\tBox\tPaste\trichtext\t1800\t150\t3000\t1500\t\t6\tAccessibleName=Paste\n"
    u"f\tBox\tTable\tlistview\t4950\t150\t3000\t1500\t\t7\tColumns=One|Two; AccessibleName=Table\n";

struct WithinForm {
    Form Window;
    Frame Box;
    TextBox Other;
    std::unique_ptr<TextBox> Text = std::make_unique<TextBox>(), Secret = std::make_unique<TextBox>();
    std::unique_ptr<ComboBox> Choice = std::make_unique<ComboBox>();
    std::unique_ptr<FontCombo> Faces = std::make_unique<FontCombo>();
    std::unique_ptr<PasteBox> Paste = std::make_unique<PasteBox>();
    std::unique_ptr<TwoColumnList> Table = std::make_unique<TwoColumnList>();
    cXPCombo Skin; // of the combo
    Form Owner;    // owns the form's window

    WithinForm() {
        Window.Bind(u"Box", Box).Bind(u"Other", Other).Bind(u"Text", *Text).Bind(u"Secret", *Secret);
        Window.Bind(u"Choice", *Choice).Bind(u"Faces", *Faces).Bind(u"Paste", *Paste).Bind(u"Table", *Table);
        Window.Create(kLayout);
        Owner.Create(u"form\nf\t\tfrmOwner\tform\t\t\t9000\t4500\tOwner\t\t\n");
        SetWindowLongPtrW(Window.Base.hWnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(Owner.Base.hWnd()));
        for (const auto* text : {u"one", u"two", u"three"}) {
            Choice->AddItem(text);
            Faces->AddItem(text, UiFont());
            Table->AddItem(text, u"x");
        }
        modXPCombo::ApplySkin(Skin, Choice->Base);
        Window.Show();
    }
};

// Acts on what one window tells its parent: so do forms that watch their own messages.
class Listener final : public ISubclass {
public:
    Listener(HWND parent, HWND sender, UINT message, UINT code, std::function<void()> act)
        : m_Parent(parent), m_Sender(sender), m_Message(message), m_Code(code), m_Act(std::move(act)) {
        MSubclass::AttachMessage(*this, m_Parent, m_Message);
    }
    ~Listener() { MSubclass::DetachMessage(*this, m_Parent, m_Message); }
    int MsgResponse() override { return kClientFirst; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND, UINT, WPARAM wParam, LPARAM lParam) override {
        const auto* told = reinterpret_cast<const NMHDR*>(lParam);
        const bool command = m_Message == WM_COMMAND;
        const HWND sender = command ? reinterpret_cast<HWND>(lParam) : told->hwndFrom;
        const UINT code = command ? HIWORD(wParam) : told->code;
        if (sender == m_Sender && code == m_Code) m_Act();
        return 0;
    }

private:
    HWND m_Parent, m_Sender;
    UINT m_Message, m_Code;
    std::function<void()> m_Act;
};

// A control of the form that may go before it.
struct Kind {
    const char* Name;
    Control* (*Ask)(WithinForm&); // null once it has gone
    void (*Drop)(WithinForm&);
};
template <auto Held>
constexpr Kind KindOf(const char* name) {
    return {name, [](WithinForm& form) -> Control* { return form.*Held ? &(form.*Held)->Base : nullptr; },
            [](WithinForm& form) { (form.*Held).reset(); }};
}
constexpr Kind kText = KindOf<&WithinForm::Text>("text box"),
               kSecret = KindOf<&WithinForm::Secret>("password"),
               kChoice = KindOf<&WithinForm::Choice>("combo"),
               kFaces = KindOf<&WithinForm::Faces>("font combo"),
               kPaste = KindOf<&WithinForm::Paste>("rich box"), kTable = KindOf<&WithinForm::Table>("table");

class DestroyedWithin : public gui::FormTest<WithinForm> {
protected:
    // What the handler does. Each way is tried with each.
    struct End {
        const char* Name;
        std::function<void(const Kind&)> Do;
    };
    const End m_Ends[4] = {
        {"the control", [this](const Kind& kind) { kind.Drop(*m_Shown); }},
        {"its form", [this](const Kind&) { m_Shown.reset(); }},
        {"its form's windows", [this](const Kind&) { m_Shown->Window.Unload(); }},
        {"its form's owner", [this](const Kind&) { m_Shown->Owner.Unload(); }},
    };
    // How the event comes about: Message with Code is what the control tells its parent; a text
    // box has its Change.
    struct Way {
        const char* Name;
        std::function<void(HWND)> Cause;
        UINT Message = 0, Code = 0;
    };

    void Try(const Kind& kind, const std::vector<Way>& ways) {
        for (const Way& way : ways) {
            for (const End& end : m_Ends) {
                SCOPED_TRACE(std::string(kind.Name) + ", " + way.Name + ", ends " + end.Name);
                Try(kind, way, end);
            }
        }
    }
    void Try(const Kind& kind, const Way& way, const End& end) {
        gui::MoveTo({1, 1});
        m_Ui.Run([&] {
            m_Shown.reset();
            m_Shown = std::make_unique<WithinForm>();
        });
        ASSERT_TRUE(gui::Activate(m_Shown->Window.Base.hWnd()));
        Control& control = *kind.Ask(*m_Shown);
        const HWND window = control.hWnd(), form = m_Shown->Window.Base.hWnd();
        m_Ui.Run([&] { control.SetFocus(); });
        ASSERT_TRUE(FocusComesTo(control));
        if (control.As<TextBox>() || control.As<PasteBox>()) m_Ui.Run([&] { Prepare(window); });

        int told = 0;
        std::string wrong;
        const auto act = [&] {
            if (++told > 1) return;
            end.Do(kind);
            DoEvents(); // the procedure has not come to its end, whatever runs meanwhile
            if (!IsWindow(window)) wrong += "gone under its procedure, ";
            if (IsWindowVisible(window)) wrong += "visible, ";
            if (IsChild(form, window)) wrong += "on the form, ";
            if (GetFocus() == window) wrong += "focused, ";
            if (Control::FromWindow(window)) wrong += "a control, ";
            if (m_Shown && kind.Ask(*m_Shown) && kind.Ask(*m_Shown)->hWnd()) wrong += "the control's, ";
            PostMessageW(window, WM_CHAR, 'y', 1); // tells nobody any more
        };
        std::unique_ptr<Listener> listener;
        m_Ui.Run([&] {
            if (TextBox* text = control.As<TextBox>())
                text->Change = act;
            else
                listener =
                    std::make_unique<Listener>(m_Shown->Box.Base.hWnd(), window, way.Message, way.Code, act);
        });
        way.Cause(window);
        EXPECT_TRUE(Becomes([&] { return told > 0 && !IsWindow(window); }));
        m_Ui.Settle();
        EXPECT_EQ(told, 1);
        EXPECT_EQ(wrong, "");
        EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
        m_Ui.Run([&] { listener.reset(); });
    }
    // A text to undo, which is selected, and another one on the clipboard.
    void Prepare(HWND box) {
        m_Shown->Other.Text(u"copied");
        SendMessageW(m_Shown->Other.Base.hWnd(), EM_SETSEL, 0, -1);
        SendMessageW(m_Shown->Other.Base.hWnd(), WM_COPY, 0, 0);
        SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"typed"));
        SendMessageW(box, EM_SETSEL, 0, -1);
    }

    std::function<void(HWND)> Sent(UINT message, WPARAM wParam = 0, const wchar_t* text = nullptr) {
        return [=, this](HWND window) {
            m_Ui.Run([=] { SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(text)); });
        };
    }
    static std::function<void(HWND)> Typed(WORD key) {
        return [=](HWND) { gui::Type(key); };
    }
    static void TypeUndo(HWND) {
        gui::Key(VK_CONTROL, false);
        gui::Type('Z');
        gui::Key(VK_CONTROL, true);
    }
    // The ways in which a text changes.
    std::vector<Way> Changes(UINT code) {
        std::vector<Way> ways{{"typed", Typed('X')},
                              {"erased", Typed(VK_BACK)},
                              {"undone by keys", TypeUndo},
                              {"undone", Sent(EM_UNDO)},
                              {"undone as a menu does", Sent(WM_UNDO)},
                              {"pasted", Sent(WM_PASTE)},
                              {"replaced", Sent(EM_REPLACESEL, TRUE, L"new")},
                              {"set", Sent(WM_SETTEXT, 0, L"new")},
                              {"cleared", Sent(WM_CLEAR)}};
        for (Way& way : ways) {
            way.Message = WM_COMMAND;
            way.Code = code;
        }
        return ways;
    }
};

TEST_F(DestroyedWithin, ATextBox) {
    Try(kText, Changes(0));
    Try(kText, {{"cut", Sent(WM_CUT)}});
}

TEST_F(DestroyedWithin, APasswordBox) {
    Try(kSecret, Changes(0));
}

TEST_F(DestroyedWithin, ARichBox) {
    Try(kPaste, Changes(EN_CHANGE));
}

TEST_F(DestroyedWithin, ACombo) {
    Try(kChoice, {{"chosen", Typed(VK_DOWN), WM_COMMAND, CBN_SELCHANGE},
                  {"dropped", Typed(VK_F4), WM_COMMAND, CBN_DROPDOWN}});
    Try(kFaces, {{"typed", Typed('X'), WM_COMMAND, CBN_EDITCHANGE},
                 {"chosen", Typed(VK_DOWN), WM_COMMAND, CBN_SELCHANGE},
                 {"dropped", Sent(CB_SHOWDROPDOWN, TRUE), WM_COMMAND, CBN_DROPDOWN},
                 {"dropped by its text", Typed(VK_F4), WM_COMMAND, CBN_DROPDOWN}});
}

TEST_F(DestroyedWithin, AComboWhoseListIsOpen) {
    const auto open = [this](std::function<void(HWND)> then) {
        return [=, this](HWND window) {
            m_Ui.Run([=] { SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0); });
            then(window);
        };
    };
    const auto clickRow = [](HWND window) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(window, &parts);
        gui::Click(gui::ToScreen(parts.hwndList, 20, 5));
    };
    const auto clickBeside = [this](HWND) {
        gui::Click(gui::ToScreen(m_Shown->Box.Base.hWnd(), Px(400), Px(270)));
    };
    const auto pressEnter = [](HWND) {
        gui::Type(VK_DOWN);
        gui::Type(VK_RETURN);
    };
    for (const Kind& kind : {kChoice, kFaces}) {
        Try(kind, {{"closed by F4", open(Typed(VK_F4)), WM_COMMAND, CBN_CLOSEUP},
                   {"given up by Esc", open(Typed(VK_ESCAPE)), WM_COMMAND, CBN_CLOSEUP},
                   {"chosen by Enter", open(pressEnter), WM_COMMAND, CBN_SELENDOK},
                   {"closed by Enter", open(pressEnter), WM_COMMAND, CBN_CLOSEUP},
                   {"clicked", open(clickRow), WM_COMMAND, CBN_SELCHANGE},
                   {"closed by a click", open(clickRow), WM_COMMAND, CBN_CLOSEUP},
                   {"clicked beside", open(clickBeside), WM_COMMAND, CBN_CLOSEUP}});
    }
}

TEST_F(DestroyedWithin, ATable) {
    const auto click = [this](HWND window) { gui::Click(gui::ToScreen(window, Px(20), Px(34))); };
    Try(kTable, {{"chosen", Typed(VK_DOWN), WM_NOTIFY, LVN_ITEMCHANGED},
                 {"pressed", click, WM_NOTIFY, LVN_ITEMCHANGED},
                 {"clicked", click, WM_NOTIFY, static_cast<UINT>(NM_CLICK)}});
}

// The first handler changes the text again, and the second one ends the box.
TEST_F(DestroyedWithin, ABoxWhoseProcedureRunsTwice) {
    bool second = false, whileFirstRan = false;
    const HWND window = m_Shown->Text->Base.hWnd();
    m_Ui.Run([&] {
        m_Shown->Text->Change = [&] {
            if (std::exchange(second, true)) return m_Shown->Text.reset();
            SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"second"));
            DoEvents();
            whileFirstRan = IsWindow(window) != 0;
        };
        SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"first"));
    });
    EXPECT_TRUE(whileFirstRan);
    EXPECT_TRUE(Becomes([&] { return !IsWindow(window); }));
}

TEST_F(DestroyedWithin, ABoxThatCanPassTheFocusToNoOther) {
    const HWND window = m_Shown->Text->Base.hWnd();
    HWND focus = window;
    m_Ui.Run([&] {
        for (Control* control : m_Shown->Window.Controls()) {
            if (control != &m_Shown->Text->Base && control != &m_Shown->Box.Base) control->Enabled(false);
        }
        m_Shown->Text->Base.SetFocus();
        m_Shown->Text->Change = [&] {
            m_Shown->Text.reset();
            focus = GetFocus();
        };
    });
    ASSERT_TRUE(FocusComesTo(m_Shown->Text->Base));
    gui::Type('X');
    EXPECT_TRUE(Becomes([&] { return !IsWindow(window); }));
    EXPECT_NE(focus, window);
    EXPECT_TRUE(On([&] { return m_Shown->Window.Base.HasFocus(); }));
}

} // namespace
