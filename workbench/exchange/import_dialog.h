#pragma once

#include <memory>
#include <optional>

#include "host/mrl_widgets.h"
#include "workbench/exchange/import_proposal.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QTabWidget;

namespace mrl::workbench {

class FindTable;
class HeadingChoices;
class PlanModel;
class TextFormFields;

/// Takes actions and load cases from a table: shows row by row what would happen, and writes it when it is accepted.
class ImportDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// Runs a command as one step of the project's history.
    using RunStep = std::function<void(const QString& name, const std::function<void()>& command)>;

    /// @param db of the project
    ImportDialog(int db, RunStep runStep, QWidget* parent);
    ~ImportDialog() override;

    /// Reads a file and shows its plan.
    void openFile(const QString& file);
    /// What came in, in numbers.
    QString summary() const;

  public slots:
    /// Writes the plan; stays open when it is cancelled or fails.
    void accept() override;

  protected:
    /// Return in the field of the file reads it, and imports nothing yet.
    bool eventFilter(QObject* object, QEvent* event) override;

  private slots:
    void slot_browse();
    void slot_fileEdited();
    /// Reads the file anew, as the fields tell now.
    void slot_propose();
    void slot_showRows();

  private:
    QLayout* createForm();
    QLayout* createOptions();
    QWidget* createFileRow();
    QWidget* createRowsPage();
    QWidget* createButtons();
    ImportWish wish() const;
    int count(exchange::Outcome outcome) const { return m_proposal->plan.count(outcome); }
    void fillOutcomes();
    void showProposal();
    bool canApply() const;

    int m_db;
    RunStep m_runStep;
    QString m_read; ///< path of the file that was read last
    std::unique_ptr<ImportProposal> m_proposal;
    QLineEdit* m_file;
    QComboBox* m_format;
    QComboBox* m_sheet;
    TextFormFields* m_textForm;
    QComboBox* m_match;
    MRL_QT_CheckBox* m_createActions;
    MRL_QT_CheckBox* m_skipRefused;
    PlanModel* m_model;
    FindTable* m_rows;
    QComboBox* m_outcome;
    HeadingChoices* m_headings;
    QPlainTextEdit* m_notes;
    QTabWidget* m_tabs;
    QLabel* m_summary;
    QPushButton* m_import = nullptr;
};

} // namespace mrl::workbench
