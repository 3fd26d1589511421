#include "python/values.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "exchange/record_cells.h"

namespace mrl::python {

namespace py = pybind11;

py::object numberOf(float stored)
{
    if (stored == LC_UNDEFINED) {
        return py::none();
    }
    if (!std::isfinite(stored)) {
        return py::float_(static_cast<double>(stored));
    }
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, stored).ptr;
    double value = 0;
    std::from_chars(text, end, value);
    return py::float_(value);
}

py::object actionOf(int word)
{
    const std::string name = exchange::actionWordText(word);
    return name.empty() ? py::object(py::none()) : py::object(py::str(name));
}

std::string attributeOf(const LCM_Factor& factor)
{
    std::string name = factor.key;
    name.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(name.front())));
    return name;
}

} // namespace mrl::python
