#pragma once

/// The combinations of the open project: its situations with their plans, and the extremes of responses.

#include <QString>

#include <memory>
#include <string>
#include <vector>

#include "combine/count.h"
#include "combine/envelope.h"
#include "combine/project/project_model.h"

namespace mrl::workbench {

/// What the project can be combined by. Made anew when the document changes; nothing in it changes.
struct ProjectCombinations
{
    struct Planned
    {
        LCM_Situation situation;
        combine::Plan plan;
        combine::BigInt count; ///< of its combinations
    };

    QString problem; ///< why nothing can be combined; empty: it can
    combine::Model model;
    std::vector<Planned> situations;
};

/// Reads actions and load cases of an open database, and the situations of its design code.
std::shared_ptr<const ProjectCombinations> readCombinations(int db);

/// Responses that were read from a file, row behind row.
struct Responses
{
    QString file;
    std::vector<int> numbers; ///< the load case of each column
    std::vector<QString> names;
    std::vector<double> values;

    const double* row(std::size_t response) const { return values.data() + response * numbers.size(); }
};

/// @return the responses, or null and why in `error`
std::shared_ptr<const Responses> readResponses(const QString& file, QString& error);

/// How extremes differ from those before a change of the project, in words; empty where none does.
QString changeText(const Responses& responses, const std::vector<combine::Extremes>& before,
                   const std::vector<combine::Extremes>& after);

} // namespace mrl::workbench
