#include <QCoreApplication>

#include "host/mrl_framework.h"

namespace {

/// Bit of setting 108: no remarks and no titles, only what a module computes with.
constexpr int COMPACT = 1;

// A title stands on one line between quotes.
QString quoted(QString text)
{
    text.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QString mrl_h_generateAutomatic(const QString& title)
{
    const QString remark = QCoreApplication::translate("MRL_H_Generators",
                                                       "made anew with each run, changes made here are lost");
    // The last line only separates the head from what follows; callers may delete it.
    return QStringLiteral("# %1\n# %2\n#\n").arg(title, remark);
}

QString mrl_h_generatePROG(MRL_H_PluginParameter*, const QString& module, const QString& text,
                           const QString& title, int setting, int)
{
    QString block = QStringLiteral("MODULE ") + module;
    if (!text.isEmpty()) {
        block += QLatin1Char(' ') + quoted(text);
    }
    block += QLatin1Char('\n');
    if (!(setting & COMPACT) && !title.isEmpty()) {
        block += QStringLiteral("TITLE ") + quoted(title) + QLatin1Char('\n');
    }
    return block;
}

QString mrl_h_generateENDE(int setting)
{
    return setting & COMPACT ? QStringLiteral("END\n") : QStringLiteral("END\n\n");
}
