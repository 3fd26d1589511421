#include "cli/import_report.h"

#include "cli/output.h"

namespace mrl::cli {

namespace {

using exchange::Outcome;

constexpr Outcome OUTCOMES[] = {Outcome::Added, Outcome::Changed, Outcome::Unchanged, Outcome::Refused};

const char* wordOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Added:
        return "added";
    case Outcome::Changed:
        return "changed";
    case Outcome::Unchanged:
        return "unchanged";
    case Outcome::Refused:
        break;
    }
    return "refused";
}

std::string clean(const std::string& text) { return printable(QString::fromStdString(text)); }

std::string shown(const std::string& cell) { return cell.empty() ? "-" : clean(cell); }

Json jsonOf(const exchange::PlannedRow& row)
{
    Json out = {{"outcome", wordOf(row.outcome)},
                {"sheet", exchange::nameOf(row.sheet)},
                {"line", row.line},
                {"name", row.name},
                {"number", row.sheet == exchange::Sheet::LoadCases ? Json(row.id) : Json(nullptr)},
                {"changes", Json::array()},
                {"reasons", Json::array()},
                {"notes", Json::array()}};
    const bool isWritten = row.outcome == Outcome::Added || row.outcome == Outcome::Changed;
    for (const exchange::Change& change : isWritten ? row.changes() : std::vector<exchange::Change>()) {
        out["changes"].push_back(
            {{"column", change.column->name}, {"before", change.before}, {"after", change.after}});
    }
    for (const exchange::Reason& reason : row.reasons) {
        out["reasons"].push_back({{"rule", reason.rule}, {"message", reason.message.english()}});
    }
    for (const std::string& note : englishOf(row.notes)) {
        out["notes"].push_back(note);
    }
    return out;
}

void printRow(Output& out, const exchange::PlannedRow& row)
{
    const std::string number =
        row.sheet == exchange::Sheet::LoadCases && row.id != 0 ? std::to_string(row.id) : "";
    const bool tellsNumber = !number.empty() && number != row.name;
    out.line(std::string(wordOf(row.outcome)) + " line " + std::to_string(row.line) + ": " +
             exchange::nameOf(row.sheet) + " " + (tellsNumber ? number + " " : "") + shown(row.name));
    if (row.outcome == Outcome::Changed) {
        for (const exchange::Change& change : row.changes()) {
            out.line("  " + std::string(change.column->name) + ": " + shown(change.before) + " -> " +
                     shown(change.after));
        }
    }
    for (const exchange::Reason& reason : row.reasons) {
        out.line("  " + clean(reason.message.english()) + " [" + reason.rule + "]");
    }
    for (const std::string& note : englishOf(row.notes)) {
        out.line("  note: " + clean(note));
    }
}

void printText(const ImportResult& result)
{
    Output out;
    for (const std::string& note : englishOf(result.notes)) {
        out.line("note: " + clean(note));
    }
    for (const exchange::PlannedRow& row : result.plan.rows) {
        if (row.outcome != Outcome::Unchanged || !row.notes.empty()) {
            printRow(out, row);
        }
    }
    std::string sums;
    for (const Outcome outcome : OUTCOMES) {
        sums +=
            (sums.empty() ? "" : ", ") + std::to_string(result.plan.count(outcome)) + " " + wordOf(outcome);
    }
    out.line(sums + (result.applied ? "" : "; nothing was written"));
    out.line("plan " + result.plan.hash());
    out.finish();
}

void printAsJson(const ImportResult& result)
{
    Json out = {{"applied", result.applied}, {"plan", result.plan.hash()}};
    for (const Outcome outcome : OUTCOMES) {
        out[wordOf(outcome)] = result.plan.count(outcome);
    }
    out["notes"] = Json::array();
    for (const std::string& note : englishOf(result.notes)) {
        out["notes"].push_back(note);
    }
    out["rows"] = Json::array();
    for (const exchange::PlannedRow& row : result.plan.rows) {
        out["rows"].push_back(jsonOf(row));
    }
    printJson(out);
}

} // namespace

void reportImport(const ImportResult& result, bool json) { json ? printAsJson(result) : printText(result); }

} // namespace mrl::cli
