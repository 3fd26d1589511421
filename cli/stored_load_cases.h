#pragma once

#include "cli/project.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::cli {

/// The load case under a number, also one of another module. Refuses when there is none.
LCM_StoredLoadCase requireLoadCase(const Project& project, int number);

/// A load case with its pairs unpacked and its action named.
struct LoadCaseFields
{
    int action = 0; ///< action word, an old number replaced by the code of its action
    float gamu = 0, gamf = 0, gama = 0, psi0 = 0, psi1 = 0, psi2 = 0, psi1s = 0;
};
LoadCaseFields fieldsOf(const tagCDB_LC_CTRL& record);

} // namespace mrl::cli
