// A form with a check list of a table and two columns, and a log of its clicks.
#pragma once

#include "controls/CheckList.h"
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

#include <string>
#include <vector>

namespace gui {

constexpr std::u16string_view kChecksLayout =
    u"form\n"
    u"f\t\tfrmChecks\tform\t\t\t6000\t6000\tChecks\t\t\n"
    u"f\tfrmChecks\tLabelFields\tlabel\t150\t150\t3705\t300\tSelect &field(s) to convert:\t\t\n"
    u"f\tfrmChecks\tFields\tchecklist\t150\t450\t3705\t1830\t\t1\tRowHeight=20; Font=CheckList\n"
    u"f\tfrmChecks\tOther\ttext\t150\t3000\t2250\t360\t\t2\tAccessibleName=Other\n";

struct ChecksForm {
    Form Window;
    Label LabelFields;
    CheckList Fields;
    TextBox Other;
    std::vector<std::string> Log;
    ChecksForm() {
        Window.Bind(u"LabelFields", LabelFields)
            .Bind(u"Fields", Fields)
            .Bind(u"Other", Other)
            .Create(kChecksLayout);
        Font bold = Fields.Base.Font();
        bold.Bold = true;
        Fields.AddItem(u"Table: Customers", bold, CheckList::kTable);
        Fields.AddItem(u"CustomerName", Fields.Base.Font(), CheckList::kColumn, 16);
        Fields.AddItem(u"Address", Fields.Base.Font(), CheckList::kColumn, 16);
        Fields.Click = [this] {
            Log.push_back(std::to_string(Fields.ListIndex()) +
                          (Fields.Checked(Fields.ListIndex()) ? " on" : " off"));
        };
        Window.Show();
    }
};

class Checks : public FormTest<ChecksForm> {
protected:
    using Told = std::vector<std::string>;
    HWND List() { return m_Shown->Fields.Base.hWnd(); }
    POINT At(int row, int x = 60) { return ToScreen(List(), Px(x), Px(row * 20 + 10)); }
    void FillTo(int count) {
        m_Ui.Run([&] {
            while (m_Shown->Fields.ListCount() < count)
                m_Shown->Fields.AddItem(u"Row " + text::Decimal(m_Shown->Fields.ListCount()), UiFont());
        });
        m_Ui.Settle();
    }
};

} // namespace gui
