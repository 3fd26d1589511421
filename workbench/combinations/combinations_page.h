#pragma once

#include <QWidget>

#include "workbench/combinations/project_combinations.h"

class QLabel;
class QPushButton;
class QSvgWidget;
class QTabWidget;

namespace mrl::workbench {

class CombinationListModel;
class ExtremesModel;
class FindTable;
class SituationsModel;
class TermsModel;

/// The situations of the design code, their combinations, and which of them governs the responses of a file.
class CombinationsPage : public QWidget
{
    Q_OBJECT
  public:
    explicit CombinationsPage(QWidget* parent);
    ~CombinationsPage() override;

    /// Follows the document. What it takes is done when the page is looked at.
    /// @param db an open database, -1 when there is none
    void follow(int db);
    /// Another project is open: the responses go.
    void forget();
    /// Reads responses from a file. @return empty, or why not; those of before stay then
    QString openResponses(const QString& file);

  protected:
    void showEvent(QShowEvent* event) override;

  private slots:
    void slot_open();
    void slot_situationChanged();
    void slot_responseChanged();
    void slot_savePicture();

  private:
    QWidget* createExtremes();
    QWidget* createHead();
    QWidget* createFindFields();
    QWidget* createTermsHead();
    void showFindField();
    void refresh();
    void showSituation();
    void showList();
    void showTerms();
    void tellChanges(const QString& text);
    /// Load cases that the responses lack in the situation; empty: none.
    QString missingColumns() const;
    std::size_t situation() const;
    const ProjectCombinations::Planned* planned() const;

    int m_db = -1;
    bool m_isStale = false;
    std::shared_ptr<const ProjectCombinations> m_source;
    std::shared_ptr<const Responses> m_responses;
    QByteArray m_svg;
    QLabel* m_problem; ///< child of this, like all below
    QLabel* m_file;
    QLabel* m_changes;
    QLabel* m_listRemark;
    QLabel* m_termsHead;
    QTabWidget* m_tabs;
    QPushButton* m_savePicture;
    QSvgWidget* m_picture;
    SituationsModel* m_situationsModel;
    CombinationListModel* m_listModel;
    ExtremesModel* m_extremesModel;
    TermsModel* m_termsModel;
    FindTable* m_situations;
    FindTable* m_list;
    FindTable* m_extremes;
    FindTable* m_terms;
};

} // namespace mrl::workbench
