// The pass phrase of the plug-in files.
#pragma once

#include <string>

// 128 characters of the ANSI code page, put together one by one at every call; the phrase
// stands nowhere whole. clsConvert and the writer of plug-ins are its only users, and
// neither keeps it.
std::u16string AssemblePassPhrase();
