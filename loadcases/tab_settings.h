#pragma once

/// What the load-case tab remembers between two dialogs.
struct LCM_TabSettings
{
    bool globalDirections = false; ///< "Use global deadload directions"
    bool increment = true;         ///< "Increment loadcases automatically from selected on"
};

/// Reads the settings over what stands in them, which is left alone if the program keeps no settings.
void lcm_read_settings(LCM_TabSettings& settings);
/// Stores the settings if the program keeps any.
void lcm_store_settings(const LCM_TabSettings& settings);
