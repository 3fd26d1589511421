#pragma once

/// A load case that was made by copying another one, as the caller of the manager learns of it. The manager
/// copies the record only; the loads are the caller's.
struct LCM_LoadcaseCopy
{
    int source = -99999; ///< number of the load case copied from
    int target = -99999; ///< number of the new load case
    double factor = 1.0; ///< factor that the user entered, for the caller's use
};
