#include "cli/script.h"

#include "cli/failure.h"
#include "cli/own_actions.h"
#include "exchange/apply_plan.h"
#include "exchange/decimals.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/action_code.h"

namespace mrl::cli {

namespace {

/// Why an operation can't be done, without the line.
[[noreturn]] void fail(const std::string& text) { throw Failure{ExitCode::Refused, text}; }

int numberOf(const Json& operation)
{
    const auto number = operation.find("number");
    if (number == operation.end() || !number->is_number_integer()) {
        fail("\"number\" is missing or no whole number");
    }
    return number->get<int>();
}

std::string nameOf(const Json& operation)
{
    const auto name = operation.find("name");
    if (name == operation.end() || !name->is_string()) {
        fail("\"name\" is missing or no text");
    }
    return name->get<std::string>();
}

/// A value as the cell of a table: null is empty.
std::string cellOf(const std::string& name, const Json& value)
{
    if (value.is_null()) {
        return {};
    }
    if (value.is_string()) {
        return value.get<std::string>();
    }
    if (!value.is_number()) {
        fail("\"" + name + "\" is neither text nor number");
    }
    return value.is_number_integer() ? value.dump() : numberText(value.get<float>());
}

} // namespace

Script::Script(const Project& project) : m_project(project), m_state(exchange::stateOf(project.db())) {}

Json Script::run(int number, const std::string& line)
{
    const std::string place = "line " + std::to_string(number) + ": ";
    const Json operation = Json::parse(line, nullptr, false);
    if (!operation.is_object() || !operation.contains("op") || !operation["op"].is_string()) {
        m_project.refuse(place + "no JSON object with \"op\"");
    }
    try {
        Json result;
        result["line"] = number;
        result["op"] = operation["op"];
        result.update(runOperation(operation));
        return result;
    } catch (const Failure& failure) {
        const std::string file = m_project.file() + ": ";
        const bool isNamed = failure.text.compare(0, file.size(), file) == 0;
        throw Failure{failure.code, file + place + failure.text.substr(isNamed ? file.size() : 0)};
    }
}

Json Script::runOperation(const Json& operation)
{
    using Member = Json (Script::*)(const Json&);
    static const std::map<std::string, Member> OPERATIONS{
        {"case create", &Script::createCase},      {"case set", &Script::setCase},
        {"case remove", &Script::removeCase},      {"case renumber", &Script::renumberCases},
        {"action create", &Script::createAction},  {"action set", &Script::setAction},
        {"action remove", &Script::removeActionOf}};
    const auto found = OPERATIONS.find(operation["op"].get<std::string>());
    if (found == OPERATIONS.end()) {
        fail("there is no operation \"" + operation["op"].get<std::string>() + '"');
    }
    return (this->*found->second)(operation);
}

/// As exchange::columnOfHeading; the operations of a script name the same few fields over and over.
int Script::columnOf(exchange::Sheet sheet, const std::string& name)
{
    const auto [known, isNew] = m_columns[sheet == exchange::Sheet::Actions ? 0 : 1].try_emplace(name, 0);
    if (isNew) {
        known->second = exchange::columnOfHeading(sheet, name);
    }
    return known->second;
}

/// Plans the fields of an operation as the row of a table, and writes it.
exchange::PlannedRow Script::takeRow(exchange::Sheet sheet, const Json& operation)
{
    exchange::TableHead head;
    head.sheet = sheet;
    exchange::Row row;
    for (const auto& [name, value] : operation.items()) {
        if (name == "op") {
            continue;
        }
        const int column = columnOf(sheet, name);
        if (column < 0) {
            fail("\"" + name + "\" is not known here");
        }
        head.columns.push_back(column);
        row.cells.push_back(cellOf(name, value));
    }
    exchange::PlannedRow planned = exchange::planRow(m_state, head, row);
    if (planned.outcome == exchange::Outcome::Refused) {
        fail(planned.reasons.front().text + " [" + planned.reasons.front().rule + "]");
    }
    if (!exchange::apply(planned, m_state, m_project.db())) {
        fail(planned.name + " could not be written");
    }
    return planned;
}

/// The number behind the highest, as the dialog proposes it.
int Script::nextNumber() const
{
    int next = m_state.loadCases.empty() ? 1 : m_state.loadCases.rbegin()->first + 1;
    while (m_state.foreignNumbers.count(next) != 0) {
        ++next;
    }
    return next;
}

Json Script::createCase(const Json& operation)
{
    const int number = operation.contains("number") ? numberOf(operation) : nextNumber();
    if (m_state.loadCases.count(number) != 0) {
        fail("load case " + std::to_string(number) + " exists already");
    }
    if (operation.contains("number") && operation.contains("title")) {
        takeRow(exchange::Sheet::LoadCases, operation);
        return {{"number", number}};
    }
    Json whole = operation;
    whole["number"] = number;
    if (!operation.contains("title")) {
        whole["title"] = "Loadcase " + std::to_string(number);
    }
    takeRow(exchange::Sheet::LoadCases, whole);
    return {{"number", number}};
}

Json Script::setCase(const Json& operation)
{
    const int number = numberOf(operation);
    if (m_state.loadCases.count(number) == 0) {
        fail("there is no load case " + std::to_string(number));
    }
    takeRow(exchange::Sheet::LoadCases, operation);
    return {{"number", number}};
}

Json Script::removeCase(const Json& operation)
{
    const int number = numberOf(operation);
    if (m_state.loadCases.erase(number) == 0 || !mrl_lc_remove(m_project.db(), number)) {
        fail("there is no load case " + std::to_string(number));
    }
    return {{"number", number}};
}

Json Script::renumberCases(const Json& operation)
{
    std::vector<std::string> texts;
    for (const Json& text : operation.value("moves", Json::array())) {
        texts.push_back(text.is_string() ? text.get<std::string>() : std::string());
    }
    const Moves moves = movesOf(texts, m_project);
    if (!m_stranded) {
        m_stranded = std::make_unique<StrandedKeys>(m_project);
    }
    if (const auto stranded = m_stranded->of(moves); !stranded.empty() && !operation.value("force", false)) {
        fail("the record " + stranded.front() +
             " of another module would keep its number; \"force\" renumbers");
    }
    renumber(moves, m_project);
    std::map<int, tagCDB_LC_CTRL> moved;
    for (const auto& [from, to] : moves) {
        moved[to] = m_state.loadCases.at(from);
    }
    for (const auto& move : moves) {
        m_state.loadCases.erase(move.first);
    }
    m_state.loadCases.insert(moved.begin(), moved.end());
    return {{"moved", moves.size()}};
}

Json Script::createAction(const Json& operation)
{
    const std::string name = nameOf(operation);
    const int code = lcm_normalise_code(qtext(name));
    if (m_state.actions.count(code) != 0) {
        fail("action " + name + " is stored already");
    }
    if (operation.contains("partition")) {
        takeRow(exchange::Sheet::Actions, operation);
        return {{"name", name}};
    }
    if (m_state.defaultActions.count(code) == 0 || !mrl_lc_create_default_action(m_project.db(), code)) {
        fail("the design code has no action " + name + "; \"partition\" makes one of one's own");
    }
    m_state.actions[code] = {code, m_state.defaultActions.at(code), 0};
    return {{"name", name}};
}

Json Script::setAction(const Json& operation)
{
    const std::string name = nameOf(operation);
    if (m_state.actions.count(lcm_pack_word(qtext(name))) == 0 &&
        m_state.actions.count(lcm_normalise_code(qtext(name))) == 0) {
        fail("the project has no action " + name);
    }
    takeRow(exchange::Sheet::Actions, operation);
    return {{"name", name}};
}

Json Script::removeActionOf(const Json& operation)
{
    const std::string name = nameOf(operation);
    removeAction(name, m_project);
    m_state.actions.erase(lcm_pack_word(qtext(name)));
    m_state.actions.erase(lcm_normalise_code(qtext(name)));
    return {{"name", name}};
}

} // namespace mrl::cli
