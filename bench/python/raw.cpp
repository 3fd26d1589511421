// What the figures of the Python package are held against: the same work with nothing around it.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "combine/envelope.h"
#include "combine/project/project_model.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/stored_load_cases.h"

namespace py = pybind11;

namespace {

/// An open project, and its combinations in the persistent situation.
class Raw
{
  public:
    explicit Raw(const std::string& file) : m_db(mrl::cdb::openReadOnly(file).db)
    {
        const auto code = mrl::designcode::ofDatabase(m_db).code;
        m_model = mrl::combine::projectModel(m_db, code->constants).model;
        m_plan = mrl::combine::plan(m_model, code->situations.front());
    }
    ~Raw() { mrl::cdb::close(m_db); }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    /// Goes over all load cases.
    std::int64_t walk() const
    {
        std::int64_t sum = 0;
        for (LCM_LoadCaseWalk walk(m_db); walk.next();) {
            sum += walk.current().number;
        }
        return sum;
    }
    /// Values a matrix on one core.
    double envelope(const py::array_t<double, py::array::c_style>& matrix,
                    const std::vector<int>& numbers) const
    {
        const auto found = mrl::combine::extremesOfAll(m_plan, numbers, matrix.data(),
                                                       static_cast<std::size_t>(matrix.shape(0)), 1);
        return found->extremes.front().max.value;
    }

  private:
    int m_db;
    mrl::combine::Model m_model;
    mrl::combine::Plan m_plan;
};

} // namespace

PYBIND11_MODULE(_raw, module)
{
    py::class_<Raw>(module, "Raw")
        .def(py::init<const std::string&>())
        .def("walk", &Raw::walk)
        .def("envelope", &Raw::envelope);
}
