#include "host/mrl_widgets.h"

#include <QHideEvent>

#include "hostlib/ui/widget/application.h"
#include "hostlib/ui/widget/window_size.h"

MRL_QT_Dialog::MRL_QT_Dialog(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(QString::fromLatin1(name));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

MRL_QT_Dialog::~MRL_QT_Dialog() = default;

void MRL_QT_Dialog::setCaption(const QString& title) { setWindowTitle(title); }

void MRL_QT_Dialog::setGeometryKey(const QString& group, const QString& name)
{
    m_geometryGroup = group;
    m_geometryName = name;
}

QString MRL_QT_Dialog::geometryName() const
{
    return m_geometryName.isNull() ? objectName() : m_geometryName;
}

void MRL_QT_Dialog::restoreGeometry(int width, int height)
{
    m_keepGeometry = true;
    const QByteArray stored = mrl::ui::storedGeometry(m_geometryGroup, geometryName());
    if (!stored.isEmpty() && QWidget::restoreGeometry(stored)) {
        mrl::ui::keepOnScreen(*this);
        return;
    }
    // A dialog larger than the screen would have its buttons out of reach.
    resize(mrl::ui::fittingSize(QSize(width, height), *this));
}

void MRL_QT_Dialog::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    // A spontaneous event is the window manager's minimising.
    if (m_keepGeometry && !event->spontaneous()) {
        mrl::ui::storeGeometry(m_geometryGroup, geometryName(), saveGeometry());
    }
}
