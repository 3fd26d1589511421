#pragma once

#include <QWidget>

namespace mrl::report {
class PageLayout;
}

namespace mrl::workbench {

/// Shows one page of a report, as large as there is room.
class PageView : public QWidget
{
    Q_OBJECT
  public:
    /// @param pages outlive this
    PageView(const report::PageLayout& pages, QWidget* parent);

    int page() const { return m_page; }
    void showPage(int page);
    /// @param width of the page on the screen
    void setPageWidth(int width);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const report::PageLayout& m_pages;
    int m_page = 0;
    int m_width = 600;
};

} // namespace mrl::workbench
