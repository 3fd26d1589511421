#include <QApplication>

#include "bench/figure.h"

int main(int argc, char** argv)
{
    // A real screen would be measured with the rest.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setApplicationName("mrl-bench");
    const QApplication application(argc, argv);
    return bench::run(argc, argv);
}
