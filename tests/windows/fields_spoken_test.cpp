// What screen readers are told of fields, labels, frames and pictures.
#include "windows/FieldsForm.h"

namespace {

using Fields = gui::Fields;

TEST_F(Fields, APasswordIsHidden) {
    gui::FieldsForm& form = *m_Shown;
    m_Ui.Run([&] { form.Pass.Text(u"secret"); });
    EXPECT_EQ(On([&] { return form.Pass.Text(); }), u"secret");
    const gui::Spoken said = Said(form.Pass.Base);
    EXPECT_EQ(said.Name, u"Password:");
    EXPECT_EQ(said.Value, u"");
    EXPECT_TRUE(said.State & STATE_SYSTEM_PROTECTED);
}

TEST_F(Fields, NoNameIsEmptyForWhatIsNoOrnament) {
    gui::FieldsForm& form = *m_Shown;
    for (const Control* control : form.Window.Controls()) {
        const gui::Spoken said = Said(*control);
        const bool ornament = said.State & STATE_SYSTEM_INVISIBLE;
        if (control->Kind().Container) continue;
        EXPECT_NE(said.Name.empty(), !ornament) << text::ToUtf8(control->FullName());
        EXPECT_NE(said.Role, 0);
    }
    EXPECT_EQ(Said(form.Warn.Base).Name, u"Warning");
    EXPECT_EQ(Said(form.Warn.Base).Role, ROLE_SYSTEM_GRAPHIC);
    EXPECT_TRUE(Said(*form.Window.Find(u"Ornament")).State & STATE_SYSTEM_INVISIBLE);
    // The form and the frame tell what they hold.
    EXPECT_EQ(Said(form.Window.Base).Children, 11);
    EXPECT_EQ(Said(form.Box.Base).Children, 2);
    EXPECT_EQ(Said(form.Box.Base).Role, ROLE_SYSTEM_GROUPING);
}

TEST_F(Fields, ChangesAreToldToScreenReaders) {
    gui::FieldsForm& form = *m_Shown;
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        form.Suffix.Base.SetFocus();
        form.Pass.Base.SetFocus();
        form.Suffix.Text(u"new");
        form.Size.ListIndex(2);
        form.Clear.Caption(u"Another");
        form.Inside.Base.Enabled(false);
        form.Box.Base.Visible(false);
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, form.Pass.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, form.Suffix.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, form.Size.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_NAMECHANGE, form.Clear.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, form.Inside.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_HIDE, form.Box.Base.hWnd()), 1);
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(Fields, WhatStandsInADisabledFrameIsDisabledToo) {
    gui::FieldsForm& form = *m_Shown;
    m_Ui.Run([&] { form.Box.Base.Enabled(false); });
    EXPECT_TRUE(On([&] { return form.Inside.Base.Enabled(); })); // its own flag
    EXPECT_FALSE(IsWindowEnabled(form.Inside.Base.hWnd()));
    EXPECT_TRUE(Said(form.Inside.Base).State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] { form.Box.Base.Enabled(true); });
    EXPECT_TRUE(IsWindowEnabled(form.Inside.Base.hWnd()));
}

} // namespace
