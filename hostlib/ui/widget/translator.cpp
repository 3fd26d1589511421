#include "hostlib/ui/widget/translator.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <vector>

#include "host/mrl_lib.h"
#include "host/mrl_widgets.h"
#include "hostlib/data/install/data_folders.h"
#include "hostlib/data/settings/settings.h"

namespace mrl::ui {

QString translationLanguage()
{
    constexpr int LANGUAGE_SETTING = 102;
    static const int LANGUAGE = mrl_lib_setting(LANGUAGE_SETTING);
    return LANGUAGE == settings::German ? QStringLiteral("de") : QString();
}

} // namespace mrl::ui

struct MRL_QT_InitTranslator::Private
{
    QString context;
    std::unique_ptr<QTranslator> translator;

    void install();
};

namespace {

/// Our own translation files and Qt's.
QStringList translationFolders()
{
    return mrl::install::dataFolders("MRL_TRANSLATION_PATH", QStringLiteral("translations"))
           << QLibraryInfo::location(QLibraryInfo::TranslationsPath);
}

// The translators of this process. Static objects of libraries register here before there is an application.
std::vector<MRL_QT_InitTranslator::Private*>& translators()
{
    static std::vector<MRL_QT_InitTranslator::Private*> all;
    return all;
}

void installAll()
{
    for (auto* translator : translators()) {
        translator->install();
    }
}

void installWithEachApplication()
{
    static const bool ONCE = (qAddPreRoutine(installAll), true);
    Q_UNUSED(ONCE)
}

} // namespace

void MRL_QT_InitTranslator::Private::install()
{
    const QString language = mrl::ui::translationLanguage();
    if (language.isEmpty()) {
        return;
    }
    auto candidate = std::make_unique<QTranslator>();
    const QString file = context + QLatin1Char('_') + language;
    const auto folders = translationFolders();
    const bool found = std::any_of(folders.begin(), folders.end(),
                                   [&](const QString& folder) { return candidate->load(file, folder); });
    if (!found) {
        return;
    }
    translator = std::move(candidate);
    QCoreApplication::installTranslator(translator.get());
}

MRL_QT_InitTranslator::MRL_QT_InitTranslator(const char* context) : d(std::make_unique<Private>())
{
    d->context = QString::fromLatin1(context);
    translators().push_back(d.get());
    installWithEachApplication();
    if (QCoreApplication::instance() && !d->translator) {
        d->install();
    }
}

MRL_QT_InitTranslator::~MRL_QT_InitTranslator()
{
    auto& all = translators();
    all.erase(std::remove(all.begin(), all.end(), d.get()), all.end());
}

namespace {

// This library's own texts, and those of Qt's standard buttons and menus.
const MRL_QT_InitTranslator OWN_TEXTS("mrl_hostui");
const MRL_QT_InitTranslator STANDARD_TEXTS("qtbase");

} // namespace
