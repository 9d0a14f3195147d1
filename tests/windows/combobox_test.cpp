// The combo: what the user chooses comes out of the queue, what code sets at once; what screen
// readers are told of its list.
#include "controls/ComboBox.h"
#include "controls/ComboField.h"
#include "windows/FormTest.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmCombo\tform\t\t\t6000\t3000\tCombo\t\t\n"
    u"f\tfrmCombo\tSizes\tcombo\t150\t150\t2250\t360\t\t1\tAccessibleName=Sizes\n";

struct ComboForm {
    Form Window;
    ComboBox Sizes;
    std::vector<int> Told; // the index at each Click
    ComboForm() {
        Window.Bind(u"Sizes", Sizes).Create(kLayout);
        for (const char16_t* size : {u"8", u"10", u"12"}) Sizes.AddItem(size);
        Sizes.Click = [this] { Told.push_back(Sizes.ListIndex()); };
        Window.Show();
        Sizes.Base.SetFocus();
    }
};

class Combos : public gui::FormTest<ComboForm> {
protected:
    using Told = std::vector<int>;
    HWND Combo() { return m_Shown->Sizes.Base.hWnd(); }
    void Down() { SendMessageW(Combo(), WM_KEYDOWN, VK_DOWN, 1); }
    bool Tells(const Told& told) {
        return Becomes([&] { return m_Shown->Told == told; });
    }
};

// The system is still at work in the box when it tells of a choice.
TEST_F(Combos, AChoiceOfTheUserComesOutOfTheQueue) {
    m_Ui.Run([&] {
        Down();
        EXPECT_EQ(m_Shown->Sizes.ListIndex(), 0);
        EXPECT_TRUE(m_Shown->Told.empty());
    });
    EXPECT_TRUE(Tells({0}));
    m_Ui.Run([&] {
        ComboField::Toggle(m_Shown->Sizes.Base);
        Down();
        SendMessageW(Combo(), WM_KEYDOWN, VK_RETURN, 1); // SELCHANGE was told, CLOSEUP follows
        EXPECT_FALSE(ComboField::Dropped(m_Shown->Sizes.Base));
        EXPECT_EQ(m_Shown->Told, (Told{0}));
    });
    EXPECT_TRUE(Tells({0, 1}));
    m_Ui.Settle();
    EXPECT_TRUE(Tells({0, 1})); // once
}

TEST_F(Combos, WhatCodeSetsIsToldAtOnceAndOnce) {
    m_Ui.Run([&] {
        m_Shown->Sizes.ListIndex(1);
        EXPECT_EQ(m_Shown->Told, (Told{1}));
        Down();
        m_Shown->Sizes.ListIndex(0); // comes before the user's choice is told
        EXPECT_EQ(m_Shown->Told, (Told{1, 0}));
    });
    m_Ui.Settle();
    EXPECT_TRUE(Tells({1, 0}));
    m_Ui.Run([&] {
        Down();
        m_Shown->Sizes.Clear();
    });
    m_Ui.Settle();
    EXPECT_TRUE(Tells({1, 0})); // nothing is chosen any more
}

TEST_F(Combos, AChoiceThatEscTakesBackIsToldToo) {
    m_Ui.Run([&] { m_Shown->Sizes.ListIndex(0); });
    gui::Type(VK_F4);
    EXPECT_TRUE(Becomes([&] { return ComboField::Dropped(m_Shown->Sizes.Base); }));
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Tells({0, 1}));
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(Becomes([&] { return !ComboField::Dropped(m_Shown->Sizes.Base); }));
    m_Ui.Settle();
    EXPECT_EQ(On([&] { return m_Shown->Told.back(); }), On([&] { return m_Shown->Sizes.ListIndex(); }));
}

TEST_F(Combos, ScreenReadersHearOfTheListAndOfEachChoice) {
    std::unique_ptr<gui::HeardEvents> heard;
    const auto states = [&] { return heard->Count(EVENT_OBJECT_STATECHANGE, Combo()); };
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        ComboField::Toggle(m_Shown->Sizes.Base);
        EXPECT_EQ(states(), 1);
        EXPECT_TRUE(gui::Ask(Combo()).State & STATE_SYSTEM_EXPANDED);
        ComboField::Toggle(m_Shown->Sizes.Base);
        EXPECT_EQ(states(), 2);
        EXPECT_TRUE(gui::Ask(Combo()).State & STATE_SYSTEM_COLLAPSED);
    });
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Tells({0}));
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, Combo()), 1);
    EXPECT_EQ(states(), 2);
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(Combos, AFormMayGoBeforeItsChoiceIsTold) {
    m_Ui.Run([&] {
        Down();
        m_Shown->Window.Unload();
    });
    m_Ui.Settle();
    EXPECT_TRUE(Tells({}));
}

} // namespace
