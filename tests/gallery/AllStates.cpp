// The states of all controls on one sheet, laid out as the design's picture of them.
#include "controls/AdvProgressBar.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

namespace gallery {
namespace {

constexpr int kLeft = 200, kPitch = 128;

void Draw(const Paper& paper) {
    for (int column = 0; column < 5; ++column) {
        const int x = kLeft + column * kPitch;
        paper.Heading(x, 9, kStates[column]);
        DrawField(paper, x, 430, 110, u"- Unicode", column);
    }
    paper.Caption(12, 434, u"Text box");
    paper.Caption(390, 501, u"AdvProgressBar 0 / 43 / 100 %");
    DrawBar(paper, 390, 526, 0);
    DrawBar(paper, 520, 526, 43);
    DrawBar(paper, 650, 526, 100);
}

} // namespace

Sheet AllStates() {
    return {.Name = u"states", .Shows = {&Form::kKind}, .Layout = SheetLayout(860, 560), .Draw = Draw};
}

} // namespace gallery
