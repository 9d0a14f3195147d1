// Tips: balloons over an enabled and a disabled control, and a plain one.
#include "gallery/Sheets.h"

namespace gallery {
namespace {

void Draw(const Paper& paper) {
    paper.Heading(24, 9, u"balloon, enabled");
    paper.Heading(284, 9, u"balloon, disabled");
    paper.Heading(24, 179, u"balloon in the middle of a field");
    paper.Heading(284, 179, u"plain");
}

} // namespace

Sheet Tips() {
    const std::u16string neutral =
        u"ButtonStyle=3; BackColor=NeutralBack; ForeColor=Ink; XPDefaultColors=no; "
        u"XPColor_Hover=HoverNeutral; XPColor_Pressed=FocusNeutral; ";
    return {
        .Name = u"tips",
        .Shows = {},
        .Layout =
            SheetLayout(540, 320) +
            Row(u"On", u"TavrelButton", 24, 130, 100, 30, u"Convert",
                neutral + u"Tag=Convert; ToolTipText=Converts what is in the list|and saves it anew.") +
            Row(u"Off", u"TavrelButton", 284, 130, 100, 30, u"Convert",
                neutral + u"Enabled=no; Tag=Convert; "
                          u"ToolTipText=Converts what is in the list|and saves it anew.") +
            Row(u"Text", u"text", 24, 206, 200, 24, u"- Unicode",
                u"AccessibleName=Suffix; Tag=Suffix; ToolTipText=Stands behind the name|of each output.") +
            Row(u"Plain", u"TavrelButton", 284, 206, 100, 30, u"Browse",
                neutral + u"ToolTipText=Choose a folder"),
        .Draw = Draw,
        .Tips = {u"On", u"Off", u"Text", u"Plain"}};
}

} // namespace gallery
