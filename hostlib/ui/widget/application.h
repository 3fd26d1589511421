#pragma once

/// The application's own stored settings, for the parts of the user-interface library.

#include <QByteArray>
#include <QString>

#include "host/mrl_export.h"

namespace mrl::ui {

/// The size and place of a window as they were stored last. @return empty when nothing is stored
MRL_HOST_API QByteArray storedGeometry(const QString& group, const QString& key);
MRL_HOST_API void storeGeometry(const QString& group, const QString& key, const QByteArray& geometry);

/// Switches the package's experimental functions for this user. The environment variable MRL_EXPERIMENTAL,
/// where it is set to something else than 0, switches them on for one run.
MRL_HOST_API void setExperimental(bool on);

} // namespace mrl::ui
