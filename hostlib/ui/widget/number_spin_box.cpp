#include "hostlib/ui/widget/number_spin_box.h"

#include <QLineEdit>

#include <utility>

namespace mrl::ui {

NumberSpinBox::NumberSpinBox(QWidget* parent, std::function<int(int, int)> step)
    : QSpinBox(parent), m_step(std::move(step))
{
}

void NumberSpinBox::stepBy(int steps)
{
    interpretText();
    setValue(m_step(value(), steps));
    selectAll();
}

void NumberSpinBox::selectNumber()
{
    lineEdit()->setFocus(Qt::OtherFocusReason);
    lineEdit()->selectAll();
}

} // namespace mrl::ui
