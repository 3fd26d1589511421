#include "workbench/new_project.h"

#include <QCoreApplication>

#include <array>
#include <cstring>
#include <vector>

#include "hostlib/ui/framework/document.h"
#include "hostlib/ui/framework/failure_text.h"
#include "lcdata/actions.h"
#include "lcdata/keys.h"

namespace mrl::workbench {

namespace {

constexpr int SYSTEM_RECORD_BYTES = 352;

cdb::Result writeSystemRecord(int db, const NewProject& wish)
{
    std::array<char, SYSTEM_RECORD_BYTES> record{};
    const std::int32_t words[] = {wish.rawSystemClass, wish.gravity};
    std::memcpy(record.data(), words, sizeof words);
    const int length = SYSTEM_RECORD_BYTES;
    mrl_cdb_put(db, LC_KWH_SYSTEM, 0, record.data(), &length, 0);
    mrl_cdb_free_ex(db, LC_KWH_SYSTEM, 0);
    return cdb::stickyError(db);
}

bool storeDefaultActions(int db)
{
    std::vector<int> codes;
    mrl_lc_get_default_action_list(db, codes);
    bool all = true;
    for (const int code : codes)
        all = mrl_lc_create_default_action(db, code) && all;
    return all;
}

/// Fills the empty project. @return why not
QString fill(int db, const NewProject& wish)
{
    cdb::Transaction transaction(db);
    if (const auto named = cdb::setFact(db, "designcode", wish.designCode.toStdString()); !named)
        return ui::failureText(named);
    if (const auto written = writeSystemRecord(db, wish); !written)
        return ui::failureText(written);
    if (wish.withDefaultActions && !storeDefaultActions(db))
        return QCoreApplication::translate("Workbench", "The default actions could not be stored.");
    return ui::failureText(transaction.commit());
}

} // namespace

QString createProject(const NewProject& wish)
{
    MRL_H_ShadowDatabase document;
    auto& host = document.host();
    if (const auto made = host.create(); !made)
        return ui::failureText(made);
    QString reason = fill(document.index(), wish);
    if (reason.isEmpty())
        reason = ui::failureText(host.saveAs(wish.file));
    host.close();
    return reason;
}

} // namespace mrl::workbench
