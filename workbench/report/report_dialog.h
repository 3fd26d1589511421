#pragma once

#include "host/mrl_widgets.h"
#include "report/file_report.h"

class QPushButton;
class QScrollArea;
class QSpinBox;

namespace mrl::workbench {

class PageView;

/// Shows the report of the open project page by page, and writes it as a file.
class ReportDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param db of the project. @param project its file, beside which the report is proposed
    /// @param isModified whether the project differs from its file
    ReportDialog(int db, const QString& project, bool isModified, QWidget* parent);
    ~ReportDialog() override;

    /// What the report told last; empty when it wrote nothing.
    QString writtenFile() const { return m_written; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QLayout* createPageRow();
    QLayout* createButtons();
    QPushButton* stepButton(const QString& text, const QString& name, const char* objectName, int step);
    void showPage(int page);
    void fitPage();
    void save(report::FileKind kind);

    int m_db;
    QString m_project;
    QString m_written;
    report::Report m_report;
    report::PageLayout m_pages;
    QSpinBox* m_page;
    QScrollArea* m_area;
    PageView* m_view;
    QPushButton* m_previous = nullptr;
    QPushButton* m_next = nullptr;
};

} // namespace mrl::workbench
