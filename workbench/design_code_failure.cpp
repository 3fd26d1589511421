#include "workbench/design_code_failure.h"

#include <QCoreApplication>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::workbench {

QString designCodeFailure(int db)
{
    const auto loaded = designcode::ofDatabase(db);
    if (loaded.code) {
        return QString();
    }
    const std::string name = cdb::fact(db, "designcode");
    if (name.empty()) {
        return QCoreApplication::translate("Workbench", "the project names no design code");
    }
    if (!designcode::fileOfDatabase(db)) {
        return QCoreApplication::translate("Workbench",
                                           "there is no design code \"%1\" in the folders that are searched")
            .arg(QString::fromStdString(name));
    }
    return QString::fromStdString(loaded.reason);
}

} // namespace mrl::workbench
