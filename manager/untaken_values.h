#pragma once

#include <QString>

#include <vector>

#include "actions/paste_help.h"

class QWidget;

/// "3 of 120 values not taken"; empty when all were.
QString lcm_untaken_summary(int values, const std::vector<LCM_UntakenValue>& untaken);

/// Shows which pasted values were not taken, each with its cell and the reason, and waits until it was read.
void lcm_show_untaken(QWidget* parent, const QString& summary, const std::vector<LCM_UntakenValue>& untaken);
