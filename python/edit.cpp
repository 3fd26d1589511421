#include "python/edit.h"

#include <pybind11/stl.h>

#include "exchange/action_removal.h"
#include "exchange/apply_plan.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"

namespace mrl::python {

namespace py = pybind11;

namespace {

using exchange::Sheet;

const char* wordOf(exchange::Outcome outcome)
{
    return outcome == exchange::Outcome::Added       ? "added"
           : outcome == exchange::Outcome::Changed   ? "changed"
           : outcome == exchange::Outcome::Unchanged ? "unchanged"
                                                     : "refused";
}

/// What a column of the dialog is called among the fields of an edit; empty for one that is none.
std::string fieldOfColumn(Sheet sheet, int column)
{
    const bool isLoadCase = sheet == Sheet::LoadCases;
    if (isLoadCase && column == LC_COL_ACTION) {
        return "action";
    }
    if (!isLoadCase && column == ACT_COL_ACTION) {
        return "name";
    }
    const LCM_Factor* factor =
        isLoadCase ? lcm_factor_of_load_case_column(column) : lcm_factor_of_action_column(column);
    return factor == nullptr ? std::string() : factor->key;
}

/// The field that a finding among the reasons is about.
py::object fieldOf(const exchange::PlannedRow& row, const std::string& rule)
{
    for (const LCM_Finding& finding : row.findings) {
        const std::string field = fieldOfColumn(row.sheet, finding.column);
        if (!field.empty() && rule == lcm_rule_id(finding.rule)) {
            return py::str(field);
        }
    }
    return py::none();
}

} // namespace

py::dict dictOf(const exchange::PlannedRow& row)
{
    py::list changes;
    if (row.outcome == exchange::Outcome::Added || row.outcome == exchange::Outcome::Changed) {
        for (const exchange::Change& change : row.changes()) {
            changes.append(py::make_tuple(change.column->name, change.before, change.after));
        }
    }
    py::list reasons;
    for (const exchange::Reason& reason : row.reasons) {
        reasons.append(py::make_tuple(reason.rule, reason.message.english(), fieldOf(row, reason.rule)));
    }
    py::dict out;
    out["sheet"] = exchange::nameOf(row.sheet);
    out["line"] = row.line;
    out["name"] = row.name;
    out["outcome"] = wordOf(row.outcome);
    out["changes"] = changes;
    out["reasons"] = reasons;
    out["notes"] = py::cast(exchange::englishOf(row.notes));
    return out;
}

exchange::Sheet sheetOf(const std::string& name)
{
    for (const Sheet sheet : {Sheet::Actions, Sheet::LoadCases}) {
        if (name == exchange::nameOf(sheet)) {
            return sheet;
        }
    }
    throw Failure("there is no sheet " + name);
}

Edit::Edit(const Session& session) : m_session(session)
{
    if (!session.isWritable()) {
        throw Failure(session.file() + ": the project was opened for reading only");
    }
    m_transaction = std::make_unique<cdb::Transaction>(session.db());
    throwUnless(m_transaction->state());
    m_state = exchange::stateOf(session.db());
}

py::dict Edit::take(const std::string& sheet, const py::dict& fields)
{
    exchange::TableHead head;
    head.sheet = sheetOf(sheet);
    exchange::Row row;
    for (const auto& [key, value] : fields) {
        const auto name = py::cast<std::string>(key);
        const int column = exchange::columnOfHeading(head.sheet, name);
        if (column < 0) {
            throw Failure(name + " is not known among the " + sheet);
        }
        head.columns.push_back(column);
        row.cells.push_back(py::cast<std::string>(value));
    }
    const exchange::PlannedRow planned = exchange::planRow(m_state, head, row);
    if (planned.outcome != exchange::Outcome::Refused && !exchange::apply(planned, m_state, m_session.db())) {
        throw Failure(planned.name + " could not be written");
    }
    return dictOf(planned);
}

py::dict Edit::createAction(const std::string& name)
{
    const int code = lcm_normalise_code(QString::fromStdString(name));
    const auto found = m_state.defaultActions.find(code);
    if (hasAction(name)) {
        throw Failure("action " + name + " is stored already");
    }
    if (found == m_state.defaultActions.end() || !mrl_lc_create_default_action(m_session.db(), code)) {
        throw Failure("the design code has no action " + name);
    }
    m_state.actions[code] = {code, found->second, 0};
    exchange::PlannedRow row;
    row.sheet = Sheet::Actions;
    row.outcome = exchange::Outcome::Added;
    row.name = lcm_code_name(code).toStdString();
    row.id = code;
    row.isNew = true;
    row.action = std::make_unique<exchange::ActionRecords>();
    row.action->wanted = found->second;
    return dictOf(row);
}

std::optional<int> Edit::storedCode(const std::string& name) const
{
    for (const int code :
         {lcm_pack_word(QString::fromStdString(name)), lcm_normalise_code(QString::fromStdString(name))}) {
        if (m_state.actions.count(code) != 0) {
            return code;
        }
    }
    return std::nullopt;
}

bool Edit::removeAction(const std::string& name)
{
    const std::optional<int> code = storedCode(name);
    if (!code) {
        return false;
    }
    const std::string reason = exchange::removeAction(m_session.db(), m_state.actions.at(*code), name);
    if (!reason.empty()) {
        throw Failure(m_session.file() + ": " + reason);
    }
    m_state.actions.erase(*code);
    return true;
}

bool Edit::removeCase(int number)
{
    return m_state.loadCases.erase(number) != 0 && mrl_lc_remove(m_session.db(), number);
}

bool Edit::hasAction(const std::string& name) const { return storedCode(name).has_value(); }

int Edit::nextNumber() const
{
    int next = m_state.loadCases.empty() ? 1 : m_state.loadCases.rbegin()->first + 1;
    while (m_state.foreignNumbers.count(next) != 0) {
        ++next;
    }
    return next;
}

void Edit::commit()
{
    m_session.db(); // throws for what failed so far
    throwUnless(m_transaction->commit());
}

} // namespace mrl::python
