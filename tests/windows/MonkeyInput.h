// What a user may do at any moment, by real mouse and keys.
#pragma once

#include "windows/MonkeyForm.h"

namespace gui {

class MonkeyInput {
public:
    // ui is the thread of the form's windows. Steps are done on the test's own thread.
    MonkeyInput(MonkeyForm& form, UiThread& ui) : m_Form(form), m_Ui(ui) {}
    Step Draw(Dice& dice);
    // The left button is down.
    bool Held() const { return m_Held; }
    void LetGo();

private:
    Step DrawMove(Dice& dice);
    Step DrawKey(Dice& dice);
    void Point(const Control& control, int percentX, int percentY);
    void HoldDown();
    void PressRight();
    bool MayPress() const;

    MonkeyForm& m_Form;
    UiThread& m_Ui;
    bool m_Held = false;
};

} // namespace gui
