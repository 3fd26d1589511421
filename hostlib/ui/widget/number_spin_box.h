#pragma once

#include <QSpinBox>

#include <functional>

namespace mrl::ui {

/// A spin box whose steps go where its owner says.
class NumberSpinBox : public QSpinBox
{
    Q_OBJECT
  public:
    /// @param step gives the number after stepping from one by a count of steps, negative downward
    NumberSpinBox(QWidget* parent, std::function<int(int from, int steps)> step);
    void stepBy(int steps) override;
    void selectNumber();

  private:
    std::function<int(int, int)> m_step;
};

} // namespace mrl::ui
