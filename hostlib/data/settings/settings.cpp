#include "hostlib/data/settings/settings.h"

#include <QSettings>
#include <QString>

#include "host/mrl_alib.h"
#include "host/mrl_lib.h"

namespace mrl::settings {

namespace {

constexpr int SETTING_LANGUAGE = 102;
constexpr int SETTING_GENERATOR_OPTION = 108;
constexpr auto KEY_LANGUAGE = "language";
constexpr auto KEY_GENERATOR_OPTION = "generatorOption";
constexpr auto KEY_RUN_MODE = "runMode";

QSettings store()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("mrl"),
                     QStringLiteral("host"));
}

int value(const char* key) { return store().value(QLatin1String(key), 0).toInt(); }

void setValue(const char* key, int number) { store().setValue(QLatin1String(key), number); }

/// The language that the environment asks for, as the C library reads it: LANGUAGE counts beside a locale
/// only.
int languageOfDesktop()
{
    QString locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale.isEmpty()) {
            locale = qEnvironmentVariable(name);
        }
    }
    const bool none = locale.isEmpty() || locale.startsWith(QLatin1String("C.")) ||
                      locale == QLatin1String("C") || locale == QLatin1String("POSIX");
    const QString wanted = none ? QString() : qEnvironmentVariable("LANGUAGE", locale);
    return (wanted.isEmpty() ? locale : wanted).startsWith(QLatin1String("de")) ? German : English;
}

} // namespace

int language()
{
    return store().contains(QLatin1String(KEY_LANGUAGE)) ? value(KEY_LANGUAGE) : languageOfDesktop();
}
void setLanguage(int language) { setValue(KEY_LANGUAGE, language); }

int generatorOption() { return value(KEY_GENERATOR_OPTION); }
void setGeneratorOption(int option) { setValue(KEY_GENERATOR_OPTION, option); }

int runMode() { return value(KEY_RUN_MODE); }
void setRunMode(int mode) { setValue(KEY_RUN_MODE, mode); }

} // namespace mrl::settings

int mrl_lib_setting(int number)
{
    switch (number) {
    case mrl::settings::SETTING_LANGUAGE:
        return mrl::settings::language();
    case mrl::settings::SETTING_GENERATOR_OPTION:
        return mrl::settings::generatorOption();
    default:
        return 0;
    }
}

int mrl_alib_getLaufModus() { return mrl::settings::runMode(); }
