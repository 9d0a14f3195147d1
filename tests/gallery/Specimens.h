// One control in one state, as several sheets show it. Places in pixels of 96 DPI, columns
// as in kStates.
#pragma once

#include "controls/CheckList.h"
#include "controls/McListBox.h"
#include "controls/TavrelButton.h"
#include "controls/Toggle.h"
#include "gallery/Sheet.h"

namespace gallery {
// Looks of the design; BackColor and the rest, without a state.
TavrelButtonState PrimaryButton(const Paper& paper, std::u16string_view caption);
TavrelButtonState NeutralButton(const Paper& paper, std::u16string_view caption);
TavrelButtonState FlatButton(const Paper& paper, std::u16string_view caption); // style 1
TavrelButtonState LinkButton(const Paper& paper, std::u16string_view caption); // style 4
void DrawButton(const Paper& paper, int left, int top, int width, int height, TavrelButtonState look,
                int column);

// 110 by 22.
void DrawToggleIn(const Paper& paper, int left, int top, ToggleKind kind, int value, int column);
void DrawField(const Paper& paper, int left, int top, int width, std::u16string_view text, int column);
void DrawComboIn(const Paper& paper, int left, int top, int width, std::u16string_view text, int column);
// Five tasks with their pictures, without a state.
McListBoxState TaskList(const Paper& paper);
void DrawListIn(const Paper& paper, int left, int top, int width, int height, McListBoxState look);
// Tables and columns, some of them ticked.
void FillTree(CheckList& tree);
void DrawBar(const Paper& paper, int left, int top, int percent); // 118 by 18
} // namespace gallery
