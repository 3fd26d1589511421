#pragma once

/// Tables and combinations of a project as files of other programs, for Python.

#include <pybind11/pybind11.h>

#include <string>

#include "python/envelope.h"
#include "python/session.h"

namespace mrl::python {

/// Plans a file as `mrl-lc import` does, and writes the plan where nothing of it is refused.
/// @param match "number" or "title": by what a row finds its load case
/// @return the rows, as Edit::take tells them, with sheet and line; the last item: whether it was written
pybind11::tuple importTable(const Session& session, const std::string& file, const std::string& format,
                            bool isDryRun, bool createsActions, const std::string& match);

/// The whole project as a file of a format.
pybind11::bytes exported(const Session& session, const std::string& format, const std::string& sheets);

/// Combinations of a situation as a file of a format, each vector of factors once.
/// @param limit of the choices; more are a Failure
pybind11::bytes exportedAll(const Session& session, const Situation& situation, const std::string& format,
                            int limit);
/// Those that govern a row of the responses.
pybind11::bytes exportedGoverning(const Session& session, const Extremes& extremes,
                                  const std::string& format);

} // namespace mrl::python
