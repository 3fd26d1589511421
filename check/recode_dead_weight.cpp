#include "check/recode_dead_weight.h"

#include <array>
#include <cstdlib>

#include "rules/load_case_row.h"

namespace {

constexpr std::array<float tagCDB_LC_CTRL::*, 3> COMPONENTS{&tagCDB_LC_CTRL::dlx, &tagCDB_LC_CTRL::dly,
                                                            &tagCDB_LC_CTRL::dlz};
constexpr std::array<const char*, 3> NAMES{"X", "Y", "Z"};

/// The place of gravity's axis among the components, -1 when it is none.
int axisOf(int gravity) { return gravity != 0 && std::abs(gravity) <= 3 ? std::abs(gravity) - 1 : -1; }

} // namespace

std::string lcm_move_dead_weight(tagCDB_LC_CTRL& record, const LCM_RecodeDirections& directions)
{
    const int from = axisOf(directions.oldGravity);
    const int to = axisOf(directions.newGravity);
    if (directions.moves && directions.oldGravity != directions.newGravity && from >= 0 && to >= 0) {
        float& old = record.*COMPONENTS.at(static_cast<std::size_t>(from));
        float& fresh = record.*COMPONENTS.at(static_cast<std::size_t>(to));
        if (old != 0.0f && from != to && fresh != 0.0f) {
            return std::string("has dead weight in ") + NAMES.at(static_cast<std::size_t>(to)) + " already";
        }
        const bool turns = (directions.oldGravity < 0) != (directions.newGravity < 0);
        const float moved = old == 0.0f ? fresh : turns ? -old : old;
        if (from != to && old != 0.0f) {
            old = 0.0f;
        }
        fresh = moved;
    }
    const auto before = lcm_shown_components(directions.oldClass);
    const auto after = lcm_shown_components(directions.newClass);
    for (std::size_t axis = 0; axis < COMPONENTS.size(); ++axis) {
        if (before.at(axis) && !after.at(axis) && record.*COMPONENTS.at(axis) != 0.0f) {
            return std::string("has dead weight in ") + NAMES.at(axis);
        }
    }
    return {};
}
