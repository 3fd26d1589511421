#include "cli/combination_list.h"

#include "cli/failure.h"
#include "cli/progress.h"
#include "combine/count.h"
#include "combine/enumerate.h"

namespace mrl::cli {

namespace {

constexpr int DEFAULT_LIMIT = 10000;

/// Those that govern a response of a file.
std::vector<combine::Combination> governing(const std::string& name, combine::ResponseFile& file,
                                            const combine::Plan& plan)
{
    combine::GoverningList governing(plan, file.numbers());
    Progress progress;
    combine::RawResponse raw;
    combine::Response response;
    while (file.next(raw)) {
        if (const std::string error = file.read(raw, response); !error.empty()) {
            throw Failure{ExitCode::File, name + ": " + error};
        }
        governing.add(response.values.data());
        progress.show(raw.row, file.progress());
    }
    if (!file.error().empty()) {
        throw Failure{ExitCode::File, name + ": " + file.error()};
    }
    return governing.combinations();
}

} // namespace

void CombinationOptions::declare(Arguments& args)
{
    args.text("--situation", situation, Arguments::Need::Optional,
              "Situation of the design code; persistent if not given");
    args.integer("--limit", limit, "List at most so many, more is refused; 10000 if not given");
    args.text("--keep", keep, Arguments::Need::Optional,
              "List only those that govern a response of this file, as for 'envelope'");
    args.text("--numbers", numbers, Arguments::Need::Optional,
              "The load cases of the columns of an NPY file, in a text file");
    args.exclude("--keep", "--limit");
}

PlannedSituation CombinationOptions::plan(const Combinations& combinations) const
{
    return combinations.plan(situation.value_or("persistent"));
}

CombinationList::CombinationList(const std::string& file, const CombinationOptions& options,
                                 const Combinations& combinations, const PlannedSituation& planned)
    : m_planned(planned)
{
    if (options.keep) {
        const auto responses =
            openResponses(*options.keep, options.numbers.value_or(""), combinations, {planned});
        m_governing = governing(*options.keep, *responses, planned.plan);
        return;
    }
    const int limit = options.limit.value_or(DEFAULT_LIMIT);
    m_count = combine::countChoices(planned.plan).all;
    if (m_count > limit) {
        throw Failure{
            ExitCode::Refused,
            file + ": situation " + planned.situation->name + " has " + m_count.str() +
                " combinations, more than " + std::to_string(limit) +
                "; --limit allows more, 'combine --count' only counts, --keep lists those that govern"};
    }
}

void CombinationList::tell(const std::function<void(const combine::Combination&)>& visit) const
{
    if (!m_governing) {
        combine::enumerate(m_planned.plan, m_count, [&](const combine::Combination& combination) {
            visit(combination);
            return true;
        });
        return;
    }
    for (const combine::Combination& combination : *m_governing) {
        visit(combination);
    }
}

} // namespace mrl::cli
