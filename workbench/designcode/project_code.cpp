#include "workbench/designcode/project_code.h"

#include <QCoreApplication>

#include "exchange/recode.h"
#include "hostlib/data/cdb/move_keys.h"
#include "hostlib/data/designcode/designcode_active.h"
#include "hostlib/data/designcode/kept.h"
#include "hostlib/ui/framework/failure_text.h"
#include "lcdata/values/keys.h"

namespace mrl::workbench {

namespace {

LCM_RecodeCode recodeCodeOf(const designcode::DesignCode& code)
{
    LCM_RecodeCode result;
    result.data.limits = code.availability;
    result.data.identity = {code.ntcode, code.idcode, code.country, code.year};
    for (const designcode::DefaultAction& action : code.actions) {
        result.data.actions.push_back(action.record);
        for (const int number : action.oldNumbers) {
            result.oldNumbers.emplace(number, action.code);
        }
    }
    return result;
}

} // namespace

std::optional<NewCode> newCodeOf(int db, const std::string& name, QString& reason)
{
    const auto file = designcode::fileOfName(db, name);
    auto read = file ? designcode::read(*file) : designcode::ReadResult(designcode::Errors());
    if (auto* code = std::get_if<designcode::DesignCode>(&read)) {
        return NewCode{name, std::move(*code)};
    }
    const auto& errors = std::get<designcode::Errors>(read);
    reason = errors.empty() ? QCoreApplication::translate("Workbench", "there is no design code \"%1\" here")
                                  .arg(QString::fromStdString(name))
                            : QString::fromStdString(errors.front().text());
    return std::nullopt;
}

LCM_RecodePlan planRecode(int db, const NewCode& code, const LCM_RecodeWish& wish)
{
    const designcode::Loaded old = designcode::ofDatabase(db);
    return lcm_plan_recode(exchange::recodeProjectOf(db),
                           old.code ? recodeCodeOf(*old.code) : LCM_RecodeCode(), recodeCodeOf(code.code),
                           wish);
}

QString applyRecode(int db, const LCM_RecodePlan& plan, const NewCode& code)
{
    cdb::Transaction transaction(db);
    if (const std::string failed = exchange::applyRecode(db, plan); !failed.empty()) {
        return ui::failureText(cdb::stickyError(db));
    }
    if (const auto moved = cdb::moveKeys(db, LC_KWH_ACTIONS, plan.moves()); !moved) {
        return ui::failureText(moved);
    }
    if (const auto named = cdb::setFact(db, "designcode", code.name); !named) {
        return ui::failureText(named);
    }
    if (const auto kept = designcode::keep(db, code.code); !kept) {
        return ui::failureText(kept);
    }
    return ui::failureText(transaction.commit());
}

QString keepCode(int db)
{
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    return loaded.code ? ui::failureText(designcode::keep(db, *loaded.code))
                       : QString::fromStdString(loaded.reason);
}

} // namespace mrl::workbench
