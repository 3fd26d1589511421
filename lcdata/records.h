#pragma once

/// Where programs of version 1.0 look for the records.

#include "lcdata/values/records.h"
