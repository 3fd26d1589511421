#pragma once

/// Many operations on one project, each a line of JSON.

#include <map>
#include <memory>

#include "cli/command_project.h"
#include "cli/output.h"
#include "cli/renumbering.h"
#include "exchange/import_plan.h"

namespace mrl::cli {

/// Does operations one upon the other within the transaction of the project. docs/exchange.md tells their fields.
class Script
{
  public:
    explicit Script(const Project& project);

    /// Does the operation of a line. Throws Failure with the line's number when it can't be done.
    /// @return what came of it
    Json run(int number, const std::string& line);

  private:
    Json runOperation(const Json& operation);
    Json createCase(const Json& operation);
    Json setCase(const Json& operation);
    Json removeCase(const Json& operation);
    Json renumberCases(const Json& operation);
    Json createAction(const Json& operation);
    Json setAction(const Json& operation);
    Json removeActionOf(const Json& operation);
    int columnOf(exchange::Sheet sheet, const std::string& name);
    exchange::PlannedRow takeRow(exchange::Sheet sheet, const Json& operation);
    int nextNumber() const;

    const Project& m_project;
    exchange::ProjectState m_state;
    std::map<std::string, int> m_columns[2];  ///< by name, of actions and of load cases
    std::unique_ptr<StrandedKeys> m_stranded; ///< read when the first renumbering comes
};

} // namespace mrl::cli
