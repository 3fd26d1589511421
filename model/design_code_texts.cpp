// The design code's symbols for the factors, and which factors it has.
#include "host/mrl_widgets.h"
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

/// For safety factors a design code can also say "none" in its file.
int LCM_DataClass::hasLabelled(bool known, const QString& key)
{
    return known && designCodeText(key) != QLatin1String("none") ? 1 : 0;
}

int LCM_DataClass::hasGamu() { return hasLabelled(info.gamu, QStringLiteral("Gamu")); }
int LCM_DataClass::hasGamf() { return hasLabelled(info.gamf, QStringLiteral("Gamf")); }
int LCM_DataClass::hasGama() { return hasLabelled(info.gama, QStringLiteral("Gama")); }
int LCM_DataClass::hasPsi0() const { return info.psi0; }
int LCM_DataClass::hasPsi1() const { return info.psi1; }
int LCM_DataClass::hasPsi2() const { return info.psi2; }
int LCM_DataClass::hasPsi1s() const { return info.psi1s; }

int LCM_DataClass::optionalColumnCount()
{
    // The order matters: the first safety factor that asks for its label may bring up the warning.
    int count = hasGamu();
    count += hasGamf();
    count += hasGama();
    return count + hasPsi0() + hasPsi1() + hasPsi1s() + hasPsi2();
}
