// The example of the documentation: a form of ten controls in under 60 lines, worked by keys.
#include "windows/ExampleForm.h"
#include "windows/FormTest.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {

struct Shown : ExampleForm {
    Shown() { Window.Show(); }
};

class Example : public gui::FormTest<Shown> {
protected:
    void AltKey(WORD letter) {
        gui::Key(VK_MENU, false);
        gui::Type(letter);
        gui::Key(VK_MENU, true);
    }
    bool Closed() {
        return Becomes([&] { return !m_Shown->Window.Base.Visible(); });
    }
};

TEST_F(Example, TenControlsInUnderSixtyLines) {
    std::ifstream source(ZC_SOURCE_DIR "/tests/windows/ExampleForm.h");
    const auto lines = std::count(std::istreambuf_iterator<char>(source), {}, '\n');
    EXPECT_GT(lines, 10);
    EXPECT_LT(lines, 60);
    EXPECT_GE(m_Shown->Window.Controls().size(), 10u);
}

TEST_F(Example, IsFilledInByKeys) {
    ASSERT_TRUE(FocusComesTo(m_Shown->FileName.Base));
    EXPECT_FALSE(On([&] { return m_Shown->ButtonSave.Base.Enabled(); }));
    gui::Type('A');
    ASSERT_TRUE(Becomes([&] { return m_Shown->ButtonSave.Base.Enabled(); }));
    AltKey('E');
    ASSERT_TRUE(FocusComesTo(m_Shown->Encoding.Base));
    gui::Type(VK_DOWN);
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Place[0].Base));
    gui::Type(VK_DOWN);
    ASSERT_TRUE(FocusComesTo(m_Shown->Place[1].Base));
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->OpenIt.Base));
    gui::Type(VK_SPACE);
    gui::Type(VK_RETURN);
    ASSERT_TRUE(Closed());
    EXPECT_EQ(m_Shown->Saved, u"a as UTF-16, documents, open");
}

TEST_F(Example, EscLeavesWithoutAnAnswer) {
    ASSERT_TRUE(FocusComesTo(m_Shown->FileName.Base));
    gui::Type('A');
    gui::Type(VK_ESCAPE);
    ASSERT_TRUE(Closed());
    EXPECT_EQ(m_Shown->Saved, u"");
}

} // namespace
