#include "gallery/Sheets.h"

namespace gallery {

const std::vector<Sheet>& Sheets() {
    static const std::vector<Sheet> sheets = [] {
        std::vector<Sheet> all = {AllStates(),  Buttons(),  Toggles(),   ProgressBars(), Labels(),
                                  Fields(),     Surfaces(), TextBoxes(), FontLists(),    Lists(),
                                  CheckLists(), Tables(),   Tips()};
        for (Sheet& window : Windows()) all.push_back(std::move(window));
        return all;
    }();
    return sheets;
}

} // namespace gallery
