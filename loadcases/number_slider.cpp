#include "loadcases/number_slider.h"

MySlider::MySlider(QWidget* parent, const char* name, const std::set<int>& excluded)
    : MRL_QT_AdvancedSlider(parent, 1, name, excluded)
{
    mrl_connect(this, "2valueAboutToChange( double )", this, "1slot_valueAboutToChange( double )",
                Qt::AutoConnection);
}

void MySlider::slot_valueAboutToChange(double value)
{
    m_wanted = static_cast<int>(value);
    m_corrected = static_cast<int>(checkValidValue(value)) != m_wanted;
}
