#pragma once

/// A picture of what each action contributes to a value, as SVG.

#include <QByteArray>
#include <QString>

#include <vector>

#include "workbench/combinations/terms_model.h"

namespace mrl::workbench {

/// Bars from a common zero line, one for each action in the order of the terms, with its name and value; coloured by what
/// the action is: permanent, leading, accompanying or accidental. The last bar is the sum.
/// @param title what the value is, for the head
QByteArray contributionPicture(const QString& title, const std::vector<TermRow>& terms);

} // namespace mrl::workbench
