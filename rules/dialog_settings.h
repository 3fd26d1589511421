#pragma once

/// Settings of the dialog that other programs read too. The host's application object keeps them as whole
/// numbers.

#include <QString>

inline const auto LCM_SETTINGS_GROUP = QStringLiteral("LF_Manager");
/// The host's wish, which the dialog only reads. 1: the dialog offers more than its plain form; 0 is the default.
inline const auto LCM_SETTING_EXTRAS = QStringLiteral("extras");
/// 1: dead weight is entered by its global components, 0 (the default): as an amount along gravity.
inline const auto LCM_SETTING_GLOBAL_DIRECTIONS = QStringLiteral("checkDeadload");
