#pragma once

/// What a project holds: actions, load cases, findings and situations.

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include "python/session.h"

namespace mrl::python {

/// The actions by code, each a dictionary with the names of its attributes.
pybind11::list actionsOf(const Session& session);

/// The numbers of the load cases, ascending; those of other modules are left out.
pybind11::list caseNumbersOf(const Session& session);

/// A load case as a dictionary: "effective" holds the factors that count, "source" the action that they come from.
/// @return None where there is none under the number
pybind11::object caseOf(const Session& session, int number);

/// All load cases as a structured array, in one buffer that a single walk fills and that Python then owns. A factor that
/// follows its action is not-a-number, and "follows" tells so factor by factor.
pybind11::array casesArray(const Session& session);

/// The findings of the check as dictionaries, as `mrl-lc check --json` tells them.
pybind11::list findingsOf(const Session& session);

/// The differences between two projects, as `mrl-lc diff --json` tells them.
pybind11::list differencesOf(const Session& before, const Session& after);

/// The design codes on the search path.
pybind11::list codes();

} // namespace mrl::python
