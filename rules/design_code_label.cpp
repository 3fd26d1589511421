#include "rules/design_code_label.h"

#include <array>

#include "host/mrl_lib.h"

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

QString lcm_design_code_label(const QString& file, const QString& upperKey)
{
    const QByteArray entry = QStringLiteral("TXT_%1").arg(upperKey).toUtf8();
    int value = 0;
    std::array<char, LABEL_BYTES + 1> label{}; // a label that fills the buffer has no closing zero
    mrl_lib_profile_read(file.toUtf8().constData(), "ACTIONS", entry.constData(), 1, &value, label.data(),
                         LABEL_BYTES, 0);
    return QString::fromUtf8(label.data()).simplified();
}

std::array<bool, LC_FACTOR_COUNT> lcm_factor_columns(const MRL_LC_Action_Info& info, const QString& file)
{
    const auto labelled = [&file](bool known, const char* key) {
        return known && lcm_design_code_label(file, QLatin1String(key)) != QLatin1String("none");
    };
    return {labelled(info.gamu, "GAMU"),
            labelled(info.gamf, "GAMF"),
            labelled(info.gama, "GAMA"),
            info.psi0,
            info.psi1,
            info.psi2,
            info.psi1s};
}
