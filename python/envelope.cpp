#include "python/envelope.h"

#include <algorithm>
#include <cmath>

#include "combine/count.h"
#include "combine/decimal.h"
#include "combine/enumerate.h"
#include "combine/project/project_model.h"
#include "combine/remarks.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::python {

namespace py = pybind11;

namespace {

std::shared_ptr<const designcode::DesignCode> codeOf(const Session& session)
{
    const designcode::Loaded loaded = designcode::ofDatabase(session.db());
    if (!loaded.code) {
        throw Failure(session.file() + ": the design code can't be read: " + loaded.reason);
    }
    return loaded.code;
}

py::object orNone(const std::string& text)
{
    return text.empty() ? py::object(py::none()) : py::object(py::str(text));
}

} // namespace

py::list situationsOf(const Session& session)
{
    py::list out;
    for (const LCM_Situation& situation : codeOf(session)->situations) {
        py::dict each;
        each["name"] = situation.name;
        each["kind"] = situation.kind;
        each["title"] = situation.title;
        each["clause"] = situation.clause;
        out.append(each);
    }
    return out;
}

Situation::Situation(const Session& session, const std::string& name) : m_name(name)
{
    const auto code = codeOf(session);
    const auto found = std::find_if(code->situations.begin(), code->situations.end(),
                                    [&](const LCM_Situation& each) { return each.name == name; });
    if (found == code->situations.end()) {
        throw py::key_error(name);
    }
    m_situation = *found;
    m_model = combine::projectModel(session.db(), code->constants).model;
    session.db(); // throws where the project could not be read
    m_plan = combine::plan(m_model, m_situation);
    if (!m_plan.prepared.refused.empty()) {
        std::string text = session.file() + ": nothing is combined before this is mended:";
        for (const std::string& line : combine::gathered(m_plan.prepared.refused)) {
            text += "\n  " + line;
        }
        throw Failure(text);
    }
}

std::string Situation::count() const { return combine::countChoices(m_plan).all.str(); }

std::string Situation::distinct() const { return combine::countDistinct(m_plan).all.str(); }

std::string Situation::expression(int number) const
{
    return m_plan.expressions[static_cast<std::size_t>(number)];
}

py::list Situation::combinations(int limit) const
{
    throwBeyond(limit);
    py::list out;
    combine::enumerate(m_plan, limit, [&](const combine::Combination& each) {
        out.append(py::make_tuple(combine::keyText(each.key), orNone(each.leading),
                                  orNone(expression(each.expression))));
        return true;
    });
    return out;
}

void Situation::throwBeyond(int limit) const
{
    if (combine::countChoices(m_plan).all > limit) {
        throw Failure("situation " + m_name + " has " + count() + " combinations, more than " +
                      std::to_string(limit));
    }
}

std::vector<std::string> Situation::leftOut() const { return combine::gathered(m_plan.prepared.leftOut); }

Extremes::Extremes(std::shared_ptr<Situation> situation, Matrix matrix, std::vector<int> numbers,
                   unsigned threads)
    : m_situation(std::move(situation)), m_matrix(std::move(matrix)), m_numbers(std::move(numbers)),
      m_envelope(std::make_unique<combine::Envelope>(m_situation->plan(), m_numbers))
{
    if (m_matrix.ndim() != 2 || static_cast<std::size_t>(m_matrix.shape(1)) != m_numbers.size()) {
        throw py::value_error("the matrix needs a column for each of the " +
                              std::to_string(m_numbers.size()) + " load cases that are named");
    }
    std::vector<int> missing = m_envelope->missing();
    if (!missing.empty()) {
        std::sort(missing.begin(), missing.end());
        throw py::value_error("there is no column for " + combine::loadCasesText(missing));
    }
    const double* const rows = m_matrix.data();
    const auto count = static_cast<std::size_t>(m_matrix.shape(0));
    std::optional<combine::ManyExtremes> found;
    {
        const py::gil_scoped_release others;
        found = combine::extremesOfAll(m_situation->plan(), m_numbers, rows, count, threads);
    }
    for (std::size_t row = 0; !found && row < count; ++row) {
        if (const auto column = m_envelope->badColumn(rows + row * m_numbers.size())) {
            throw py::value_error("row " + std::to_string(row) + ", load case " +
                                  std::to_string(m_numbers[*column]) + ": no finite number");
        }
    }
    m_extremes = std::move(found).value();
}

py::array_t<double> Extremes::values(bool isMax) const
{
    py::array_t<double> out(static_cast<py::ssize_t>(m_extremes.extremes.size()));
    double* value = out.mutable_data();
    for (const combine::Extremes& each : m_extremes.extremes) {
        const combine::Extreme& extreme = isMax ? each.max : each.min;
        *value++ = extreme.expression < 0 ? NAN : extreme.value;
    }
    return out;
}

py::tuple Extremes::governing(std::size_t row, bool isMax) const
{
    if (row >= m_extremes.extremes.size()) {
        throw py::index_error("there is no response " + std::to_string(row));
    }
    const auto combination = m_envelope->combination(
        m_matrix.data() + row * m_numbers.size(), isMax ? combine::Direction::Max : combine::Direction::Min);
    if (!combination) {
        return py::make_tuple(py::none(), py::none(), py::none());
    }
    return py::make_tuple(combine::keyText(combination->key), orNone(combination->leading),
                          orNone(m_situation->expression(combination->expression)));
}

std::vector<combine::Combination> Extremes::governing() const
{
    combine::GoverningList list(m_situation->plan(), m_numbers);
    for (py::ssize_t row = 0; row < m_matrix.shape(0); ++row) {
        list.add(m_matrix.data() + static_cast<std::size_t>(row) * m_numbers.size());
    }
    return list.combinations();
}

} // namespace mrl::python
