#pragma once

/// What differs between two projects: facts, actions and load cases by their cells, other records by key.

#include <optional>

#include "exchange/project_content.h"

namespace mrl::exchange {

enum class Difference { Added, Removed, Changed };

/// A value that differs. Of something that is only on one side the other text is empty.
struct DifferentValue
{
    std::string name; ///< of a column, or "bytes"
    std::string before;
    std::string after;
};

struct ProjectDifference
{
    Difference kind = Difference::Changed;
    std::string subject; ///< "fact", "action", "loadcase" or "record"
    std::string name;    ///< of the fact or action, number of the load case, KWH/KWL of the record
    std::vector<DifferentValue> values;
};

/// Facts first, then keys in their order.
std::vector<ProjectDifference> differencesOf(const ProjectContent& before, const ProjectContent& after);

/// What a key stands for.
struct KeySubject
{
    std::string subject;
    std::string name;
};

/// @param records of the key, of either side
KeySubject subjectOf(const RecordKey& key, const KeyRecords& records);

/// Column names and cells of an action or a load case of this system; one value "bytes" for any other key, and for one
/// that holds more than a row tells. Empty for no records.
std::vector<std::pair<std::string, std::string>> valuesOf(const RecordKey& key, const KeyRecords& records);

} // namespace mrl::exchange
