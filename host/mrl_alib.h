#pragma once

/// The application-data library: the run mode of the package and the names of design codes.

#include <QString>

#include "host/mrl_export.h"

/// The run mode of the package. A bit of mask 24 set: a restricted mode, in which no user-defined action is
/// offered.
MRL_HOST_API int mrl_alib_getLaufModus();

class MRL_HOST_API MRL_A_Normen
{
  public:
    /// The label of the design code of a database, one line. @return an empty text when it has none
    static QString getNormLabelText(int db);
};
