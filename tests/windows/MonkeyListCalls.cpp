// What a program may call on the lists. A row that is not there is no row to most of them.
#include "windows/MonkeyCalls.h"

namespace gui {
namespace {

Step AddRows(MonkeyForm& form, Dice& dice) {
    const int count = dice.Of({1, 1, 12}), at = dice.Within(-1, 0);
    const bool bold = dice.OneIn(2);
    return {Told("Rows.AddItem", count, "rows at", at, bold), [=, &rows = form.Every.Rows] {
                for (int i = 0; i < count; ++i) rows.AddItem(u"a row of some length", at, -1, bold);
            }};
}

Step RemoveRow(MonkeyForm& form, Dice& dice) {
    const int row = dice.Within(-1, 7);
    return {Told("Rows.Remove", row), [=, &rows = form.Every.Rows] {
                if (row < rows.ListCount()) rows.Remove(row);
            }};
}

Step ClearRows(MonkeyForm& form, Dice&) {
    return {"Rows.Clear", [&] { form.Every.Rows.Clear(); }};
}

Step ChooseRow(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(8);
    return {Told("Rows.ListIndex", row), [&, row] { form.Every.Rows.ListIndex(row); }};
}

Step WriteRow(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(8);
    return {Told("Rows.List and ListBold", row), [=, &rows = form.Every.Rows] {
                if (row >= rows.ListCount()) return;
                rows.List(row, u"written");
                rows.ListBold(row, true);
            }};
}

Step RowsLook(MonkeyForm& form, Dice& dice) {
    const bool full = dice.OneIn(2), hide = dice.OneIn(2);
    const int appearance = dice.Below(2), height = dice.Within(10, 39), gradient = dice.Below(2);
    return {Told("Rows look", full, hide, appearance, height, gradient), [=, &rows = form.Every.Rows] {
                rows.FullRowSelect(full);
                rows.AutoHideScrollBars(hide);
                rows.Appearance(appearance);
                rows.RowHeight(height);
                rows.SelGradient(gradient);
            }};
}

Step AddTicks(MonkeyForm& form, Dice& dice) {
    const int count = dice.Of({1, 1, 12}), picture = dice.Within(-1, 1), indent = dice.Below(20);
    return {Told("Ticks.AddItem", count, "rows", picture, indent), [=, &ticks = form.Every.Ticks] {
                for (int i = 0; i < count; ++i) ticks.AddItem(u"tick", UiFont(), picture, indent);
            }};
}

Step TickRow(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(8);
    const bool ticked = dice.OneIn(2);
    return {Told("Ticks.Checked", row, ticked), [=, &ticks = form.Every.Ticks] {
                if (row < ticks.ListCount()) ticks.Checked(row, ticked);
            }};
}

Step ChooseTick(MonkeyForm& form, Dice& dice) {
    const int row = dice.Within(-1, 7);
    return {Told("Ticks.ListIndex", row), [&, row] { form.Every.Ticks.ListIndex(row); }};
}

Step ClearTicks(MonkeyForm& form, Dice&) {
    return {"Ticks.Clear", [&] { form.Every.Ticks.Clear(); }};
}

Step AddTable(MonkeyForm& form, Dice& dice) {
    const int count = dice.Of({1, 1, 12});
    return {Told("Table.AddItem", count, "rows"), [=, &table = form.Every.Table] {
                for (int i = 0; i < count; ++i) table.AddItem(u"more", u"second");
            }};
}

Step RemoveTable(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(6);
    return {Told("Table.Remove", row), [&, row] { form.Every.Table.Remove(row); }};
}

Step ChooseTable(MonkeyForm& form, Dice& dice) {
    const int row = dice.Within(-1, 6);
    return {Told("Table.ListIndex", row), [&, row] { form.Every.Table.ListIndex(row); }};
}

Step ScrollTable(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(20);
    return {Told("Table.EnsureVisible", row), [&, row] { form.Every.Table.EnsureVisible(row); }};
}

Step WriteTable(MonkeyForm& form, Dice& dice) {
    const int row = dice.Below(6), column = dice.Below(2), head = dice.Below(2);
    return {Told("Table.Text and Header", row, column, head), [=, &table = form.Every.Table] {
                table.Text(row, column, u"written");
                table.Header(head, u"Head");
            }};
}

Step TableSelection(MonkeyForm& form, Dice& dice) {
    const bool hide = dice.OneIn(2);
    return {Told("Table.HideSelection", hide), [&, hide] { form.Every.Table.HideSelection(hide); }};
}

Step ClearTable(MonkeyForm& form, Dice&) {
    return {"Table.Clear", [&] { form.Every.Table.Clear(); }};
}

using Draw = Step (*)(MonkeyForm& form, Dice& dice);
// Clearing is rare: an empty list has little to go wrong.
constexpr Draw kUsual[] = {AddRows,  RemoveRow,  ChooseRow,   ChooseRow,   WriteRow,    RowsLook,
                           AddTicks, TickRow,    ChooseTick,  ChooseTick,  AddTable,    RemoveTable,
                           AddTable, WriteTable, ChooseTable, ChooseTable, ScrollTable, TableSelection};
constexpr Draw kRare[] = {ClearRows, ClearTicks, ClearTable};

} // namespace

Step DrawListCall(MonkeyForm& form, Dice& dice) {
    return dice.OneIn(20) ? dice.Of(kRare)(form, dice) : dice.Of(kUsual)(form, dice);
}

} // namespace gui
