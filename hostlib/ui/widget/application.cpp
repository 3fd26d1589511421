#include "host/mrl_widgets.h"

#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <new>

#include "hostlib/ui/widget/application.h"

namespace {

// Programs that name no organisation of their own share one file.
QSettings openSettings()
{
    if (QCoreApplication::organizationName().isEmpty()) {
        return QSettings(QStringLiteral("marlavon"), QStringLiteral("marlavon"));
    }
    return QSettings(QCoreApplication::organizationName(), QCoreApplication::applicationName());
}

bool storeValue(const QString& path, const QVariant& value)
{
    auto settings = openSettings();
    settings.setValue(path, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString path(const QString& group, const QString& key) { return group + QLatin1Char('/') + key; }

/// The exit status of a process that has no memory left.
constexpr int OUT_OF_MEMORY = 3;

const QString EXPERIMENTAL_KEY = QStringLiteral("General/experimental");

} // namespace

MRL_QT_ApplicationInterface::~MRL_QT_ApplicationInterface() = default;

bool MRL_QT_ApplicationInterface::experimentalOn()
{
    const QByteArray wish = qgetenv("MRL_EXPERIMENTAL");
    if (!wish.isEmpty()) {
        return wish != "0";
    }
    return openSettings().value(EXPERIMENTAL_KEY, false).toBool();
}

MRL_QT_Application::MRL_QT_Application(int& argc, char** argv) : QApplication(argc, argv) {}

MRL_QT_Application::~MRL_QT_Application() = default;

bool MRL_QT_Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        // No exception can pass through the event loop, and nothing that follows could count on its memory.
        std::fputs("There is no memory left. Changes since the last saving are lost.\n", stderr);
        std::_Exit(OUT_OF_MEMORY);
    }
}

bool MRL_QT_Application::getAppSettings(const QString& group, const QString& key, int& value,
                                        int defaultValue)
{
    bool isNumber = false;
    const int stored = openSettings().value(path(group, key)).toInt(&isNumber);
    value = isNumber ? stored : defaultValue;
    return isNumber;
}

bool MRL_QT_Application::setAppSettings(const QString& group, const QString& key, int value)
{
    return storeValue(path(group, key), value);
}

namespace mrl::ui {

QByteArray storedGeometry(const QString& group, const QString& key)
{
    return openSettings().value(path(group, key)).toByteArray();
}

void storeGeometry(const QString& group, const QString& key, const QByteArray& geometry)
{
    storeValue(path(group, key), geometry);
}

void setExperimental(bool on) { storeValue(EXPERIMENTAL_KEY, on); }

} // namespace mrl::ui
