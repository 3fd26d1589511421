#include "python/tables.h"

#include <algorithm>
#include <memory>

#include "combine/enumerate.h"
#include "exchange/apply_plan.h"
#include "exchange/file_writing.h"
#include "exchange/situation_table.h"
#include "python/edit.h"

namespace mrl::python {

namespace py = pybind11;

namespace {

using exchange::Sheet;

const exchange::Format& formatOf(const std::string& name, const std::string& file, std::string_view bytes)
{
    const exchange::Format* format =
        name.empty() ? exchange::formatOfFile(file, bytes) : exchange::formatOfName(name);
    if (format == nullptr && !name.empty()) {
        throw Failure("there is no format " + name);
    }
    return format == nullptr ? *exchange::formats().front() : *format;
}

exchange::Match matchOf(const std::string& word)
{
    if (word != "number" && word != "title") {
        throw py::value_error(R"(match is "number" or "title", not )" + word);
    }
    return word == "title" ? exchange::Match::Title : exchange::Match::Number;
}

exchange::Source sourceOf(const Session& session)
{
    exchange::Source source;
    source.db = session.db();
    source.facts = session.facts();
    const std::string& path = session.file();
    const std::string name = path.substr(path.find_last_of('/') + 1);
    source.name = name.substr(0, name.find_last_of('.'));
    return source;
}

/// The bytes that a format writes.
py::bytes collected(const Session& session, const exchange::WriteBytes& write)
{
    std::string bytes;
    const auto error = write([&](std::string_view piece) {
        bytes += piece;
        return true;
    });
    if (error) {
        throw Failure(session.file() + ": " + error->message.english());
    }
    session.db(); // throws where the project could not be read
    return py::bytes(bytes);
}

py::bytes exportedTable(const Session& session, const exchange::CombinationTable& table,
                        const std::string& format)
{
    return collected(session, [&](const exchange::Sink& sink) {
        return formatOf(format, {}, {}).writeCombinations(sourceOf(session), table, {}, sink);
    });
}

exchange::ReadTables readOf(const std::string& file, const std::string& format, exchange::Match match)
{
    exchange::FormatOptions options;
    options.byTitle = match == exchange::Match::Title;
    const std::string bytes =
        py::cast<std::string>(py::module_::import("pathlib").attr("Path")(file).attr("read_bytes")());
    auto read = exchange::readTables(formatOf(format, file, bytes), bytes, options);
    if (const auto* error = std::get_if<exchange::FormatError>(&read)) {
        throw Failure(file + ": " + error->message.english());
    }
    return std::get<exchange::ReadTables>(std::move(read));
}

} // namespace

py::tuple importTable(const Session& session, const std::string& file, const std::string& format,
                      bool isDryRun, bool createsActions, const std::string& match)
{
    exchange::PlanOptions options;
    options.match = matchOf(match);
    options.createActions = createsActions;
    const exchange::ReadTables read = readOf(file, format, options.match);
    std::unique_ptr<cdb::Transaction> transaction;
    if (!isDryRun) {
        transaction = std::make_unique<cdb::Transaction>(session.db());
        throwUnless(transaction->state());
    }
    const exchange::ProjectState state = exchange::stateOf(session.db());
    const exchange::Plan plan = exchange::planOf(state, read.tables, options);
    py::list rows;
    for (const exchange::PlannedRow& row : plan.rows) {
        rows.append(dictOf(row));
    }
    const bool isTaken = !isDryRun && plan.count(exchange::Outcome::Refused) == 0;
    if (isTaken) {
        if (const exchange::PlannedRow* failed = exchange::apply(plan, state, session.db())) {
            throw Failure(failed->name + " could not be written");
        }
        session.db();
        throwUnless(transaction->commit());
    }
    return py::make_tuple(rows, isTaken);
}

py::bytes exported(const Session& session, const std::string& format, const std::string& sheets)
{
    const exchange::Format& used = formatOf(format, {}, {});
    exchange::Source source = sourceOf(session);
    if (!sheets.empty()) {
        source.sheets = {sheetOf(sheets)};
    } else {
        source.whole = true;
        source.sheets = {Sheet::LoadCases};
        if (used.holdsManySheets()) {
            source.sheets.insert(source.sheets.begin(), Sheet::Actions);
        }
    }
    return collected(session, [&](const exchange::Sink& sink) { return used.write(source, {}, sink); });
}

py::bytes exportedAll(const Session& session, const Situation& situation, const std::string& format,
                      int limit)
{
    situation.throwBeyond(limit);
    const auto tell = [&](const exchange::VisitCombination& visit) {
        combine::enumerate(situation.plan(), limit, [&](const combine::Combination& each) {
            visit(each);
            return true;
        });
    };
    return exportedTable(session, exchange::situationTable(situation.words(), situation.plan(), tell),
                         format);
}

py::bytes exportedGoverning(const Session& session, const Extremes& extremes, const std::string& format)
{
    const std::vector<combine::Combination> governing = extremes.governing();
    const auto tell = [&](const exchange::VisitCombination& visit) {
        std::for_each(governing.begin(), governing.end(), visit);
    };
    const Situation& situation = extremes.situation();
    return exportedTable(session, exchange::situationTable(situation.words(), situation.plan(), tell),
                         format);
}

} // namespace mrl::python
