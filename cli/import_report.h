#pragma once

#include "exchange/import_plan.h"

namespace mrl::cli {

/// What an import did, or would do.
struct ImportResult
{
    const exchange::Plan& plan;
    const std::vector<exchange::Message>& notes;
    bool applied;
};

/// Prints it row by row, the unchanged rows left out for a person, and the sums.
void reportImport(const ImportResult& result, bool json);

} // namespace mrl::cli
