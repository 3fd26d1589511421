#pragma once

/// The load cases of a project as they are stored. Their group holds records of other modules too.

#include <optional>

#include "lcdata/key_walk.h"
#include "lcdata/values/records.h"

/// Whether a record of the group is this system's.
constexpr bool lcm_is_own_kind(int kind) { return kind == 0 || kind == 1; }

struct LCM_StoredLoadCase
{
    int number = 0; ///< the element of its key
    tagCDB_LC_CTRL
        record{}; ///< the first record of the key; only `kind` is meaningful in that of another module

    bool isOwn() const { return lcm_is_own_kind(record.kind); }
};

/// The load case under a number; nothing when there is none.
std::optional<LCM_StoredLoadCase> lcm_stored_load_case(int db, int number);

/// A walk over the load cases, upward by number; those of other modules too. It holds nothing of the
/// database, and the load case that it stands on may be deleted.
class LCM_LoadCaseWalk
{
  public:
    explicit LCM_LoadCaseWalk(int db) : m_db(db), m_keys(db, LC_KWH_CASES) {}

    /// Steps to the next load case that can be read. @return false when there is no further one
    bool next();
    /// The load case that the walk stands on.
    const LCM_StoredLoadCase& current() const { return m_current; }

  private:
    int m_db;
    LCM_KeyWalk m_keys;
    LCM_StoredLoadCase m_current;
};
