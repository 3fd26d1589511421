#pragma once

/// The structural system and the direction of gravity, as numbers and as words.

#include <array>
#include <string_view>

/// The system class, which says what components of dead weight there are.
enum LCM_SystemClass : int {
    LC_SYSTEM_SPATIAL = 0, ///< X, Y and Z
    LC_SYSTEM_PLANE = 1,   ///< X and Y
    LC_SYSTEM_PLATE = 3    ///< Z
};

struct LCM_System
{
    int id;                ///< an LCM_SystemClass
    int raw;               ///< what the system record of a new project holds
    std::string_view word; ///< in the command line and JSON
};

inline constexpr std::array<LCM_System, 3> LCM_SYSTEMS{{
    {LC_SYSTEM_SPATIAL, 0, "spatial"},
    {LC_SYSTEM_PLANE, 1, "plane"},
    {LC_SYSTEM_PLATE, 20, "plate"},
}};

/// The class of what a system record holds: 0 and 40 and above spatial, 20 to 39 plate, anything else plane.
constexpr int lcm_class_of_raw_system(int raw)
{
    if (raw == 0 || raw > 39) {
        return LC_SYSTEM_SPATIAL;
    }
    return raw < 20 ? LC_SYSTEM_PLANE : LC_SYSTEM_PLATE;
}

/// What the system record of a new project holds for a class.
constexpr int lcm_raw_system(int systemClass)
{
    for (const LCM_System& system : LCM_SYSTEMS) {
        if (system.id == systemClass) {
            return system.raw;
        }
    }
    return 0;
}

/// A direction of gravity.
struct LCM_GravityAxis
{
    int id; ///< 1, 2 and 3 for X, Y and Z, with a sign
    std::string_view word;
};

inline constexpr std::array<LCM_GravityAxis, 6> LCM_GRAVITY_AXES{{
    {1, "+X"},
    {-1, "-X"},
    {2, "+Y"},
    {-2, "-Y"},
    {3, "+Z"},
    {-3, "-Z"},
}};

/// The default direction of a new project.
constexpr int lcm_usual_gravity(int systemClass)
{
    return systemClass == LC_SYSTEM_PLANE ? -2 : -3; // dead weight of a plane system acts in its plane
}
