#include "workbench/recent_files.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace mrl::workbench {

namespace {

constexpr int MOST = 8;
const char KEY[] = "Workbench/recent";

QStringList stored() { return QSettings().value(QLatin1String(KEY)).toStringList(); }

} // namespace

QStringList RecentFiles::list()
{
    QStringList files = stored();
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const QString& file) { return !QFileInfo::exists(file); }),
                files.end());
    return files;
}

void RecentFiles::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList files = stored();
    files.removeAll(path);
    files.prepend(path);
    QSettings().setValue(QLatin1String(KEY), QStringList(files.mid(0, MOST)));
}

void RecentFiles::remove(const QString& file)
{
    QStringList files = stored();
    files.removeAll(QFileInfo(file).absoluteFilePath());
    QSettings().setValue(QLatin1String(KEY), files);
}

QString shownPath(const QString& file)
{
    const QString home = QDir::homePath();
    const bool below = home != QDir::rootPath() && (file == home || file.startsWith(home + QLatin1Char('/')));
    return QDir::toNativeSeparators(below ? QLatin1Char('~') + file.mid(home.size()) : file);
}

} // namespace mrl::workbench
