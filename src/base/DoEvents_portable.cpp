#include "base/DoEvents.h"

void DoEvents() {}

void SetDoEventsHooks(const DoEventsHooks&) {}
