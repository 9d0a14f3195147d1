// One IAccessible for all controls: it asks the control's table, and the kit for the rest.
//
// Tested by tests/windows/every_control_test.cpp and spoken_rows_test.cpp.
#include "controls/Accessible.h"

#include "controls/Caption.h"
#include "controls/ComObject.h"
#include "controls/Control.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"

#include <vector>

namespace {

constexpr AccessibleTable kPlain{};
constexpr ControlKind kPart{};

BSTR Text(const std::u16string& text) {
    return SysAllocStringLen(Wide(text), static_cast<UINT>(text.size()));
}

void Number(VARIANT* out, LONG value) {
    out->vt = VT_I4;
    out->lVal = value;
}

} // namespace

class ControlAccessible final : public ComObject<IAccessible, IID_IDispatch, IID_IAccessible> {
public:
    explicit ControlAccessible(Control& control) : m_Control(&control) {}
    // Of a further window of the control.
    ControlAccessible(Control& control, HWND part, const AccessibleTable& table, void* self)
        : m_Control(&control), m_Part(part), m_PartTable(&table), m_PartSelf(self) {}
    void Disconnect() { m_Control = nullptr; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** out) override {
        *out = nullptr;
        return Asked([&](Control&, const AccessibleTable&) {
            return AccessibleObjectFromWindow(Window(), static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                              reinterpret_cast<void**>(out));
        });
    }

    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* out) override {
        *out = 0;
        return Asked([&](Control& control, const AccessibleTable& table) {
            *out = Kind().Container ? static_cast<LONG>(Inside(control).size()) : Rows(table);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT which, IDispatch** out) override {
        *out = nullptr;
        return Asked([&](Control& control, const AccessibleTable&) -> HRESULT {
            if (which.vt != VT_I4) return E_INVALIDARG;
            const auto inside = Inside(control);
            if (which.lVal < 1 || which.lVal > static_cast<LONG>(inside.size()))
                return S_FALSE; // rows have no object of their own
            return AccessibleObjectFromWindow(inside[static_cast<std::size_t>(which.lVal - 1)]->hWnd(),
                                              static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                              reinterpret_cast<void**>(out));
        });
    }

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT which, BSTR* out) override {
        *out = nullptr;
        return AskedAbout(which, [&](Control& control, const AccessibleTable& table, int child) -> HRESULT {
            if (child > 0 && !table.Name) return S_FALSE;
            const std::u16string name = child > 0 ? table.Name(Self(), child) : control.SpokenName();
            if (name.empty()) return S_FALSE;
            *out = Text(name);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT which, BSTR* out) override {
        *out = nullptr;
        return AskedAbout(which, [&](Control&, const AccessibleTable& table, int child) -> HRESULT {
            if (!table.Value) return S_FALSE;
            *out = Text(table.Value(Self(), child));
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR* out) override {
        *out = nullptr;
        return S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT which, VARIANT* out) override {
        out->vt = VT_EMPTY;
        return AskedAbout(which, [&](Control&, const AccessibleTable& table, int child) {
            Number(out, child > 0 ? table.ChildRole : table.Role);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accState(VARIANT which, VARIANT* out) override {
        out->vt = VT_EMPTY;
        return AskedAbout(which, [&](Control& control, const AccessibleTable& table, int child) {
            LONG state = table.State ? table.State(Self(), child) : 0;
            const bool enabled = control.EnabledInAll() && !control.FormDisabled();
            if (!enabled) state |= STATE_SYSTEM_UNAVAILABLE;
            if (table.Ornament || !IsWindowVisible(Window()) || control.Covered())
                state |= STATE_SYSTEM_INVISIBLE;
            if (child == 0 && Kind().Focusable) {
                if (enabled) state |= STATE_SYSTEM_FOCUSABLE;
                if (control.HasFocus()) state |= STATE_SYSTEM_FOCUSED;
            }
            Number(out, state);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* out) override {
        *out = nullptr;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* out, VARIANT, LONG*) override {
        *out = nullptr;
        return S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT which, BSTR* out) override {
        *out = nullptr;
        return AskedAbout(which, [&](Control& control, const AccessibleTable&, int child) -> HRESULT {
            const char16_t key = AccessKeyOf(control.Caption());
            if (child > 0 || !key || !Kind().Press) return S_FALSE;
            *out = Text(u"Alt+" + std::u16string(1, key));
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* out) override {
        out->vt = VT_EMPTY;
        return Asked([&](Control& control, const AccessibleTable& table) -> HRESULT {
            const int child = table.FocusedChild ? table.FocusedChild(Self()) : CHILDID_SELF;
            // A part has the focus by its rows only.
            if (!control.HasFocus() || Kind().Container || (m_Part && child < 1)) return S_FALSE;
            Number(out, child);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* out) override {
        out->vt = VT_EMPTY;
        return Asked([&](Control&, const AccessibleTable& table) -> HRESULT {
            const int child = table.SelectedChild ? table.SelectedChild(Self()) : 0;
            if (child < 1) return S_FALSE;
            Number(out, child);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT which, BSTR* out) override {
        *out = nullptr;
        return AskedAbout(which, [&](Control&, const AccessibleTable& table, int child) -> HRESULT {
            if (table.DefaultAction)
                *out = Text(table.DefaultAction(Self(), child));
            else if (child == 0 && Kind().Press)
                *out = Text(u"Press");
            return *out ? S_OK : S_FALSE;
        });
    }

    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT which) override {
        return AskedAbout(which, [&](Control& control, const AccessibleTable& table, int child) -> HRESULT {
            if ((flags & SELFLAG_TAKESELECTION) && child > 0 && table.SelectChild) {
                if (!control.Usable()) return S_FALSE;
                if (!PostMessageW(Window(), kSelectChild, static_cast<WPARAM>(child), 0)) return E_FAIL;
            } else if (!(flags & SELFLAG_TAKEFOCUS)) {
                return E_INVALIDARG;
            }
            if ((flags & SELFLAG_TAKEFOCUS) && control.Usable()) control.SetFocus();
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT which) override {
        *left = *top = *width = *height = 0;
        return AskedAbout(which, [&](Control&, const AccessibleTable& table, int child) -> HRESULT {
            RECT place;
            if (child == 0)
                GetWindowRect(Window(), &place);
            else if (!table.ChildPlace)
                return S_FALSE;
            else {
                place = table.ChildPlace(Self(), child);
                MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&place), 2);
            }
            *left = place.left;
            *top = place.top;
            *width = place.right - place.left;
            *height = place.bottom - place.top;
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* out) override {
        out->vt = VT_EMPTY;
        return AskedAbout(start, [&](Control&, const AccessibleTable& table, int child) -> HRESULT {
            const int rows = Rows(table);
            int to = 0;
            if (direction == NAVDIR_FIRSTCHILD && child == 0) to = 1;
            if (direction == NAVDIR_LASTCHILD && child == 0) to = rows;
            if ((direction == NAVDIR_NEXT || direction == NAVDIR_DOWN) && child > 0) to = child + 1;
            if ((direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP) && child > 0) to = child - 1;
            if (to < 1 || to > rows) return S_FALSE;
            Number(out, to);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* out) override {
        out->vt = VT_EMPTY;
        return Asked([&](Control& control, const AccessibleTable& table) -> HRESULT {
            RECT place;
            GetWindowRect(Window(), &place);
            POINT at{x, y};
            if (!PtInRect(&place, at)) return S_FALSE;
            ScreenToClient(Window(), &at);
            if (Kind().Container) {
                const HWND child = ChildWindowFromPointEx(control.hWnd(), at, CWP_SKIPINVISIBLE);
                if (child && child != control.hWnd()) {
                    out->vt = VT_DISPATCH;
                    out->pdispVal = nullptr;
                    return AccessibleObjectFromWindow(child, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                                      reinterpret_cast<void**>(&out->pdispVal));
                }
            }
            Number(out, table.ChildAt ? table.ChildAt(Self(), at) : CHILDID_SELF);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT which) override {
        return AskedAbout(which, [&](Control& control, const AccessibleTable& table, int child) -> HRESULT {
            // As for the mouse: what cannot be reached is not pressed.
            if (!control.Usable()) return S_FALSE;
            if (!table.DoDefault && (child > 0 || !Kind().Press)) return S_FALSE;
            return PostMessageW(Window(), kDefaultAction, static_cast<WPARAM>(child), 0) ? S_OK : E_FAIL;
        });
    }

    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

private:
    // While the control is there.
    const ControlKind& Kind() const { return m_Part ? kPart : m_Control->Kind(); }
    HWND Window() const { return m_Part ? m_Part : m_Control->hWnd(); }
    void* Self() const { return m_Part ? m_PartSelf : m_Control->m_Owner; }
    int Rows(const AccessibleTable& table) const { return table.ChildCount ? table.ChildCount(Self()) : 0; }

    static std::vector<Control*> Inside(const Control& container) {
        std::vector<Control*> inside;
        if (!container.Kind().Container || !container.Parent()) return inside;
        for (Control* control : container.Parent()->Controls()) {
            if (control->Container() == &container && control->hWnd()) inside.push_back(control);
        }
        return inside;
    }

    // Every entry point of COM: the control must still be there, and nothing is thrown on.
    template <class Answer>
    HRESULT Asked(Answer&& answer) noexcept {
        if (!m_Control || !m_Control->hWnd() || EventFrame::Ending()) return CO_E_OBJNOTCONNECTED;
        return EventFrame::Run<HRESULT>(E_FAIL, [&] {
            const AccessibleTable* table = m_Part ? m_PartTable : Kind().Accessible;
            return answer(*m_Control, table ? *table : kPlain);
        });
    }
    template <class Answer>
    HRESULT AskedAbout(const VARIANT& which, Answer&& answer) noexcept {
        return Asked([&](Control& control, const AccessibleTable& table) -> HRESULT {
            if (which.vt != VT_I4 || which.lVal < 0 || which.lVal > Rows(table)) return E_INVALIDARG;
            return answer(control, table, static_cast<int>(which.lVal));
        });
    }

    Control* m_Control;
    HWND m_Part = nullptr;
    const AccessibleTable* m_PartTable = nullptr;
    void* m_PartSelf = nullptr;
};

LRESULT AnswerGetObject(Control& control, ControlAccessible*& accessible, WPARAM wParam, LPARAM lParam) {
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) return 0;
    if (!accessible) accessible = new ControlAccessible(control);
    return LresultFromObject(IID_IAccessible, wParam, accessible);
}

void Disconnect(ControlAccessible*& accessible) {
    if (!accessible) return;
    accessible->Disconnect();
    accessible->Release();
    accessible = nullptr;
}

AccessiblePart::~AccessiblePart() {
    Disconnect(m_Accessible);
}

LRESULT AccessiblePart::Answer(Control& control, HWND part, const AccessibleTable& table, void* self,
                               WPARAM wParam, LPARAM lParam) {
    if (!m_Accessible) m_Accessible = new ControlAccessible(control, part, table, self);
    return AnswerGetObject(control, m_Accessible, wParam, lParam);
}
