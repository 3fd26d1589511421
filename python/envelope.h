#pragma once

/// The combinations of a project, for Python.

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <memory>
#include <vector>

#include "combine/envelope.h"
#include "python/session.h"

namespace mrl::python {

/// Name, kind, title, clause and number of combinations of each situation of the design code.
pybind11::list situationsOf(const Session& session);

/// The combinations of one situation. They stay as they were when the project changes.
class Situation
{
  public:
    Situation(const Session& session, const std::string& name);

    std::string count() const;
    std::string distinct() const;
    /// (key, leading, expression) of each. More than the limit are a Failure.
    pybind11::list combinations(int limit) const;
    /// Remarks about load cases that take no part.
    std::vector<std::string> leftOut() const;

    /// More choices than the limit are a Failure.
    void throwBeyond(int limit) const;

    const combine::Plan& plan() const { return m_plan; }
    const LCM_Situation& words() const { return m_situation; }
    std::string expression(int number) const;

  private:
    std::string m_name;
    combine::Model m_model;
    LCM_Situation m_situation;
    combine::Plan m_plan;
};

using Matrix = pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>;

/// Both extremes of every row of a matrix, valued without the interpreter's lock.
class Extremes
{
  public:
    /// @param matrix a row for each response; @param numbers the load case of each column
    Extremes(std::shared_ptr<Situation> situation, Matrix matrix, std::vector<int> numbers, unsigned threads);

    pybind11::array_t<double> values(bool isMax) const;
    /// The governing combination of a row as (key, leading, expression).
    pybind11::tuple governing(std::size_t row, bool isMax) const;
    /// The different combinations that govern a row, in the order of the rows.
    std::vector<combine::Combination> governing() const;
    const Situation& situation() const { return *m_situation; }

  private:
    std::shared_ptr<Situation> m_situation;
    Matrix m_matrix;
    std::vector<int> m_numbers;
    combine::ManyExtremes m_extremes;
    std::unique_ptr<combine::Envelope> m_envelope;
};

} // namespace mrl::python
