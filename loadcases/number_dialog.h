#pragma once

#include <set>

#include "host/mrl_widgets.h"
#include "loadcases/loadcase_copy.h"

class MRL_H_LineEdit;
class MySlider;

/// Asks for the number of a new load case, and for the factor of a copy. In place of a taken number it accepts
/// the next free one only if the user agrees.
class LCM_LoadcaseNumberDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param taken the numbers that can't be chosen
    /// @param copy  the dialog also asks for a factor
    /// @param info  proposes the number and the factor; names the source where there is one
    LCM_LoadcaseNumberDialog(QWidget* parent, const std::set<int>& taken, bool copy,
                             const LCM_LoadcaseCopy& info);

    int number() const;
    /// The factor entered, -99999 when the dialog doesn't ask for one.
    double factor() const;

  public slots:
    /// Accepts a free number; asks first when the slider has moved away from a taken one.
    void slot_accept();

  private:
    void createSlider(int proposal);
    void createLayout(const LCM_LoadcaseCopy& info);
    bool confirmCorrection();

    MRL_QT_Ok* buttons = nullptr;
    std::set<int> usedNumbers;
    MySlider* slider = nullptr;
    bool copy;
    MRL_H_LineEdit* m_pFac = nullptr; ///< null unless `copy`
};
