#pragma once

/// Values of records as Python has them.

#include <pybind11/pybind11.h>

#include <string>

#include "lcdata/values/factors.h"

namespace mrl::python {

/// The shortest decimal of a stored number: 0.7 and not 0.699999988. None for the undefined value.
pybind11::object numberOf(float stored);

/// The name of an action word: None for no action, "IMP" for an imperfection.
pybind11::object actionOf(int word);

/// "gamu" for the factor Gamu: its name as an attribute.
std::string attributeOf(const LCM_Factor& factor);

} // namespace mrl::python
