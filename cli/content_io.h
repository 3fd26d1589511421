#pragma once

#include "cli/command_project.h"
#include "exchange/project_content.h"

namespace mrl::cli {

/// Everything that a project file holds. Throws when it can't be read.
exchange::ProjectContent readContent(const std::string& file);

/// Sets the facts and writes the records of a content; what else the project holds stays.
/// Throws when one can't be written.
void writeContent(const exchange::ProjectContent& content, const Project& project);

/// Makes one key hold just these records; none remove it.
void writeKey(const exchange::RecordKey& key, const exchange::KeyRecords& records, const Project& project);

} // namespace mrl::cli
