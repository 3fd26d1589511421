#pragma once

/// Changes to a project, all of them in one transaction.

#include <pybind11/pybind11.h>

#include <memory>
#include <set>
#include <string>

#include "exchange/import_plan.h"
#include "python/session.h"

namespace mrl::python {

/// Each change is judged by the rules of the dialog and written at once; nothing stays unless commit() comes through.
class Edit
{
  public:
    explicit Edit(const Session& session);

    /// Adds or changes an action or a load case.
    /// @param sheet "actions" or "loadcases"; @param fields by heading, values as text
    /// @return a dictionary: name, outcome, changes (of column, before, after), reasons (of rule, text, field), notes
    pybind11::dict take(const std::string& sheet, const pybind11::dict& fields);
    /// Takes an action over from the design code. @return as take
    pybind11::dict createAction(const std::string& name);
    /// @return whether there was such a load case
    bool removeCase(int number);
    bool hasCase(int number) const { return m_state.loadCases.count(number) != 0; }
    bool hasAction(const std::string& name) const;
    /// The number behind the highest, as the dialog proposes it.
    int nextNumber() const;
    void commit();

  private:
    const Session& m_session;
    std::unique_ptr<cdb::Transaction> m_transaction; ///< rolls back where nobody commits
    exchange::ProjectState m_state;
};

/// Plans a file as `mrl-lc import` does, and writes the plan where nothing of it is refused.
/// @return the rows, as Edit::take tells them, with sheet and line; the last item: whether it was written
pybind11::tuple importTable(const Session& session, const std::string& file, const std::string& format,
                            bool isDryRun, bool createsActions);

/// The whole project as a file of a format.
pybind11::bytes exported(const Session& session, const std::string& format, const std::string& sheets);

} // namespace mrl::python
