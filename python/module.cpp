// The module mrl._core: what the package mrl is made of. Its contract stands in mrl/_core.pyi.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "exchange/decimals.h"
#include "python/edit.h"
#include "python/envelope.h"
#include "python/reading.h"
#include "python/tables.h"

namespace py = pybind11;
using namespace mrl::python;

PYBIND11_MODULE(_core, module)
{
    py::register_exception<Failure>(module, "Error");

    py::class_<Session>(module, "Session")
        .def(py::init<const std::string&, bool>())
        .def("close", &Session::close)
        .def_property_readonly("is_open", &Session::isOpen)
        .def_property_readonly("file", &Session::file)
        .def_property_readonly("is_writable", &Session::isWritable)
        .def("facts", &Session::facts)
        .def("actions", &actionsOf)
        .def("case_numbers", &caseNumbersOf)
        .def("case", &caseOf)
        .def("cases_array", &casesArray)
        .def("findings", &findingsOf)
        .def("situations", &situationsOf)
        .def("exported", &exported)
        .def("import_table", &importTable);

    py::class_<Edit>(module, "Edit")
        .def(py::init<const Session&>(), py::keep_alive<1, 2>())
        .def("take", &Edit::take)
        .def("create_action", &Edit::createAction)
        .def("remove_action", &Edit::removeAction)
        .def("remove_case", &Edit::removeCase)
        .def("has_case", &Edit::hasCase)
        .def("has_action", &Edit::hasAction)
        .def("next_number", &Edit::nextNumber)
        .def("commit", &Edit::commit);

    py::class_<Situation, std::shared_ptr<Situation>>(module, "Situation")
        .def(py::init<const Session&, const std::string&>())
        .def("count", &Situation::count)
        .def("distinct", &Situation::distinct)
        .def("combinations", &Situation::combinations)
        .def("left_out", &Situation::leftOut);

    py::class_<Extremes>(module, "Extremes")
        .def(py::init<std::shared_ptr<Situation>, Matrix, std::vector<int>, unsigned>())
        .def("values", &Extremes::values)
        .def("governing", py::overload_cast<std::size_t, bool>(&Extremes::governing, py::const_));

    module.def("exported_all", &exportedAll);
    module.def("exported_governing", &exportedGoverning);
    module.def("differences", &differencesOf);
    module.def("codes", &codes);
    module.def("number_text", &mrl::exchange::numberText);
}
