// The design code's symbols for the factors, and which factors it has.
#include "host/mrl_widgets.h"
#include "lcdata/factor_marks.h"
#include "model/working_model.h"
#include "rules/design_code_label.h"

QString LCM_DataClass::designCodeText(const QString& key)
{
    const QString upperKey = key.toUpper();
    const auto cached = textCache.find(upperKey);
    if (cached != textCache.end()) {
        return cached->second;
    }

    const std::optional<QString> file = lcm_design_code_file(db);
    if (!file) {
        if (!textWarningShown) {
            MRL_QT_MessageBox::critical(
                nullptr, tr("Database corrupt"),
                tr("Can't read design code from database! Some text may be wrong or unreadable."), QString(),
                QString(), QString(), 0, -1);
        }
        textWarningShown = true;
    }
    QString label = lcm_design_code_label(file.value_or(QString()), upperKey);
    if (label.isEmpty()) {
        label = key;
    }
    textCache[upperKey] = label;
    return label;
}

bool LCM_DataClass::hasFactor(LCM_FactorId id)
{
    const LCM_Factor& factor = lcm_factor(id);
    // For a safety factor a design code can also say "none" in its file.
    return lcm_has_factor(info, factor) &&
           !(lcm_is_safety(factor.kind) &&
             designCodeText(QLatin1String(factor.key)) == QLatin1String("none"));
}

int LCM_DataClass::hasGamu() { return hasFactor(LCM_FactorId::Gamu); }
int LCM_DataClass::hasGamf() { return hasFactor(LCM_FactorId::Gamf); }
int LCM_DataClass::hasGama() { return hasFactor(LCM_FactorId::Gama); }
int LCM_DataClass::hasPsi0() const { return lcm_has_factor(info, lcm_factor(LCM_FactorId::Psi0)); }
int LCM_DataClass::hasPsi1() const { return lcm_has_factor(info, lcm_factor(LCM_FactorId::Psi1)); }
int LCM_DataClass::hasPsi2() const { return lcm_has_factor(info, lcm_factor(LCM_FactorId::Psi2)); }
int LCM_DataClass::hasPsi1s() const { return lcm_has_factor(info, lcm_factor(LCM_FactorId::Psi1s)); }

int LCM_DataClass::optionalColumnCount()
{
    // The order matters: the first safety factor that asks for its label may bring up the warning.
    int count = 0;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        count += hasFactor(factor.id) ? 1 : 0;
    }
    return count;
}
