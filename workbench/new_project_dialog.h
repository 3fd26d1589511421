#pragma once

#include "host/mrl_widgets.h"
#include "workbench/new_project.h"

class QLineEdit;

namespace mrl::workbench {

/// Asks what a new project is to be: file, design code, structural system, gravity.
class NewProjectDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param folder where the file is proposed
    NewProjectDialog(const QString& folder, QWidget* parent);
    ~NewProjectDialog() override;

    NewProject wish() const;

  public slots:
    /// Asks before a file that exists is given up.
    void accept() override;

  private slots:
    void slot_browse();
    void slot_systemChanged(int index);
    void slot_inputChanged();

  private:
    QWidget* createFileRow(const QString& folder);
    void fillDesignCodes();
    void fillSystems();
    void fillGravity();

    QLineEdit* m_file;
    QComboBox* m_designCode;
    MRL_QT4_ComboBox* m_system;
    MRL_QT4_ComboBox* m_gravity;
    MRL_QT_CheckBox* m_defaults;
    QPushButton* m_create;
};

} // namespace mrl::workbench
