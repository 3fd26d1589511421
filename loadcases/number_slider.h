#pragma once

#include "host/mrl_widgets.h"

/// The number input of the number dialog. It remembers that the number asked for was taken.
class MySlider : public MRL_QT_AdvancedSlider
{
    Q_OBJECT
  public:
    MySlider(QWidget* parent, const char* name, const std::set<int>& excluded);

    /// Whether the number asked for was taken, so that the slider went to another one.
    bool isCorrected() const { return m_corrected; }
    void clearCorrected() { m_corrected = false; }
    /// The number asked for last.
    int wantedNumber() const { return m_wanted; }

  public slots:
    void slot_valueAboutToChange(double value);

  private:
    bool m_corrected = false;
    int m_wanted = 0;
};
