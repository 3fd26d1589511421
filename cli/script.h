#pragma once

/// Many operations on one project, each a line of JSON.

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "cli/command_project.h"
#include "cli/operation.h"
#include "cli/renumbering.h"
#include "exchange/import_plan.h"

namespace mrl::cli {

/// Does operations one upon the other within the transaction of the project. docs/exchange.md tells their fields.
class Script
{
  public:
    explicit Script(const Project& project);

    /// Does the operation of a line and appends what came of it, a line of JSON. Throws Failure with the line's number
    /// when it can't be done.
    void run(int number, std::string_view line, std::string& results);

  private:
    /// Each returns its own field of the result, as JSON.
    using Member = std::string (Script::*)();

    std::string createCase();
    std::string setCase();
    std::string removeCase();
    std::string renumberCases();
    std::string createAction();
    std::string setAction();
    std::string removeActionOf();
    static Member memberOf(const std::string& op);
    int columnOf(exchange::Sheet sheet, const std::string& name);
    void takeRow(exchange::Sheet sheet);
    int nextNumber() const;

    const Project& m_project;
    Operation m_operation; ///< of the line that is being done
    exchange::ProjectState m_state;
    std::map<std::string, int> m_columns[2];  ///< by name, of actions and of load cases
    std::unique_ptr<StrandedKeys> m_stranded; ///< read when the first renumbering comes
};

} // namespace mrl::cli
