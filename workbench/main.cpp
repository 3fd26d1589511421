#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>

#include "host/mrl_widgets.h"
#include "workbench/main_window.h"
#include "workbench/resources.h"

namespace {

using mrl::workbench::MainWindow;
using mrl::workbench::Manager;

const MRL_QT_InitTranslator translator("mrl_workbench");

} // namespace

int main(int argc, char** argv)
{
    mrl::workbench::initResources();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("marlavon"));
    QCoreApplication::setApplicationName(QStringLiteral("mrl-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MRL_VERSION));
    MRL_QT_Application application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("mrl-workbench"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/workbench/icon.svg")));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("CommandLine", "Edits the actions and load cases of structural models."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QCoreApplication::translate("CommandLine", "The project to open."),
                                 QStringLiteral("[FILE]"));
    const QCommandLineOption manager(
        QStringLiteral("manager"),
        QCoreApplication::translate("CommandLine", "Opens a manager on the project: actions or loadcases."),
        QStringLiteral("actions|loadcases"));
    parser.addOption(manager);
    parser.process(application);

    const QString which = parser.value(manager);
    const bool wrongManager =
        parser.isSet(manager) && which != QLatin1String("actions") && which != QLatin1String("loadcases");
    if (wrongManager || parser.positionalArguments().size() > 1) {
        fprintf(stderr, "%s\n", qPrintable(parser.helpText()));
        return 2;
    }

    MainWindow window;
    window.show();
    if (!parser.positionalArguments().isEmpty()) {
        // From the event loop, so that a message about the file has a window behind it.
        QTimer::singleShot(0, &window, [&] {
            if (window.openProject(parser.positionalArguments().first()) && !which.isEmpty())
                window.openManager(which == QLatin1String("actions") ? Manager::Actions : Manager::LoadCases);
        });
    }
    return QApplication::exec();
}
