// The conversion of a list of text files, without a window.
#pragma once

#include "base/JobHost.h"
#include "base/ListItems.h"

#include <functional>
#include <string>

class clsConvert;

// What a run needs to know, as plain values; the names in s... are those of the settings.
struct TextBatchSettings {
    // The plug-in: sConvertFrom's in the folder of the program, or the file at pluginPath
    // where that is not empty.
    std::u16string programFolder;
    std::u16string sConvertFrom;
    std::u16string pluginPath;
    // The converter holds the plug-in's table already, and keeps it: what a caller with many
    // short lists sets, since loading takes longer than converting a small file.
    bool tableIsLoaded = false;

    std::u16string sReadEncoding = u"AUTO DETECT ENCODING";
    std::u16string sTextFileNameSuffix = u"- Unicode";
    std::u16string sTextFileSaveFolder = u"SAME";

    // Told of a line that cannot be converted, with the host's Item, Line and Legacy set.
    // True leaves the line as it was and goes on. Without it the failure goes to the caller.
    std::function<bool(const RuntimeFailure&)> LineFailed;
};

// Converts the files of the list, the last one first, each into a new file. Those that got
// through leave the list; those that could not be read or written stay in it, are counted
// in one message at the end, and Done is told why: a failure with the source "ReadTextFile"
// or "WriteTextFile". Failures of LoadTable, Convert and MakeOutputName go to the caller.
void ConvertTextFiles(ListItems& list, clsConvert& converter, const TextBatchSettings& settings,
                      JobHost& host);
