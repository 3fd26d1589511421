#include "report/factor_columns.h"

#include "lcdata/actions.h"
#include "rules/design_code_label.h"

namespace mrl::report {

std::vector<FactorColumn> plainFactorColumns()
{
    std::vector<FactorColumn> columns;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        columns.push_back({factor.id, QString::fromLatin1(factor.key)});
    }
    return columns;
}

std::vector<FactorColumn> factorColumns(int db)
{
    MRL_LC_Action_Info info;
    info.init(db);
    const QString file = lcm_design_code_file(db).value_or(QString());
    const auto shown = lcm_factor_columns(info, file);
    std::vector<FactorColumn> columns;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (shown[factor.id]) {
            const QString key = QString::fromLatin1(factor.key);
            const QString label = lcm_design_code_label(file, key);
            columns.push_back({factor.id, label.isEmpty() ? key : label});
        }
    }
    return columns;
}

} // namespace mrl::report
