// A module that links what the package links, and does nothing.
#include <pybind11/pybind11.h>

PYBIND11_MODULE(_bare, module) { module.attr("name") = "bare"; }
