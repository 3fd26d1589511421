#include <QApplication>

#include "host/mrl_textlist.h"
#include "hostlib/ui/framework/help_window.h"

void MRL_T_Help::show(QWidget* parent, const char* viewer, const char* topic)
{
    // A window that doesn't belong to the modal dialog would be blocked by it.
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner) {
        owner = parent ? parent : QApplication::activeWindow();
    }
    mrl::ui::HelpWindow::of(owner)->showPage(QString::fromUtf8(viewer), QString::fromUtf8(topic));
}
