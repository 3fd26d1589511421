#include "cli/renumbering.h"

#include <QRegularExpression>

#include <set>

#include "cli/arguments.h"
#include "cli/failure.h"
#include "cli/key_text.h"
#include "cli/project_records.h"
#include "exchange/all_keys.h"
#include "hostlib/data/cdb/move_keys.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

namespace {

std::string caseText(int number) { return "load case " + std::to_string(number); }

void addMove(int from, long long to, const Project& project, Moves& moves)
{
    if (to < 1 || to > LC_MAX_NUMBER) {
        project.refuse(caseText(from) + " can't get the number " + std::to_string(to) +
                       ", which is none from 1 to 999999");
    }
    const auto [at, isNew] = moves.emplace(from, static_cast<int>(to));
    if (!isNew && at->second != to) {
        project.refuse(caseText(from) + " can't get two numbers");
    }
}

void addMoves(const std::string& text, const Project& project, Moves& moves)
{
    static const QRegularExpression FORM(
        QStringLiteral("^(\\d{1,9})(?:-(\\d{1,9}))?(?:=(\\d{1,9})|:([+-]\\d{1,9}))$"));
    const auto match = FORM.match(qtext(text));
    if (!match.hasMatch()) {
        throw Failure{ExitCode::Usage, "'" + text + "' is none of A=B, A-B=C, A-B:+N and A-B:-N"};
    }
    const int first = match.captured(1).toInt();
    const bool isRange = !match.captured(2).isEmpty();
    const long long offset =
        match.captured(4).isEmpty() ? match.captured(3).toLongLong() - first : match.captured(4).toLongLong();
    if (!isRange) {
        addMove(first, first + offset, project, moves);
        return;
    }
    std::vector<int> numbers;
    mrl_lc_list(project.db(), numbers);
    for (const int number : numbers) {
        if (number >= first && number <= match.captured(2).toInt()) {
            addMove(number, number + offset, project, moves);
        }
    }
}

void refuseUnsound(const Moves& moves, const Project& project)
{
    std::set<int> targets;
    for (const auto& [from, to] : moves) {
        if (!requireLoadCase(project, from).isOwn()) {
            project.refuse(caseText(from) + " belongs to another module");
        }
        if (!targets.insert(to).second) {
            project.refuse("two load cases would get the number " + std::to_string(to));
        }
        if (moves.count(to) == 0 && mrl_lc_exists(project.db(), to)) {
            project.refuse(caseText(to) + " exists already");
        }
    }
}

} // namespace

Moves movesOf(const std::vector<std::string>& texts, const Project& project)
{
    Moves moves;
    for (const std::string& text : texts) {
        addMoves(text, project, moves);
    }
    return moves;
}

StrandedKeys::StrandedKeys(const Project& project)
{
    const std::set<int> ours{LC_KWH_CURRENT, LC_KWH_SYSTEM, LC_KWH_CASES, LC_KWH_ACTIONS};
    for (exchange::AllKeys walk(project.db()); walk.next();) {
        if (ours.count(walk.kwh()) == 0) {
            m_keys.emplace(walk.kwl(), keyText(walk.kwh(), walk.kwl()));
        }
    }
}

std::vector<std::string> StrandedKeys::of(const Moves& moves) const
{
    std::vector<std::string> keys;
    for (const auto& [from, to] : moves) {
        const auto [first, last] = m_keys.equal_range(from);
        for (auto key = first; key != last && from != to; ++key) {
            keys.push_back(key->second);
        }
    }
    return keys;
}

void renumber(const Moves& moves, const Project& project)
{
    refuseUnsound(moves, project);
    if (const auto moved = cdb::moveKeys(project.db(), LC_KWH_CASES, moves); !moved) {
        project.refuse(moved.text);
    }
    const auto current = moves.find(mrl_lc_current(project.db()));
    if (current != moves.end()) {
        mrl_lc_set_current(project.db(), current->second);
    }
}

} // namespace mrl::cli
