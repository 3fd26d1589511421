#include <QTemporaryDir>

#include "bench/figure.h"
#include "host/mrl_widgets.h"

int main(int argc, char** argv)
{
    // A real screen would be measured with the rest.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home; // nobody's settings are read or changed
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    QApplication::setOrganizationName("mrl-bench");
    QApplication::setApplicationName("mrl-bench");
    const MRL_QT_Application application(argc, argv);
    return bench::run(argc, argv);
}
