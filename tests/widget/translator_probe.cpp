// A program as the package's others: a static translator, an application, and texts. It prints what a person
// would read.
#include <QApplication>
#include <QPushButton>

#include <cstdio>

#include "host/mrl_widgets.h"

namespace {

// Before there is an application.
const MRL_QT_InitTranslator TEXTS("translator_probe");

void print(const QString& text) { std::printf("%s\n", qUtf8Printable(text)); }

} // namespace

int main(int argc, char** argv)
{
    const MRL_QT_Application application(argc, argv);
    print(QCoreApplication::translate("Probe", "Load case"));
    print(QCoreApplication::translate("QPlatformTheme", "Cancel"));
    const MRL_QT_InitTranslator late("translator_late");
    print(QCoreApplication::translate("Late", "Action"));
    return 0;
}
