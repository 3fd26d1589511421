#pragma once

#include <string>
#include <vector>

#include "cli/exit_code.h"

namespace mrl::cli {

/// One thing that is wrong with a project.
struct Finding
{
    std::string subject; ///< "project", "action", "loadcase" or "key"
    std::string name;    ///< name of the action, number of the load case, "KWH/KWL" of the key
    std::string field;   ///< the factor that it is about, such as "Gamf"; empty for the whole
    std::string message;
};

/// Prints the findings for a person or as JSON. @return Refused when there is one
ExitCode report(const std::vector<Finding>& findings, const std::string& file, bool json);

} // namespace mrl::cli
