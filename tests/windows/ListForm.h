// A form with the lists that the tests drive.
#pragma once

#include "controls/McListBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <string>
#include <vector>

namespace gui {

// Files: seven rows of 20 pixels, as the file lists have them. Tasks: as the side panel's,
// with both gradients. Plain: every property as it comes.
constexpr std::u16string_view kListLayout =
    u"form\n"
    u"f\t\tfrmList\tform\t\t\t6000\t4230\tLists\t\tBackColor=FrameTop\n"
    u"f\tfrmList\tFiles\tMcListBox\t150\t150\t3705\t2130\t\t1\tAppearance=0; RowHeight=20; ShowIcon=yes; "
    u"ShowHover=yes; IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; AutoHideScrollBars=yes; "
    u"ForeColor=Ink; SelColor=Sel; AccessibleName=Text files\n"
    u"f\tfrmList\tTasks\tMcListBox\t150\t2400\t2640\t1680\t\t2\tAppearance=0; ShowIcon=yes; ShowHover=yes; "
    u"IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; AutoHideScrollBars=yes; ForeColor=Ink; "
    u"BackGradient=6; BackGradientCol=ListGrad; SelGradient=1; SelColor=Sel; SelGradientCol=SelGrad; "
    u"AccessibleName=Tasks\n"
    u"f\tfrmList\tPlain\tMcListBox\t2940\t2400\t2640\t1680\t\t3\tAccessibleName=Plain\n"
    u"f\tfrmList\tImages\tMcImageList\t0\t0\t0\t0\t\t\tImageCount=2; Images0=task-text; Images1=task-word\n";

struct ListForm {
    Form Window;
    McImageList Images;
    std::unique_ptr<McListBox> Owned = std::make_unique<McListBox>(); // may go inside its own event
    McListBox& Files = *Owned;
    McListBox Tasks, Plain;
    ListForm() {
        Window.Bind(u"Files", Files).Bind(u"Tasks", Tasks).Bind(u"Plain", Plain).Bind(u"Images", Images);
        Window.Create(kListLayout);
        Files.ImageList(&Images);
        Tasks.ImageList(&Images);
        Window.Show();
    }
};

class Lists : public FormTest<ListForm> {
protected:
    McListBox& Files() { return m_Shown->Files; }
    // That many rows "0", "1" and so on.
    void Fill(McListBox& list, int count) {
        m_Ui.Run([&] {
            for (int i = 0; i < count; ++i) list.AddItem(text::Decimal(i), -1, 0);
            list.Refresh();
        });
    }
    // The middle of a row on the screen; row may lie behind the last one.
    POINT RowPoint(McListBox& list, int row) {
        return On([&] {
            const int height = list.RowPlace(list.TopRow()).bottom;
            return ToScreen(list.Base.hWnd(), Px(60), (row - list.TopRow()) * height + height / 2);
        });
    }
    // Everything that is still to be painted.
    void PaintAll() {
        m_Ui.Run([&] {
            RedrawWindow(m_Shown->Window.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        });
    }
    // Writes down each event of the list.
    void Listen(McListBox& list) {
        m_Ui.Run([&] {
            const auto note = [this](const char* name) { return [this, name] { m_Heard += name; }; };
            list.MouseEnter = note("Enter ");
            list.MouseLeave = note("Leave ");
            list.Click = note("Click ");
            list.SelChange = note("SelChange ");
            list.DbClick = note("DbClick ");
            list.MouseDown = [this](int button, int, int, int) {
                m_Heard += "Down" + std::to_string(button) + " ";
            };
            list.MouseUp = [this](int button, int, int, int) {
                m_Heard += "Up" + std::to_string(button) + " ";
            };
            list.KeyDown = [this](int key, int) { m_Heard += "KeyDown" + std::to_string(key) + " "; };
            list.KeyUp = [this](int key, int) { m_Heard += "KeyUp" + std::to_string(key) + " "; };
            list.KeyPress = [this](int key) { m_Heard += "KeyPress" + std::to_string(key) + " "; };
        });
    }
    std::string Heard() {
        return On([this] { return std::exchange(m_Heard, {}); });
    }
    bool Hears(const std::string& expected) {
        return Becomes([&] { return m_Heard == expected; });
    }
    std::string m_Heard;
};

} // namespace gui
