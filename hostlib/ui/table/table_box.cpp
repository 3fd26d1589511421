#include "host/mrl_table.h"

MRL_H_TableWidgetBox::MRL_H_TableWidgetBox(MRL_H_TableWidget* table, QWidget* parent, const char* name)
    : QFrame(parent)
{
    setObjectName(QString::fromLatin1(name));
    setFrameShape(QFrame::NoFrame);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    if (table != nullptr) {
        table->setParent(this);
    }
}
