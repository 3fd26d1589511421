#pragma once

/// Marks what the host's libraries export. Everything else in them is hidden.
#define MRL_HOST_API __attribute__((visibility("default")))
