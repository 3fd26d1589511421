#pragma once

#include <QString>

#include "hostlib/data/cdb/project.h"

namespace mrl::ui {

/// What a person is told of a failure: a sentence in the language of the windows, and below it the file, with
/// the data layer's own reason where that says more than the sentence. Empty when nothing failed.
MRL_HOST_API QString failureText(const cdb::Result& failure);

} // namespace mrl::ui
