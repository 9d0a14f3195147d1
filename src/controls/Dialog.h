// The system's dialogs for opening and saving files.
#pragma once

#include "controls/Control.h"

// Numbers of failures. Others are 32767 less the dialog's own error number.
constexpr int kDialogCancelled = 32755;

class Dialog {
public:
    Dialog() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    std::u16string DialogTitle;
    // In: what the name box shows. Out: the whole path; with multiple selection the folder
    // and the names, NULs between them.
    std::u16string FileName;
    std::u16string InitDir;
    std::u16string Filter; // "Text files (*.txt)|*.txt", pairs one behind the other
    std::u16string DefaultExt;
    unsigned Flags = 0;       // as the system's own, OFN_...
    bool CancelError = false; // a cancel raises failure 32755; else FileName stays as it is

    // They move the process's current directory, as the system does.
    void ShowOpen();
    void ShowSave();

private:
    void Show(bool save);
};
