#include "lcdata/values/packing.h"

#include <cmath>

#include "lcdata/values/records.h"

namespace {

// Towards zero, defined for every value, and never a negative zero: the field's sign bit says something about
// the main value only.
double truncated(double value) { return std::trunc(value) + 0.0; }
float truncated(float value) { return std::trunc(value) + 0.0f; }

} // namespace

float lcm_round_main(float main)
{
    return static_cast<float>(truncated(static_cast<double>(main) * 1000.0 + 0.5) * 0.001);
}

float lcm_add_minor(float field, float minor)
{
    return field + static_cast<float>(static_cast<double>(minor) * 0.0001);
}

float lcm_pack_pair(float main, float minor)
{
    // The comparison comes after the conversion: a main value that only rounds to the undefined one is
    // undefined.
    const float field = lcm_round_main(main);
    return field == LC_UNDEFINED ? LC_UNDEFINED : lcm_add_minor(field, minor);
}

LCM_FactorPair lcm_unpack_pair(float field)
{
    const float main = truncated(field * 1000.0f) / 1000.0f;
    const float rest = field - main;
    const double steps = truncated(static_cast<double>(rest * 5e6f) + 0.5);
    return {main, static_cast<float>(steps) * 0.002f};
}
