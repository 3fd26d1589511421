#include <array>

#include "host/mrl_dlib.h"
#include "host/mrl_lib.h"
#include "lcdata/factor_marks.h"

namespace {

/// Whether the design-code file of the database has the section of accidental factors. A file that can't be
/// named says nothing against it.
bool hasActionsSection(int db)
{
    constexpr int SIZE = 1024;
    std::array<char, SIZE> file{};
    if (!mrl_lib_designcode_file(db, file.data(), SIZE) || file[0] == '\0') {
        return true;
    }
    int value = 0;
    std::array<char, SIZE> text{};
    return mrl_lib_profile_read(file.data(), "ACTIONS", "", 1, &value, text.data(), SIZE, 0) >= 0;
}

} // namespace

bool MRL_LC_Action_Info::init(int db)
{
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT marks{};
    if (mrl_dlib_lcact_info(0, &marks) < 0) {
        return false;
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const bool marked = marks.*factor.actionField > 0.0f;
        const bool needsSection = factor.kind == LCM_FactorKind::Accidental;
        this->*lcm_mark_of(factor.id) = marked && (!needsSection || hasActionsSection(db));
    }
    return true;
}
