#pragma once

#include <optional>

#include "host/mrl_widgets.h"
#include "workbench/designcode/project_code.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace mrl::workbench {

class RecodeModel;

/// Asks for another design code of a project and shows what it would change, row by row. Writes nothing.
class RecodeDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param code the name of the one that is chosen at first
    RecodeDialog(int db, const QString& code, QWidget* parent);
    ~RecodeDialog() override;

    const LCM_RecodePlan& plan() const { return m_plan; }
    /// Only after acceptance.
    const NewCode& code() const { return *m_code; }

  private:
    void createFields();
    QTableView* createTable();
    void fillCodes(const QString& code);
    void fillSystem();
    void chooseCode();
    void planAgain();
    void showPlan();
    void showTargets();
    void mapTo(int oldCode, int newCode);

    int m_db;
    LCM_RecodeWish m_wish;
    std::optional<NewCode> m_code;
    LCM_RecodePlan m_plan;
    QString m_reason; ///< why the code can't be read
    QComboBox* m_codes;
    MRL_QT4_ComboBox* m_system;
    MRL_QT4_ComboBox* m_gravity;
    MRL_QT_CheckBox* m_moves;
    RecodeModel* m_model;
    QTableView* m_table;
    QLabel* m_loadCases;
    QLabel* m_refusal;
    QPushButton* m_ok = nullptr;
};

} // namespace mrl::workbench
