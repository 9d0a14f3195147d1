#include "gallery/Sheets.h"

namespace gallery {

const std::vector<Sheet>& Sheets() {
    static const std::vector<Sheet> sheets = {AllStates(), Buttons(),  Toggles(),   ProgressBars(), Labels(),
                                              Fields(),    Surfaces(), TextBoxes(), FontLists(),    Tables()};
    return sheets;
}

} // namespace gallery
