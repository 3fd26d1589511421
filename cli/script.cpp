#include "cli/script.h"

#include "cli/failure.h"
#include "cli/output.h"
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

int numberOf(const Operation& operation)
{
    const Operation::Field* field = operation.find("number");
    const auto number = field != nullptr && field->kind == Operation::Kind::Whole
                            ? exchange::wholeNumberOf(field->text)
                            : std::nullopt;
    if (!number) {
        fail("\"number\" is missing or no whole number");
    }
    return *number;
}

std::string nameOf(const Operation& operation)
{
    const Operation::Field* name = operation.find("name");
    if (name == nullptr || name->kind != Operation::Kind::Text) {
        fail("\"name\" is missing or no text");
    }
    return name->text;
}

/// A value as the cell of a table: null is empty.
const std::string& cellOf(const Operation::Field& field)
{
    if (field.kind >= Operation::Kind::Boolean) {
        fail("\"" + field.name + "\" is neither text nor number");
    }
    return field.text;
}

std::string numberResult(int number) { return "\"number\":" + std::to_string(number); }

std::string nameResult(const std::string& name) { return "\"name\":" + Json(name).dump(); }

} // namespace

Script::Script(const Project& project) : m_project(project), m_state(exchange::stateOf(project.db())) {}

void Script::run(int number, std::string_view line, std::string& results)
{
    const std::string place = "line " + std::to_string(number) + ": ";
    if (!m_operation.read(line)) {
        m_project.refuse(place + "no JSON object with \"op\"");
    }
    try {
        const std::string op = m_operation.op();
        const std::string result = (this->*memberOf(op))();
        results += "{\"line\":" + std::to_string(number) + ",\"op\":\"" + op + "\"," + result + "}\n";
    } catch (const Failure& failure) {
        const std::string file = m_project.file() + ": ";
        const bool isNamed = failure.text.compare(0, file.size(), file) == 0;
        throw Failure{failure.code, file + place + failure.text.substr(isNamed ? file.size() : 0)};
    }
}

Script::Member Script::memberOf(const std::string& op)
{
    static const std::map<std::string, Member> OPERATIONS{
        {"case create", &Script::createCase},      {"case set", &Script::setCase},
        {"case remove", &Script::removeCase},      {"case renumber", &Script::renumberCases},
        {"action create", &Script::createAction},  {"action set", &Script::setAction},
        {"action remove", &Script::removeActionOf}};
    const auto found = OPERATIONS.find(op);
    if (found == OPERATIONS.end()) {
        fail("there is no operation \"" + op + '"');
    }
    return found->second;
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

/// Plans the fields of the operation as the row of a table, and writes it.
void Script::takeRow(exchange::Sheet sheet)
{
    exchange::TableHead head;
    exchange::Row row;
    head.sheet = sheet;
    head.columns.reserve(m_operation.fields().size());
    row.cells.reserve(m_operation.fields().size());
    for (const Operation::Field& field : m_operation.fields()) {
        if (field.name == "op") {
            continue;
        }
        const int column = columnOf(sheet, field.name);
        if (column < 0) {
            fail("\"" + field.name + "\" is not known here");
        }
        head.columns.push_back(column);
        row.cells.push_back(cellOf(field));
    }
    const exchange::PlannedRow planned = exchange::planRow(m_state, head, row);
    if (planned.outcome == exchange::Outcome::Refused) {
        fail(planned.reasons.front().message.english() + " [" + planned.reasons.front().rule + "]");
    }
    if (!exchange::apply(planned, m_state, m_project.db())) {
        fail(planned.name + " could not be written");
    }
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

std::string Script::createCase()
{
    const bool isGiven = m_operation.find("number") != nullptr;
    const int number = isGiven ? numberOf(m_operation) : nextNumber();
    if (m_state.loadCases.count(number) != 0) {
        fail("load case " + std::to_string(number) + " exists already");
    }
    if (!isGiven) {
        m_operation.set("number").text = std::to_string(number);
    }
    if (m_operation.find("title") == nullptr) {
        m_operation.set("title").text = "Loadcase " + std::to_string(number);
    }
    takeRow(exchange::Sheet::LoadCases);
    return numberResult(number);
}

std::string Script::setCase()
{
    const int number = numberOf(m_operation);
    if (m_state.loadCases.count(number) == 0) {
        fail("there is no load case " + std::to_string(number));
    }
    takeRow(exchange::Sheet::LoadCases);
    return numberResult(number);
}

std::string Script::removeCase()
{
    const int number = numberOf(m_operation);
    if (m_state.loadCases.erase(number) == 0 || !mrl_lc_remove(m_project.db(), number)) {
        fail("there is no load case " + std::to_string(number));
    }
    return numberResult(number);
}

std::string Script::renumberCases()
{
    const Operation::Field* texts = m_operation.find("moves");
    const Operation::Field* force = m_operation.find("force");
    if (texts == nullptr || texts->kind != Operation::Kind::List) {
        fail("\"moves\" is missing or no list");
    }
    const Moves moves = movesOf(texts->list, m_project);
    if (!m_stranded) {
        m_stranded = std::make_unique<StrandedKeys>(m_project);
    }
    const bool isForced =
        force != nullptr && force->kind == Operation::Kind::Boolean && force->text == "true";
    if (const auto stranded = m_stranded->of(moves); !stranded.empty() && !isForced) {
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
    return "\"moved\":" + std::to_string(moves.size());
}

std::string Script::createAction()
{
    const std::string name = nameOf(m_operation);
    const int code = lcm_normalise_code(qtext(name));
    if (m_state.actions.count(code) != 0) {
        fail("action " + name + " is stored already");
    }
    if (m_operation.find("partition") != nullptr) {
        takeRow(exchange::Sheet::Actions);
        return nameResult(name);
    }
    if (m_state.defaultActions.count(code) == 0 || !mrl_lc_create_default_action(m_project.db(), code)) {
        fail("the design code has no action " + name + "; \"partition\" makes one of one's own");
    }
    m_state.actions[code] = {code, m_state.defaultActions.at(code), 0};
    return nameResult(name);
}

std::string Script::setAction()
{
    const std::string name = nameOf(m_operation);
    if (m_state.actions.count(lcm_pack_word(qtext(name))) == 0 &&
        m_state.actions.count(lcm_normalise_code(qtext(name))) == 0) {
        fail("the project has no action " + name);
    }
    takeRow(exchange::Sheet::Actions);
    return nameResult(name);
}

std::string Script::removeActionOf()
{
    const std::string name = nameOf(m_operation);
    removeAction(name, m_project);
    m_state.actions.erase(lcm_pack_word(qtext(name)));
    m_state.actions.erase(lcm_normalise_code(qtext(name)));
    return nameResult(name);
}

} // namespace mrl::cli
