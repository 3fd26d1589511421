#include "hostlib/ui/widget/translator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <vector>

#include <dlfcn.h>

#include "host/mrl_lib.h"
#include "host/mrl_widgets.h"
#include "hostlib/data/settings/settings.h"

namespace mrl::ui {

QString translationLanguage()
{
    constexpr int languageSetting = 102;
    static const int language = mrl_lib_setting(languageSetting);
    return language == settings::German ? QStringLiteral("de") : QString();
}

QString libraryFolder()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&libraryFolder), &info) == 0 || !info.dli_fname) {
        return QString();
    }
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalPath();
}

QStringList translationFolders()
{
    QStringList folders;
    const QString wanted = qEnvironmentVariable("MRL_TRANSLATION_PATH");
    if (!wanted.isEmpty()) {
        folders << wanted.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    }
    const QString beside = libraryFolder();
    // Installed, with and without a folder for the machine's architecture between; then the build tree.
    folders << beside + QStringLiteral("/../share/mrl/translations")
            << beside + QStringLiteral("/../../share/mrl/translations")
            << beside + QStringLiteral("/../translations");
    folders << QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    return folders;
}

} // namespace mrl::ui

struct MRL_QT_InitTranslator::Private
{
    QString context;
    std::unique_ptr<QTranslator> translator;

    void install();
};

namespace {

// The wishes of this process. Static objects of libraries register here before there is an application.
std::vector<MRL_QT_InitTranslator::Private*>& wishes()
{
    static std::vector<MRL_QT_InitTranslator::Private*> all;
    return all;
}

void installAll()
{
    for (auto* wish : wishes()) {
        wish->install();
    }
}

void installWithEachApplication()
{
    static const bool once = (qAddPreRoutine(installAll), true);
    Q_UNUSED(once)
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
    const auto folders = mrl::ui::translationFolders();
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
    wishes().push_back(d.get());
    installWithEachApplication();
    if (QCoreApplication::instance() && !d->translator) {
        d->install();
    }
}

MRL_QT_InitTranslator::~MRL_QT_InitTranslator()
{
    auto& all = wishes();
    all.erase(std::remove(all.begin(), all.end(), d.get()), all.end());
}

namespace {

// This library's own texts, and those of Qt's standard buttons and menus.
const MRL_QT_InitTranslator ownTexts("mrl_hostui");
const MRL_QT_InitTranslator standardTexts("qtbase");

} // namespace
