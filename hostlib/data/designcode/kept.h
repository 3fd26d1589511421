#pragma once

/// The design code that a project keeps: the texts of its whole chain as facts, so that it opens on a machine that has
/// no such file, and notices where a file says something else.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/effective.h"

namespace mrl::designcode {

/// Keeps a code in a project, in place of the one that it kept. Runs in the caller's transaction, if there is one.
MRL_HOST_API cdb::Result keep(int db, const DesignCode& code);

/// The code that a project keeps; nothing when it keeps none, or one that can't be read back or doesn't fit its
/// fingerprint.
MRL_HOST_API std::optional<DesignCode> keptCode(int db);

/// The fingerprint of the code that a project keeps under the name that it has; empty when it keeps none.
MRL_HOST_API std::string keptFingerprint(int db);

/// How the code that a project keeps compares with the file of its name.
enum class KeptState {
    None,       ///< the project keeps none: the file holds
    Same,       ///< both say the same
    Differs,    ///< the file says something else; the kept code holds
    FileAbsent, ///< there is no such file, or it can't be read; the kept code holds
    OtherName,  ///< the project names another code than it keeps; the name holds
    Broken      ///< what is kept can't be read; the file holds
};

struct KeptReport
{
    KeptState state = KeptState::None;
    std::string text;                    ///< one line for people; empty when there is nothing to tell
    std::vector<Difference> differences; ///< from the kept code to the file
};

/// What opening a project has to tell of its design code.
MRL_HOST_API KeptReport keptReport(int db);

/// The word of a state in JSON: "same", "file-absent".
MRL_HOST_API const char* wordOf(KeptState state);

} // namespace mrl::designcode
