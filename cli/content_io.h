#pragma once

#include <utility>

#include "cli/command_project.h"
#include "exchange/project_content.h"

namespace mrl::cli {

/// Everything that a project file holds. Throws when it can't be read.
exchange::ProjectContent readContent(const std::string& file);

/// What two projects hold where they differ, keys and facts alike. Throws when one can't be read.
/// @note Cheap where little differs: both are walked side by side, and nothing is kept of what is equal.
std::pair<exchange::ProjectContent, exchange::ProjectContent> differingContent(const Project& a,
                                                                               const Project& b);

/// Sets the facts and writes the records of a content; what else the project holds stays.
/// Throws when one can't be written.
void writeContent(const exchange::ProjectContent& content, const Project& project);

/// Makes one key hold just these records; none remove it.
void writeKey(const exchange::RecordKey& key, const exchange::KeyRecords& records, const Project& project);

} // namespace mrl::cli
