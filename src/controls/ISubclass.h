// What a class implements that wants to see messages of a window (see MSubclass).
#pragma once

#include "base/win.h"

class ISubclass {
public:
    // How a message is to be handled: by the client alone, by the client and then by the
    // window's previous procedure, or the other way round.
    enum Response { kClientAlone = 0, kClientFirst = 1, kPreviousFirst = 2 };

    // Asked for each message, of which MSubclass::CurrentMessage tells the number.
    virtual int MsgResponse() = 0;
    virtual void MsgResponse(int response) = 0;
    virtual LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) = 0;

protected:
    ~ISubclass() = default;
};
