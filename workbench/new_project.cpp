#include "workbench/new_project.h"

#include <QCoreApplication>

#include "hostlib/data/designcode/kept.h"
#include "hostlib/ui/framework/failure_text.h"
#include "hostlib/ui/framework/project_document.h"
#include "lcdata/default_actions.h"
#include "lcdata/system_record.h"
#include "lcdata/values/system_words.h"

namespace mrl::workbench {

namespace {

/// Fills the empty project. @return why not
QString fill(int db, const NewProject& wish)
{
    cdb::Transaction transaction(db);
    if (const auto named = cdb::setFact(db, "designcode", wish.designCode.toStdString()); !named) {
        return ui::failureText(named);
    }
    if (const designcode::Loaded loaded = designcode::ofDatabase(db); loaded.code) {
        if (const auto kept = designcode::keep(db, *loaded.code); !kept) {
            return ui::failureText(kept);
        }
    }
    if (!lcm_write_system(db, lcm_raw_system(wish.systemClass), wish.gravity)) {
        return ui::failureText(cdb::stickyError(db));
    }
    if (wish.withDefaultActions && !lcm_store_default_actions(db)) {
        return QCoreApplication::translate("Workbench", "The default actions could not be stored.");
    }
    return ui::failureText(transaction.commit());
}

} // namespace

QString createProject(const NewProject& wish)
{
    MRL_H_ShadowDatabase document;
    auto& host = document.host();
    if (const auto made = host.create(); !made) {
        return ui::failureText(made);
    }
    QString reason = fill(document.index(), wish);
    if (reason.isEmpty()) {
        reason = ui::failureText(host.saveAs(wish.file));
    }
    host.close();
    return reason;
}

} // namespace mrl::workbench
