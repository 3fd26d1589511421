#include "hostlib/ui/framework/help_pages.h"

#include <QFileInfo>
#include <QStringList>

#include "hostlib/data/install/data_folders.h"
#include "hostlib/ui/widget/translator.h"

namespace mrl::ui {

QString helpPage(const QString& book, const QString& topic)
{
    QStringList languages;
    if (!translationLanguage().isEmpty()) {
        languages << translationLanguage();
    }
    languages << QStringLiteral("en");
    const auto folders = install::dataFolders("MRL_HELP_PATH", QStringLiteral("help"));
    for (const QString& language : qAsConst(languages)) {
        for (const QString& folder : folders) {
            for (const char* suffix : {"html", "md"}) {
                const QFileInfo page(QStringLiteral("%1/%2/%3/%4.%5")
                                         .arg(folder, language, book, topic, QLatin1String(suffix)));
                if (page.isFile()) {
                    return page.canonicalFilePath();
                }
            }
        }
    }
    return QString();
}

} // namespace mrl::ui
