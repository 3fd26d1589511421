#pragma once

#include <QWidget>

#include <memory>
#include <vector>

#include "actions/paste_help.h"
#include "history/history.h"
#include "manager/findings_list.h"
#include "manager/row_reader.h"

class QAction;
class QLabel;
class QLineEdit;
class QListView;
class QComboBox;
class QStringListModel;
class QTabWidget;
class QTimer;
class QToolButton;

/// What the manager dialog offers beyond its plain form, where the host wants it: a bar above the tabs with undo and
/// redo, the search, the filter, the findings and "Check again", and the list of findings below the tabs.
class LCM_Extras : public QWidget
{
    Q_OBJECT
  public:
    /// @param dialog has the tabs; it receives the shortcuts. @param tabs outlive this
    LCM_Extras(QWidget* dialog, const LCM_HistoryTabs& tabs);
    ~LCM_Extras() override;

    /// The list of findings, to be put below the tabs; hidden until somebody wants it.
    QWidget* findingsList() const;
    /// The tabs are filled: from now on commands can be taken back.
    void start();
    /// How many steps are lost if the dialog is left.
    int stepCount() const { return m_history ? m_history->undoCount() : 0; }
    /// The dialog was accepted, with its rows as they are now.
    void noteAcceptance() const;

  public slots:
    /// Judges all rows of both tabs anew and lists what is found.
    void checkAgain();
    void findNext();
    void findPrevious();
    void nextFinding();
    void previousFinding();
    /// Leaves the dialog as its close button does.
    void closeDialog();
    /// The same, and then closes the program's windows.
    void quit();

  protected:
    /// Esc and the down key leave a field of the bar for the table; Esc empties it.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void dressTables();
    std::unique_ptr<LCM_PasteHelp> newPasteHelp(LCM_TabInterface* tab);
    void createHistoryButtons(QLayout* layout);
    void createSearch(QLayout* layout);
    void createFilter(QLayout* layout);
    void createFindings(QLayout* layout);
    void createOrigins(QLayout* layout);
    void createCommand(const QString& text, const QList<QKeySequence>& keys, const char* name,
                       void (LCM_Extras::*slot)());
    void undoStep();
    void redoStep();
    void showHistory();
    void showFindings();
    void showHidden();
    void applyFilter();
    void findTyped();
    void find(bool forward);
    void goTo(int finding);
    void tell(const QString& message);
    void tellPaste(int values, const std::vector<LCM_UntakenValue>& untaken);
    LCM_TabInterface* front() const;
    std::vector<LCM_TabInterface*> allTabs() const;

    LCM_HistoryTabs m_tabs;
    LCM_RowReader m_rows;
    std::unique_ptr<LCM_History> m_history; ///< null until start, and where the host has no journals
    QToolButton* m_undo = nullptr;          ///< child of this, like all below but the list of findings
    QToolButton* m_redo = nullptr;
    QLineEdit* m_search = nullptr;
    QLineEdit* m_filter = nullptr;
    QComboBox* m_kind = nullptr;
    QLabel* m_message = nullptr;
    QToolButton* m_findingsButton = nullptr;
    QListView* m_findingsView; ///< child of the dialog
    QStringListModel* m_findingTexts;
    QTimer* m_filterTimer;
    QTimer* m_findingsTimer;
    std::vector<std::unique_ptr<LCM_PasteHelp>> m_pasteHelps;
    std::vector<LCM_ShownFinding> m_findings;
    int m_finding = -1; ///< the one gone to last
};
