#pragma once

#include <string>

#include "cli/output.h"
#include "lcdata/key_walk.h"
#include "lcdata/records.h"

namespace mrl::cli {

/// One load case as it is stored.
struct StoredLoadCase
{
    int number = 0;
    tagCDB_LC_CTRL record{};
    int length = 0; ///< of the first record in bytes, as far as the reader's buffer reaches

    /// False for a load case of another module, of whose record only the kind has a meaning here.
    bool own() const { return record.kind == 0 || record.kind == 1; }
};

/// The load cases of a project, ascending by number; those of other modules too.
class LoadCaseReader
{
  public:
    explicit LoadCaseReader(int index) : db(index), walk(index, LC_KWH_CASES) {}

    bool next();
    const StoredLoadCase& current() const { return loadCase; }

  private:
    int db;
    LCM_KeyWalk walk;
    StoredLoadCase loadCase;
};

/// Reads one load case. @return false when there is none
bool readLoadCase(int db, int number, StoredLoadCase& loadCase);

/// A load case with its pairs unpacked and its action named.
struct LoadCaseFields
{
    int action = 0; ///< action word, an old number replaced by the code of its action
    float gamu = 0, gamf = 0, gama = 0, psi0 = 0, psi1 = 0, psi2 = 0, psi1s = 0;
};
LoadCaseFields fieldsOf(const tagCDB_LC_CTRL& record);

/// The fields of a load case that --json prints; all but number, kind and current are null for one of another
/// module.
Json loadCaseJson(const StoredLoadCase& loadCase, int currentNumber);

} // namespace mrl::cli
