// The only way to windows.h: takes back the macros that clash with names of ours.
#pragma once

#include <windows.h>

#undef DeleteFile
#undef FindText
#undef ReplaceText
#undef Yield
