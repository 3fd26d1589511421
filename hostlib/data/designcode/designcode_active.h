#pragma once

/// Parsed design codes with their lookups, shared between all databases that name the same file.

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "hostlib/data/designcode/designcode.h"

namespace mrl::designcode {

/// A design code with its default actions found in one step: they are asked for with every load case.
struct IndexedCode
{
    explicit IndexedCode(DesignCode parsed);

    /// The default action of a code or an old number, null when there is none.
    const DefaultAction* find(int codeOrOldNumber) const;

    DesignCode code;
    std::string fingerprint; ///< of the code

  private:
    std::unordered_map<int, std::size_t> m_byCode;
    std::unordered_map<int, std::size_t> m_byOldNumber;
};

struct LoadedIndexed
{
    std::shared_ptr<const IndexedCode> code; ///< null on failure
    std::string reason;                      ///< one line; empty on success
};

/// The file of a name that a project stores. A relative path counts from the project's folder: the current folder of
/// whoever opens it is no part of the project.
MRL_HOST_API std::optional<std::string> fileOfName(int db, const std::string& name);

/// The design code of a database: the one that it keeps, unless the file of its name says the same.
LoadedIndexed indexedOfDatabase(int db);

} // namespace mrl::designcode
