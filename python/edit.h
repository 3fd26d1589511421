#pragma once

/// Changes to a project, all of them in one transaction.

#include <pybind11/pybind11.h>

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "exchange/import_plan.h"
#include "python/session.h"

namespace mrl::python {

/// What becomes of a row, as mrl.RowPreview has it.
pybind11::dict dictOf(const exchange::PlannedRow& row);

/// The sheet of a word; a Failure where there is none.
exchange::Sheet sheetOf(const std::string& name);

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
    /// Removes an action that no load case uses.
    /// @return false when there is none; one that has to stay is a Failure
    bool removeAction(const std::string& name);
    /// @return whether there was such a load case
    bool removeCase(int number);
    bool hasCase(int number) const { return m_state.loadCases.count(number) != 0; }
    bool hasAction(const std::string& name) const;
    /// The number behind the highest, as the dialog proposes it.
    int nextNumber() const;
    void commit();

  private:
    /// As it is written when the project has that, else as the dialog would write it.
    std::optional<int> storedCode(const std::string& name) const;

    const Session& m_session;
    std::unique_ptr<cdb::Transaction> m_transaction; ///< rolls back where nobody commits
    exchange::ProjectState m_state;
};

} // namespace mrl::python
