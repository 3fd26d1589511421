#pragma once

#include "host/mrl_widgets.h"

namespace mrl::workbench {

/// The settings of the package that a person chooses.
class SettingsDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    explicit SettingsDialog(QWidget* parent);
    ~SettingsDialog() override;

  public slots:
    /// Stores what was chosen.
    void accept() override;

  private:
    QLayout* createForm();

    MRL_QT4_ComboBox* m_language;
    MRL_QT_CheckBox* m_experimental;
    MRL_QT_CheckBox* m_restricted;
    MRL_QT_CheckBox* m_extras;
    MRL_QT_CheckBox* m_oneTab;
};

} // namespace mrl::workbench
