// The lists that boxes drop, as screen readers find them: by the window's own accessible
// object and the events that it raises.
#include "controls/ComboBox.h"
#include "controls/ComboField.h"
#include "controls/FontCombo.h"
#include "controls/TextBox.h"
#include "controls/modXPCombo.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmDropped\tform\t\t\t6000\t6000\tDropped\t\t\n"
    u"f\tfrmDropped\tPlain\tcombo\t150\t150\t2250\t360\t\t1\tAccessibleName=Size\n"
    u"f\tfrmDropped\tFonts\tfontcombo\t3000\t150\t2250\t360\t\t2\tAccessibleName=Font\n"
    u"f\tfrmDropped\tOther\ttext\t150\t5000\t2250\t360\t\t3\tAccessibleName=Other\n";

struct DroppedForm {
    Form Window;
    ComboBox Plain;
    FontCombo Fonts;
    TextBox Other;
    cXPCombo SkinOfPlain, SkinOfFonts;
    DroppedForm() {
        Window.Bind(u"Plain", Plain).Bind(u"Fonts", Fonts).Bind(u"Other", Other).Create(kLayout);
        for (int i = 0; i < 30; ++i) {
            const std::u16string name = u"Entry " + text::Decimal(i);
            Plain.AddItem(name);
            Fonts.AddItem(name, {u"Tahoma", 12, false, false});
        }
        Plain.ListIndex(1);
        Fonts.ListIndex(1);
        modXPCombo::ApplySkin(SkinOfPlain, Plain.Base);
        modXPCombo::ApplySkin(SkinOfFonts, Fonts.Base);
        Window.Show();
    }
};

class DroppedLists : public gui::FormTest<DroppedForm> {
protected:
    Control& Combo(bool fonts) { return fonts ? m_Shown->Fonts.Base : m_Shown->Plain.Base; }
    HWND ListOf(bool fonts) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(Combo(fonts).hWnd(), &parts);
        return parts.hwndList;
    }
    int Index(bool fonts) {
        return On([&] { return fonts ? m_Shown->Fonts.ListIndex() : m_Shown->Plain.ListIndex(); });
    }
    gui::Spoken Ask(bool fonts, int child = 0) {
        return On([&] { return gui::Ask(ListOf(fonts), child); });
    }
    void Open(bool fonts) {
        m_Ui.Run([&] {
            Combo(fonts).SetFocus();
            ComboField::Toggle(Combo(fonts));
            ASSERT_TRUE(ComboField::Dropped(Combo(fonts)));
        });
    }
    void Listen(bool listen) {
        m_Ui.Run([&] { m_Heard = listen ? std::make_unique<gui::HeardEvents>() : nullptr; });
    }
    void TearDown() override {
        Listen(false);
        gui::FormTest<DroppedForm>::TearDown();
    }

    std::unique_ptr<gui::HeardEvents> m_Heard;
};

TEST_F(DroppedLists, AnOpenListHasTheBoxesNameAndItsRowsAsChildren) {
    for (const bool fonts : {false, true}) {
        Open(fonts);
        const gui::Spoken list = Ask(fonts), marked = Ask(fonts, 2), other = Ask(fonts, 3);
        EXPECT_EQ(list.Name, fonts ? u"Font" : u"Size");
        EXPECT_EQ(list.Role, ROLE_SYSTEM_LIST);
        EXPECT_EQ(list.Children, 30);
        EXPECT_EQ(list.Focus, 2);
        EXPECT_EQ(list.Selection, 2);
        EXPECT_FALSE(list.State & STATE_SYSTEM_INVISIBLE);
        EXPECT_EQ(marked.Name, u"Entry 1");
        EXPECT_EQ(marked.Role, ROLE_SYSTEM_LISTITEM);
        EXPECT_EQ(marked.DefaultAction, u"Select");
        EXPECT_EQ(marked.State & (STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED),
                  STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED);
        EXPECT_EQ(other.Name, u"Entry 2");
        EXPECT_EQ(other.State, STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE);
        // Rows lie one below the other where the list is, and those out of sight say so.
        EXPECT_EQ(other.Place.top, marked.Place.bottom);
        EXPECT_GE(other.Place.left, list.Place.left);
        EXPECT_LE(other.Place.right, list.Place.right);
        EXPECT_TRUE(Ask(fonts, 30).State & STATE_SYSTEM_OFFSCREEN);
        m_Ui.Run([&] {
            EXPECT_EQ(gui::ChildAt(ListOf(fonts), {other.Place.left + 5, other.Place.top + 3}), 3);
            EXPECT_EQ(gui::ChildAt(ListOf(fonts), {list.Place.left - 9, list.Place.top}), -1);
        });
        gui::Type(VK_ESCAPE);
        EXPECT_TRUE(Becomes([&] { return !ComboField::Dropped(Combo(fonts)); }));
    }
}

