// Subclassing by message: clients get the messages that they attached, with the window's
// previous procedure called before, after, or not at all.
//
// All bookkeeping stands in properties of the window. With h for the handle and m for the
// message, in decimal digits:
//   h            the previous window procedure
//   "C" h        number of attachments on the window
//   h "#" m "C"  number of clients of the message
//   h "#" m "#" n  client number n (1-based), a pointer without a reference
// A client must detach before it ends; a window that is destroyed lets all of them go.
#pragma once

#include "controls/ISubclass.h"

namespace MSubclass {

enum FailureNumber {
    kCannotSubclass = 13081,
    kAlreadyHandled = 13082,
    kInvalidWindow = 13083,
    kExternalWindow = 13084,
};

// From now on client gets iMsg of hWnd, after those that attached it earlier. Raises one
// of the four failures above, and has then changed nothing.
void AttachMessage(ISubclass& client, HWND hWnd, UINT iMsg);

// Allowed at any time, also by a client inside its own WindowProc. Does nothing where the
// client is not attached or the window is gone.
void DetachMessage(ISubclass& client, HWND hWnd, UINT iMsg);

// Inside a client's WindowProc: calls the window's previous procedure (0 elsewhere).
LRESULT CallOldWindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam);

// The message that is being handed to clients, 0 outside of any WindowProc.
UINT CurrentMessage();

} // namespace MSubclass
