// A form with a button of each style, and a log of what they raise.
#pragma once

#include "controls/Painting.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <algorithm>
#include <string>
#include <vector>

namespace gui {

constexpr std::u16string_view kButtonLayout =
    u"form\n"
    u"f\t\tneutral\tset\t\t\t\t\t\t\tButtonStyle=3; BackColor=NeutralBack; ForeColor=Ink; "
    u"XPDefaultColors=no; "
    u"XPColor_Hover=HoverNeutral; XPColor_Pressed=FocusNeutral\n"
    u"f\t\tfrmButtons\tform\t\t\t6000\t4500\tButtons\t\t\n"
    u"f\tfrmButtons\tBack\tTavrelButton\t150\t150\t1500\t450\tGo &Back\t1\tUse=neutral\n"
    u"f\tfrmButtons\tMain\tTavrelButton\t1800\t150\t1500\t450\t&Convert\t2\tButtonStyle=3; Primary=yes\n"
    u"f\tfrmButtons\tTools\tTavrelButton\t150\t900\t540\t540\t\t3\tButtonStyle=1; Picture=tool-options; "
    u"PictureWidth=24; PictureHeight=24; ToolTipText=Tools and Options\n"
    u"f\tfrmButtons\tCloser\tTavrelButton\t900\t900\t420\t360\tX\t4\tButtonStyle=1; BackColor=Card; "
    u"AccessibleName=Close\n"
    u"f\tfrmButtons\tMore\tTavrelButton\t1800\t900\t2250\t300\tMore software\t5\tButtonStyle=4; "
    u"ForeColor=Link\n"
    u"f\tfrmButtons\tPlain\tTavrelButton\t150\t1650\t1500\t450\tPlain\t6\t\n"
    u"f\tfrmButtons\tText\ttext\t150\t2400\t1500\t360\t\t7\tAccessibleName=Text\n";

struct ButtonForm {
    Form Window;
    std::unique_ptr<TavrelButton> Back = std::make_unique<TavrelButton>();
    TavrelButton Main, Tools, Closer, More, Plain;
    TextBox Text;
    std::vector<std::string> Log;

    ButtonForm() {
        Window.Bind(u"Back", *Back).Bind(u"Main", Main).Bind(u"Tools", Tools).Bind(u"Closer", Closer);
        Window.Bind(u"More", More).Bind(u"Plain", Plain).Bind(u"Text", Text);
        Window.Create(kButtonLayout);
        Window.Show();
    }

    // Every event of the button goes to the log; of the moves only the one behind MouseIn:
    // the system adds some of its own when the mouse is set free.
    void Record(TavrelButton& button) {
        const auto mouse = [this](const char* name) {
            return [this, name](int which, int shift, int, int) {
                Note(std::string(name) + " " + std::to_string(which) + (shift ? "+" : ""));
            };
        };
        const auto key = [this](const char* name) {
            return [this, name](int code, int) { Note(std::string(name) + " " + std::to_string(code)); };
        };
        button.Click = [this] { Note("Click"); };
        button.KeyDown = key("KeyDown");
        button.KeyPress = [this](int ascii) { Note("KeyPress " + std::to_string(ascii)); };
        button.KeyUp = key("KeyUp");
        button.MouseDown = mouse("MouseDown");
        button.MouseUp = mouse("MouseUp");
        button.MouseMove = [this](int, int, int, int) {
            if (!Log.empty() && (Log.back() == "MouseIn" || Log.back() == "pending")) Note("MouseMove");
        };
        button.MouseIn = [this](int) { Note("MouseIn"); };
        button.MouseOut = [this](int) { Note("MouseOut"); };
    }
    void Note(const std::string& what) { Log.push_back(what); }
};

using Events = std::vector<std::string>;

class ButtonTest : public FormTest<ButtonForm> {
protected:
    Events Log() {
        return On([&] { return m_Shown->Log; });
    }
    void ClearLog() {
        m_Ui.Run([&] { m_Shown->Log.clear(); });
    }
    // Waits until the log is as long as expected, then lets everything under way end.
    Events LogOf(std::size_t events) {
        Becomes([&] { return m_Shown->Log.size() >= events; });
        m_Ui.Settle();
        return Log();
    }
    bool Logged(const std::string& event) {
        return Becomes(
            [&] { return std::find(m_Shown->Log.begin(), m_Shown->Log.end(), event) != m_Shown->Log.end(); });
    }
    // The mouse comes to rest over the button; its coming is in the log.
    void Enter(TavrelButton& button) {
        MoveTo(CentreOf(button.Base.hWnd()));
        ASSERT_TRUE(Becomes([&] { return button.State().Hovering; }));
        m_Ui.Settle();
    }
    void Leave(TavrelButton& button) {
        MoveTo({1, 1});
        ASSERT_TRUE(Becomes([&] { return !button.State().Hovering; }));
        m_Ui.Settle();
    }
};

} // namespace gui
