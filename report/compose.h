#pragma once

#include "report/project_data.h"
#include "report/report.h"

namespace mrl::report {

struct Wish
{
    QString language;       ///< "en" or "de", which the translations of the program have to fit
    QDate date;             ///< that the report bears
    bool isUnsaved = false; ///< the project differs from its file
};

/// Makes the report of a project. Its rows are made when they are asked for and keep the data alive.
Report compose(const std::shared_ptr<const ProjectData>& data, const Wish& wish);

} // namespace mrl::report
