#include "gallery/Specimens.h"

#include "controls/AdvProgressBar.h"
#include "controls/FieldFrame.h"
#include "controls/Painting.h"

namespace gallery {

void DrawField(const Paper& paper, int left, int top, int width, std::u16string_view text, int column) {
    const bool enabled = column != kDisabled;
    FieldFrame::Draw(paper.Dc, paper.Place(left, top, width, 24), paper.Dpi,
                     {.Focused = column == kFocused, .Enabled = enabled});
    // The text itself is the system's.
    RECT inside = paper.Place(left + 6, top, width - 12, 24);
    DrawTextIn(paper.Dc, paper.Ui.Get(), text, inside, FieldFrame::Ink(enabled),
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void DrawBar(const Paper& paper, int left, int top, int percent) {
    DrawAdvProgressBar(paper.Dc, paper.Place(left, top, 118, 18),
                       {.Value = percent,
                        .ShowText = true,
                        .Style = 2,
                        .Appearance = 0,
                        .TextColor = palette::Ink,
                        .BarColor1 = palette::Bar1,
                        .BarColor2 = palette::Bar2,
                        .BackColor = palette::Track,
                        .Font = paper.Bar.Get(),
                        .Dpi = paper.Dpi});
}

} // namespace gallery
