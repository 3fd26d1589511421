#include "report/program/translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

#include "hostlib/data/install/data_folders.h"

namespace mrl::report {

QString speak(const QString& language)
{
    QLocale::setDefault(QLocale(language));
    if (language == QLatin1String("en")) {
        return {}; // the language of the sources
    }
    const QStringList folders = install::dataFolders("MRL_TRANSLATION_PATH", QStringLiteral("translations"));
    // The report's own texts, and those of rules, categories and origins.
    for (const char* name : {"mrl_report", "mrl_loadcase_dll"}) {
        const QString file = QLatin1String(name) + QLatin1Char('_') + language;
        auto* translator = new QTranslator(QCoreApplication::instance());
        const bool isFound = std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
            return translator->load(file, folder);
        });
        if (!isFound) {
            return QStringLiteral("the translation %1.qm isn't installed").arg(file);
        }
        QCoreApplication::installTranslator(translator);
    }
    return {};
}

} // namespace mrl::report
