#pragma once

/// Marks what the load-case manager exports. Everything else in it is hidden.
#define MRL_LC_API __attribute__((visibility("default")))