TEST_F(DroppedLists, APressWhoseListClosesBeforeItsReleaseLetsTheMouseGo) {
    const auto free = [&] { return On([] { return GetCapture() == nullptr; }); };
    for (const bool fonts : {false, true}) {
        const HWND box = Combo(fonts).hWnd();
        RECT client{};
        GetClientRect(box, &client);
        gui::MoveTo(gui::ToScreen(box, client.right - Px(8), client.bottom / 2));
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        EXPECT_TRUE(Becomes([&] { return ComboField::Dropped(Combo(fonts)); }));
        m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
        EXPECT_TRUE(Becomes([&] { return !ComboField::Dropped(Combo(fonts)); }));
        EXPECT_TRUE(free()) << fonts;
        gui::Press(MOUSEEVENTF_LEFTUP);
        m_Ui.Settle();
        EXPECT_TRUE(free()) << fonts;
    }
}

TEST_F(DroppedLists, RowsHaveTheColoursOfTheListsOrOfTheSystem) {
    for (const bool contrast : {false, true}) {
        SetHighContrast(contrast);
        for (const bool fonts : {false, true}) {
            Open(fonts);
            const gui::Pixels shown = On([&] { return gui::ClientOf(ListOf(fonts)); });
            const auto at = [&](WPARAM row) {
                RECT place;
                SendMessageW(ListOf(fonts), LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
                return shown.At(place.right - 4, place.top + 2);
            };
            EXPECT_EQ(at(1), contrast ? GetSysColor(COLOR_HIGHLIGHT) : palette::Sel) << fonts;
            EXPECT_EQ(at(2), contrast ? GetSysColor(COLOR_WINDOW) : palette::Card) << fonts;
            gui::Type(VK_ESCAPE);
            EXPECT_TRUE(Becomes([&] { return !ComboField::Dropped(Combo(fonts)); }));
        }
    }
}

TEST_F(DroppedLists, AClosedListIsInvisibleAndHasNoFocus) {
    for (const bool fonts : {false, true}) {
        m_Ui.Run([&] { Combo(fonts).SetFocus(); });
        const gui::Spoken list = Ask(fonts), row = Ask(fonts, 2);
        EXPECT_TRUE(list.State & STATE_SYSTEM_INVISIBLE);
        EXPECT_EQ(list.Focus, -1);
        EXPECT_TRUE(row.State & STATE_SYSTEM_INVISIBLE);
        EXPECT_TRUE(row.State & STATE_SYSTEM_SELECTED);
        EXPECT_FALSE(row.State & STATE_SYSTEM_FOCUSED);
        m_Ui.Run([&] { gui::DoDefault(ListOf(fonts), 5); });
        EXPECT_EQ(Index(fonts), 1);
    }
}

TEST_F(DroppedLists, OpeningArrowsMouseAndClosingAreTold) {
    for (const bool fonts : {false, true}) {
        const HWND list = ListOf(fonts);
        Listen(true);
        Open(fonts);
        EXPECT_EQ(m_Heard->Count(EVENT_OBJECT_FOCUS, list, 2), 1);
        EXPECT_EQ(m_Heard->Count(EVENT_OBJECT_SELECTION, list, 2), 1);
        gui::Type(VK_DOWN);
        EXPECT_TRUE(Becomes([&] { return m_Heard->Count(EVENT_OBJECT_SELECTION, list, 3) == 1; }));
        EXPECT_EQ(m_Heard->Count(EVENT_OBJECT_FOCUS, list, 3), 1);
        const RECT fifth = Ask(fonts, 5).Place;
        gui::MoveTo({fifth.left + 5, fifth.top + 3});
        EXPECT_TRUE(Becomes([&] { return m_Heard->Count(EVENT_OBJECT_SELECTION, list, 5) == 1; }));
        gui::MoveTo({fifth.left + 7, fifth.top + 4}); // the same row: nothing new
        m_Ui.Settle();
        EXPECT_EQ(m_Heard->Count(EVENT_OBJECT_FOCUS, list, 5), 1);
        const int before = m_Heard->Count(EVENT_OBJECT_FOCUS, Combo(fonts).hWnd());
        gui::Type(VK_ESCAPE);
        EXPECT_TRUE(Becomes([&] { return !ComboField::Dropped(Combo(fonts)); }));
        EXPECT_EQ(m_Heard->Count(EVENT_OBJECT_FOCUS, Combo(fonts).hWnd()), before + 1);
        Listen(false);
        gui::MoveTo({5, 5});
    }
}

TEST_F(DroppedLists, TheDefaultActionOfARowChoosesItAsEnterDoes) {
    int clicks = 0;
    m_Ui.Run([&] { m_Shown->Plain.Click = m_Shown->Fonts.Click = [&] { ++clicks; }; });
    for (const bool fonts : {false, true}) {
        clicks = 0;
        Open(fonts);
        m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(ListOf(fonts), 4), S_OK); });
        EXPECT_TRUE(Becomes([&] { return clicks == 1; })) << fonts;
        EXPECT_FALSE(On([&] { return ComboField::Dropped(Combo(fonts)); }));
        EXPECT_EQ(Index(fonts), 3);
        m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(ListOf(fonts), 31), E_INVALIDARG); });
    }
}

