// A form of any layout table, with a live control for each of its rows.
#pragma once

#include "controls/Form.h"
#include "controls/cXPCombo.h"

#include <memory>
#include <string_view>
#include <vector>

namespace gallery {

// Each row gets a control of the row's kind, each array of options one array, each combo its
// skin.
class LayoutForm {
public:
    // layout must live as long as the form.
    explicit LayoutForm(std::u16string_view layout);
    Form Window;

private:
    std::vector<std::shared_ptr<void>> m_Controls;
    std::vector<std::unique_ptr<cXPCombo>> m_Skins;
};

} // namespace gallery
