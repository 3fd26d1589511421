#pragma once

/// What the superposition module keeps among the actions' keys. Its data rests on the actions, so that the
/// user is warned when they change.

/// Whether the first key of the actions' group is one of the superposition module.
bool lcm_has_superposition_keys(int db);
/// Whether the superposition module holds data.
bool lcm_has_superposition_content(int db);
