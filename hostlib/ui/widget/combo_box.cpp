#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyle>

#include "host/mrl_widgets.h"

MRL_QT4_ComboBox::MRL_QT4_ComboBox(QWidget* parent, const char* name) : QComboBox(parent)
{
    setObjectName(QString::fromLatin1(name));
}

void MRL_QT4_ComboBox::addItem(const QString& text, int id) { QComboBox::addItem(text, QVariant(id)); }

int MRL_QT4_ComboBox::getCurrentId() const
{
    bool hasId = false;
    const int id = currentData().toInt(&hasId);
    return hasId ? id : -1;
}

bool MRL_QT4_ComboBox::setCurrentId(int id)
{
    const int index = findData(id);
    if (index < 0) {
        return false;
    }
    setCurrentIndex(index);
    return true;
}

void MRL_QT4_ComboBox::setWidthTextEnabled(bool on) { m_widthText = on; }

void MRL_QT4_ComboBox::showPopup()
{
    if (m_widthText) {
        const int frame = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, view());
        const int scrollBar = view()->verticalScrollBar()->sizeHint().width();
        view()->setMinimumWidth(view()->sizeHintForColumn(0) + scrollBar + frame);
    }
    QComboBox::showPopup();
}
