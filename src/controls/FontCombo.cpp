// The system's combo box with an edit window inside, which is subclassed for keys and the place of the text.
// A font of the list is made when its entry is drawn for the first time.
//
// Tested by tests/windows/fontcombo_test.cpp, fontcombo_choice_test.cpp and fontcombo_look_test.cpp.
#include "controls/FontCombo.h"

#include "controls/ComboField.h"
#include "controls/Dpi.h"
#include "controls/Events.h"
#include "controls/FieldFrame.h"
#include "controls/MSubclass.h"
#include "controls/Painting.h"
#include "controls/SystemCall.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kRowsShown = 10;
constexpr int kRowHeight = 24;               // pixels at 96 DPI: a line of 12 points
constexpr int kArrowField = 20;              // with its lines
constexpr int kFieldHeight = 24, kFrame = 2; // of a box in a form, of its focus
constexpr int kFieldText = 7, kCellText = 6;
constexpr UINT kChosen = WM_APP + 1, kOpened = WM_APP + 2;
constexpr UINT kWatched[] = {WM_KEYDOWN, WM_SYSKEYDOWN, WM_CHAR, WM_GETOBJECT};

constexpr AccessibleTable kAccessible = ComboField::Accessible<FontCombo>();

// A font of one script alone would show its own name as empty boxes.
bool HasLetters(HDC dc, HFONT face, std::u16string_view text) {
    std::vector<WORD> glyphs(text.size());
    const HGDIOBJ before = SelectObject(dc, face);
    const DWORD count =
        GetGlyphIndicesW(dc, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
                         glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    SelectObject(dc, before);
    return count == GDI_ERROR || std::find(glyphs.begin(), glyphs.end(), WORD{0xFFFF}) == glyphs.end();
}

} // namespace

const ControlKind FontCombo::kKind{
    .TypeName = u"FontCombo",
    .LayoutKinds = u"fontcombo|overlay",
    .WindowClass = L"COMBOBOX",
    .Style =
        CBS_DROPDOWN | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | CBS_AUTOHSCROLL | WS_VSCROLL | WS_CLIPCHILDREN,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&FontCombo::OnCreated>::Call,
    .Message = Entry<&FontCombo::OnMessage>::Call,
    .Changed = Entry<&FontCombo::OnChanged>::Call,
    .Place = Entry<&FontCombo::OnPlace>::Call,
    .WantsKey = Entry<&FontCombo::OnWantsKey>::Call,
    .Accessible = &kAccessible,
};

FontCombo::~FontCombo() {
    for (const UINT message : kWatched) MSubclass::DetachMessage(*this, m_Edit, message);
}

void FontCombo::OnCreated() {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(Base.hWnd(), &parts);
    m_Edit = parts.hwndItem;
    SendMessageW(m_Edit, EM_SETLIMITTEXT, 0, 0);
    for (const UINT message : kWatched) MSubclass::AttachMessage(*this, m_Edit, message);
    m_List.Watch(Base);
    OnChanged(Change::Font);
}

