#include "hostlib/ui/framework/help_pages.h"

#include <QDir>
#include <QFileInfo>

#include "hostlib/ui/widget/translator.h"

namespace mrl::ui {

QStringList helpFolders()
{
    QStringList folders;
    const QString wanted = qEnvironmentVariable("MRL_HELP_PATH");
    if (!wanted.isEmpty()) {
        folders << wanted.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    }
    const QString beside = libraryFolder();
    // Installed, with and without a folder for the machine's architecture between; then the build tree.
    folders << beside + QStringLiteral("/../share/mrl/help")
            << beside + QStringLiteral("/../../share/mrl/help") << beside + QStringLiteral("/../help");
    return folders;
}

QString helpPage(const QString& book, const QString& topic)
{
    QStringList languages;
    if (!translationLanguage().isEmpty()) {
        languages << translationLanguage();
    }
    languages << QStringLiteral("en");
    const auto folders = helpFolders();
    for (const QString& language : qAsConst(languages)) {
        for (const QString& folder : folders) {
            const QFileInfo page(QStringLiteral("%1/%2/%3/%4.html").arg(folder, language, book, topic));
            if (page.isFile()) {
                return page.canonicalFilePath();
            }
        }
    }
    return QString();
}

} // namespace mrl::ui
