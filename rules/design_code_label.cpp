#include "rules/design_code_label.h"

#include <array>

#include "host/mrl_lib.h"
#include "lcdata/factor_marks.h"

namespace {

constexpr int FILE_NAME_BYTES = 1024;
constexpr int LABEL_BYTES = 20;

} // namespace

std::optional<QString> lcm_design_code_file(int db)
{
    std::array<char, FILE_NAME_BYTES> file{};
    if (!mrl_lib_designcode_file(db, file.data(), FILE_NAME_BYTES)) {
        return std::nullopt;
    }
    return QString::fromUtf8(file.data());
}

QString lcm_design_code_label(const QString& file, const QString& key)
{
    const QByteArray entry = lcm_label_key(key).toUtf8();
    int value = 0;
    std::array<char, LABEL_BYTES + 1> label{}; // a label that fills the buffer has no closing zero
    mrl_lib_profile_read(file.toUtf8().constData(), "ACTIONS", entry.constData(), 1, &value, label.data(),
                         LABEL_BYTES, 0);
    return QString::fromUtf8(label.data()).simplified();
}

LCM_PerFactor<bool> lcm_factor_columns(const MRL_LC_Action_Info& info, const QString& file)
{
    LCM_PerFactor<bool> columns;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const auto saysNone = [&] {
            return lcm_design_code_label(file, QLatin1String(factor.key)) == QLatin1String("none");
        };
        columns[factor.id] = lcm_has_factor(info, factor) && !(lcm_is_safety(factor.kind) && saysNone());
    }
    return columns;
}