void FontCombo::AddItem(const std::u16string& text, const ::Font& font) {
    m_Entries.push_back({text.c_str(), font, {}}); // the system's list ends it at a NUL too
    SendMessageW(Base.hWnd(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

void FontCombo::Clear() {
    const std::u16string text = Text();
    m_Entries.clear();
    SendMessageW(Base.hWnd(), CB_RESETCONTENT, 0, 0);
    SetWindowTextW(m_Edit, Wide(text));
}

std::u16string FontCombo::List(int index) const {
    return index < 0 || index >= ListCount() ? u"" : m_Entries[static_cast<std::size_t>(index)].Text;
}

int FontCombo::ListIndex() const {
    const auto index = static_cast<int>(SendMessageW(Base.hWnd(), CB_GETCURSEL, 0, 0));
    return index >= 0 && index < ListCount() && List(index) == Text() ? index : -1;
}

void FontCombo::ListIndex(int index) {
    if (index < -1 || index >= ListCount()) return;
    const bool changes = List(index) != Text();
    m_TextBefore.reset();
    SendMessageW(Base.hWnd(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (changes) Base.Notify(EVENT_OBJECT_VALUECHANGE);
}

int FontCombo::Find(const std::u16string& text) const {
    for (int i = 0; i < ListCount(); ++i) {
        const std::u16string& entry = m_Entries[static_cast<std::size_t>(i)].Text;
        if (CompareStringOrdinal(Wide(entry), static_cast<int>(entry.size()), Wide(text),
                                 static_cast<int>(text.size()), TRUE) == CSTR_EQUAL)
            return i;
    }
    return -1;
}

std::u16string FontCombo::Text() const {
    return WindowText(m_Edit);
}

void FontCombo::Text(const std::u16string& text) {
    const bool changes = text != Text();
    m_TextBefore.reset();
    Show(Find(text), text);
    if (changes) Base.Notify(EVENT_OBJECT_VALUECHANGE);
}

// The text, with that entry marked in the list; -1: none.
void FontCombo::Show(int index, const std::u16string& text) {
    SendMessageW(Base.hWnd(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (List(index) != text) SetWindowTextW(m_Edit, Wide(text));
}

void FontCombo::SelectAll() {
    SendMessageW(m_Edit, EM_SETSEL, 0, -1);
}

int FontCombo::DropDownWidth() const {
    return static_cast<int>(SendMessageW(Base.hWnd(), CB_GETDROPPEDWIDTH, 0, 0));
}

void FontCombo::DropDownWidth(int pixels) {
    m_DropDownWidth = ToTwips(pixels, Base.Dpi());
    SendMessageW(Base.hWnd(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(pixels), 0);
}

bool FontCombo::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_SETFONT:
        ComboField::Close(Base);
        return false;
    case kReflected + WM_COMMAND:
        return OnCommand(HIWORD(wParam));
    case kReflected + WM_DRAWITEM:
        OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        result = TRUE;
        return true;
    case kOpened:
        // The system has put the first entry that begins so in the place of the text.
        if (m_TextBefore && Text() != *m_TextBefore) Show(m_IndexBefore, *m_TextBefore);
        m_TextBefore.reset();
        return true;
    case kChosen:
        Base.Notify(EVENT_OBJECT_VALUECHANGE);
        Raise(Click);
        return true;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
        result = FieldFrame::Colours(reinterpret_cast<HDC>(wParam), Base.EnabledInAll());
        return true;
    default:
        return false;
    }
}

bool FontCombo::OnCommand(UINT notification) {
    switch (notification) {
    case CBN_SELENDOK:
        m_TextBefore.reset();
        // By arrow keys it comes from a closed list too, and from an open one that stays open.
        m_Choosing = ComboField::Dropped(Base);
        break;
    case CBN_SELENDCANCEL:
        m_Choosing = false;
        break;
    case CBN_SELCHANGE:
    case CBN_EDITCHANGE:
        Base.Notify(EVENT_OBJECT_VALUECHANGE);
        break;
    case CBN_DROPDOWN:
        m_Choosing = false;
        m_TextBefore = Text();
        m_IndexBefore = ListIndex() >= 0 ? ListIndex() : Find(*m_TextBefore);
        PostMessageW(Base.hWnd(), kOpened, 0, 0);
        Base.Notify(EVENT_OBJECT_STATECHANGE);
        break;
    case CBN_CLOSEUP:
        ComboField::EndPress(Base);
        // The text follows only behind it.
        if (std::exchange(m_Choosing, false)) PostMessageW(Base.hWnd(), kChosen, 0, 0);
        FreeFonts();
        Base.Notify(EVENT_OBJECT_STATECHANGE);
        break;
    default:
        break;
    }
    return true;
}

void FontCombo::OnDrawItem(const DRAWITEMSTRUCT& item) {
    if (item.itemID >= m_Entries.size()) return;
    Row& row = m_Entries[item.itemID];
    if (!row.Handle) row.Handle = FontHandle(row.Face, Base.Dpi());
    DrawFontEntry(item.hDC, item.rcItem,
                  {.Text = row.Text,
                   .Face = row.Handle.Get(),
                   .Plain = Base.FontInUse(),
                   .Selected = (item.itemState & ODS_SELECTED) != 0,
                   .Dpi = Base.Dpi()});
}

void FontCombo::FreeFonts() {
    for (Row& row : m_Entries) row.Handle = FontHandle();
}

void FontCombo::OnChanged(Change what) {
    if (what != Change::Font && what != Change::Dpi) return;
    FreeFonts();
    SendMessageW(Base.hWnd(), CB_SETITEMHEIGHT, 0, Base.Scaled(kRowHeight));
    if (m_DropDownWidth > 0) DropDownWidth(Base.Pixels(m_DropDownWidth));
    Base.Move(Base.Left(), Base.Top(), Base.Width(), Base.Height());
    // Where the place stays, only the face of the text changes.
    if (m_Edit) InvalidateRect(m_Edit, nullptr, TRUE);
}

void FontCombo::OnPlace(const RECT& pixels) {
    ComboField::Place(Base, pixels, kRowsShown);
    PlaceText();
}

// The system puts the text close to its own button; ours is wider. A low box lies over the
// cell of a table, whose text begins there. The frame of the focus is left free.
void FontCombo::PlaceText() {
    if (!m_Edit) return;
    RECT client;
    GetClientRect(Base.hWnd(), &client);
    const bool low = HeightOf(client) < Base.Scaled(kFieldHeight);
    const int left = Base.Scaled(low ? kCellText : kFieldText);
    const int line = std::min(LineHeight(Base.FontInUse()), HeightOf(client) - 2 * Base.Scaled(kFrame));
    SendMessageW(m_Edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    SetWindowPos(m_Edit, nullptr, left, (HeightOf(client) - line) / 2,
                 WidthOf(client) - left - Base.Scaled(kArrowField), line, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool FontCombo::OnWantsKey(WPARAM) {
    return KeyDown || ComboField::Dropped(Base);
}

// Of the edit window inside.
LRESULT FontCombo::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    switch (iMsg) {
    case WM_GETOBJECT:
        if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) break; // its caret is its own
        return SendMessageW(Base.hWnd(), iMsg, wParam, lParam);
    case WM_CHAR:
        // The dropped list ends by them; the line of text has no use for them and beeps.
        if ((wParam == VK_RETURN || wParam == VK_ESCAPE) && !ComboField::Dropped(Base)) return 0;
        break;
    case WM_KEYDOWN: {
        const bool ends = wParam == VK_RETURN || wParam == VK_ESCAPE;
        if (ends && ComboField::Dropped(Base)) break;
        const StillThere here(Base);
        Raise(KeyDown, static_cast<int>(wParam), ShiftState());
        if (!here || ends) return 0;
        break;
    }
    case WM_SYSKEYDOWN: {
        // With Alt, and F10: told, and the system's to act on.
        const StillThere here(Base);
        Raise(KeyDown, static_cast<int>(wParam), ShiftState());
        if (!here) return 0;
        break;
    }
    default:
        break;
    }
    const SystemCall call(Base);
    return MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
}

void DrawFontEntry(HDC dc, const RECT& place, const FontEntryState& state) {
    const bool plain = state.Plain && !HasLetters(dc, state.Face, state.Text);
    ComboField::DrawEntry(dc, place, state.Text, plain ? state.Plain : state.Face, state.Selected, state.Dpi);
}
