#include <QIcon>
#include <QTimer>

#include "host/mrl_widgets.h"
#include "workbench/command_line.h"
#include "workbench/main_window.h"
#include "workbench/resources.h"
#include "workbench/wanted_extras.h"

namespace {

using mrl::workbench::CommandLine;
using mrl::workbench::MainWindow;

const MRL_QT_InitTranslator TRANSLATOR("mrl_workbench");
const MRL_QT_InitTranslator REPORT_TRANSLATOR("mrl_report");

} // namespace

int main(int argc, char** argv)
{
    mrl::workbench::initResources();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("marlavon"));
    QCoreApplication::setApplicationName(QStringLiteral("mrl-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MRL_VERSION));
    if (mrl::workbench::asksAboutTheProgram(argc, argv)) {
        const QCoreApplication withoutDisplay(argc, argv);
        CommandLine line;
        return mrl::workbench::readCommandLine(QCoreApplication::arguments(), line).value_or(0);
    }
    MRL_QT_Application application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("mrl-workbench"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/workbench/icon.svg")));

    CommandLine line;
    if (const auto code = mrl::workbench::readCommandLine(QCoreApplication::arguments(), line)) {
        return *code;
    }

    mrl::workbench::turnExtrasOnAtFirst();
    MainWindow window;
    window.show();
    // From the event loop, so that a message has a window behind it.
    QTimer::singleShot(0, &window, [&] {
        if (mrl::workbench::wantsExtras() && window.offerRecovery()) {
            return; // rather than what the command line names: there is something to be saved first
        }
        if (!line.project.isEmpty() && window.openProject(line.project) && line.manager) {
            window.openManager(*line.manager);
        }
    });
    return QApplication::exec();
}
