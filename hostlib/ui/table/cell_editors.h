#pragma once

/// The editors that the delegate opens in cells, as children of the view.

#include "host/mrl_table.h"

namespace mrl::table {

/// Of a text or a number, with the limits of its column.
QLineEdit* makeLineEditor(QWidget* parent, const MRL_H_TwColumn& column);
/// Of a number that may also be none of its own.
QComboBox* makeEditableCombo(QWidget* parent, const MRL_H_TwColumn& column);
/// Of a choice, with the entries of its column.
MRL_QT4_ComboBox* makeChoice(QWidget* parent, const MRL_H_TwColumn& column);

/// The input of an editor of a text or number, null for the editor of a choice.
QLineEdit* lineEditOf(QWidget* editor);
/// What the editor of a choice needs to show each of its entries in full, in pixels.
int widthOfChoices(const QComboBox& combo);

} // namespace mrl::table
