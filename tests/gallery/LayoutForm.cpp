#include "gallery/LayoutForm.h"

#include "base/Text.h"
#include "controls/AdvProgressBar.h"
#include "controls/CheckBox.h"
#include "controls/CheckList.h"
#include "controls/ComboBox.h"
#include "controls/Dialog.h"
#include "controls/FontCombo.h"
#include "controls/McImageList.h"
#include "controls/McListBox.h"
#include "controls/OptionButtonC.h"
#include "controls/PasteBox.h"
#include "controls/PictureBox.h"
#include "controls/ResultBox.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/TwoColumnList.h"
#include "controls/modXPCombo.h"

#include <algorithm>

namespace gallery {
namespace {

// Makes a control and joins it to the row of that name.
template <class Class>
std::shared_ptr<void> Make(Form& form, std::u16string_view name) {
    auto control = std::make_shared<Class>();
    form.Bind(name, *control);
    return control;
}

// The options of an array clear each other.
template <std::size_t Count>
std::shared_ptr<void> MakeOptions(Form& form, std::u16string_view name) {
    struct Options {
        OptionButtonC All[Count];
    };
    auto options = std::make_shared<Options>();
    form.Bind(name, options->All);
    return options;
}

struct Maker {
    const ControlKind& Kind;
    std::shared_ptr<void> (*Make)(Form& form, std::u16string_view name);
};
// Labels, lines and frames are made by the form itself.
const Maker kMakers[] = {
    {TextBox::kKind, Make<TextBox>},
    {ComboBox::kKind, Make<ComboBox>},
    {TavrelButton::kKind, Make<TavrelButton>},
    {CheckBox::kKind, Make<CheckBox>},
    {PasteBox::kKind, Make<PasteBox>},
    {ResultBox::kKind, Make<ResultBox>},
    {FontCombo::kKind, Make<FontCombo>},
    {TwoColumnList::kKind, Make<TwoColumnList>},
    {McListBox::kKind, Make<McListBox>},
    {CheckList::kKind, Make<CheckList>},
    {Dialog::kKind, Make<Dialog>},
    {PictureBox::kKind, Make<PictureBox>},
    {AdvProgressBar::kKind, Make<AdvProgressBar>},
    {McImageList::kKind, Make<McImageList>},
    {Timer::kKind, Make<Timer>},
};

const Maker* MakerOf(std::u16string_view kind) {
    for (const Maker& maker : kMakers) {
        const auto words = text::Split(maker.Kind.LayoutKinds, u"|");
        if (std::find(words.begin(), words.end(), kind) != words.end()) return &maker;
    }
    return nullptr;
}

} // namespace

LayoutForm::LayoutForm(std::u16string_view layout) {
    for (const LayoutRow& row : ParseLayout(layout)) {
        if (row.Index == 0 && row.Kind == OptionButtonC::kKind.LayoutKinds)
            m_Controls.push_back(
                (row.Name == u"OptionTask" ? MakeOptions<5> : MakeOptions<2>)(Window, row.Name));
        else if (const Maker* maker = MakerOf(row.Kind))
            m_Controls.push_back(maker->Make(Window, row.Name));
    }
    Window.Create(layout);
    for (Control* control : Window.Controls()) {
        if (!control->As<ComboBox>() && !control->As<FontCombo>()) continue;
        m_Skins.push_back(std::make_unique<cXPCombo>());
        modXPCombo::ApplySkin(*m_Skins.back(), *control);
    }
}

} // namespace gallery