TEST_F(DroppedLists, AChoiceMayEndTheBox) {
    m_Ui.Run([&] { m_Shown.reset(); });
    struct Own {
        Form Window;
        std::unique_ptr<ComboBox> Plain = std::make_unique<ComboBox>();
        Own() {
            Window.Bind(u"Plain", *Plain)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tPlain\tcombo\t150\t150\t1650\t360\t\t1\tAccessibleName=P\n");
            for (const char16_t* text : {u"a", u"b", u"c"}) Plain->AddItem(text);
            Plain->Click = [this] { Plain.reset(); };
            Window.Show();
            Plain->Base.SetFocus();
        }
    };
    for (const bool byReader : {false, true}) {
        std::unique_ptr<Own> own;
        RECT row{};
        m_Ui.Run([&] {
            own = std::make_unique<Own>();
            ComboField::Toggle(own->Plain->Base);
            COMBOBOXINFO parts{};
            parts.cbSize = sizeof parts;
            GetComboBoxInfo(own->Plain->Base.hWnd(), &parts);
            row = gui::Ask(parts.hwndList, 2).Place;
            if (byReader) gui::DoDefault(parts.hwndList, 2);
        });
        if (!byReader) gui::Click({row.left + 5, row.top + 3});
        EXPECT_TRUE(Becomes([&] { return !own->Plain; })) << byReader;
        m_Ui.Run([&] { own.reset(); });
        gui::MoveTo({5, 5});
    }
}

TEST_F(DroppedLists, AListIsUnavailableWithItsBoxAndGoesWithIt) {
    m_Ui.Run([&] { m_Shown->Plain.Base.Enabled(false); });
    EXPECT_TRUE(Ask(false, 1).State & STATE_SYSTEM_UNAVAILABLE);
    EXPECT_FALSE(Ask(true, 1).State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] {
        IAccessible* kept = nullptr;
        ASSERT_EQ(AccessibleObjectFromWindow(ListOf(true), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                             reinterpret_cast<void**>(&kept)),
                  S_OK);
        LONG rows = 0;
        EXPECT_EQ(kept->get_accChildCount(&rows), S_OK);
        EXPECT_EQ(rows, 30);
        m_Shown.reset();
        EXPECT_EQ(kept->get_accChildCount(&rows), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(kept->Release(), 0u);
    });
}

// Else the list would go on holding the mouse unseen.
TEST_F(DroppedLists, AChangeOfTheBoxClosesThem) {
    for (const bool fonts : {false, true}) {
        Control& combo = Combo(fonts);
        const std::pair<const char*, std::function<void()>> changes[] = {
            {"resolution", [&] { SetDpi(m_Shown->Window.Dpi() == 96 ? 144 : 96); }},
            {"font", [&] { m_Ui.Run([&] { combo.Font(HeaderFont()); }); }},
            {"width", [&] { m_Ui.Run([&] { combo.Width(combo.Width() + 150); }); }},
            {"place", [&] { m_Ui.Run([&] { combo.Top(combo.Top() + 150); }); }},
        };
        for (const auto& [name, change] : changes) {
            SCOPED_TRACE(name);
            Open(fonts);
            EXPECT_TRUE(On([&] { return GetCapture() == ListOf(fonts); }));
            change();
            EXPECT_FALSE(On([&] { return ComboField::Dropped(combo); }));
            EXPECT_FALSE(IsWindowVisible(ListOf(fonts)));
            EXPECT_TRUE(On([] { return GetCapture() == nullptr; }));
            EXPECT_EQ(Index(fonts), 1);
        }
    }
}

TEST_F(DroppedLists, ABoxThatGoesElsewhereLeavesNothingBehind) {
    const HWND form = m_Shown->Window.Base.hWnd();
    m_Ui.Run([&] { m_Shown->Window.Base.Top(0); }); // at 192 DPI it is higher than the screen
    for (const bool fonts : {false, true}) {
        Control& combo = Combo(fonts);
        for (const auto& [right, down] : {std::pair{0, 75}, {0, -75}, {30, 30}}) {
            m_Ui.Run([&] {
                combo.Move(combo.Left() + right, combo.Top() + down, combo.Width(), combo.Height());
                RedrawWindow(form, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
                RECT boxes[2];
                for (const bool which : {false, true}) {
                    GetWindowRect(Combo(which).hWnd(), &boxes[which]);
                    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&boxes[which]), 2);
                }
                const gui::Pixels shown = gui::ShownOf(form), fresh = gui::ClientOf(form);
                int left = 0;
                for (POINT at{0, 0}; at.y < Px(60); ++at.y) {
                    for (at.x = 0; at.x < shown.Width; ++at.x) {
                        if (PtInRect(&boxes[0], at) || PtInRect(&boxes[1], at)) continue;
                        left += shown.At(at.x, at.y) != fresh.At(at.x, at.y);
                    }
                }
                EXPECT_EQ(left, 0) << right << ", " << down;
            });
        }
    }
}

} // namespace
