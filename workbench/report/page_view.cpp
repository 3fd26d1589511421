#include "workbench/report/page_view.h"

#include <QPainter>

#include "report/page_layout.h"

namespace mrl::workbench {

namespace {

constexpr int BORDER = 12; // around the page

} // namespace

PageView::PageView(const report::PageLayout& pages, QWidget* parent) : QWidget(parent), m_pages(pages)
{
    setObjectName(QStringLiteral("page_view"));
}

void PageView::showPage(int page)
{
    m_page = page;
    update();
}

void PageView::setPageWidth(int width)
{
    m_width = width - 2 * BORDER;
    resize(sizeHint());
    update();
}

QSize PageView::sizeHint() const
{
    return {m_width + 2 * BORDER, m_width * report::PAGE_HEIGHT / report::PAGE_WIDTH + 2 * BORDER};
}

void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = static_cast<double>(m_width) / report::PAGE_WIDTH;
    painter.translate((width() - m_width) / 2, BORDER);
    painter.scale(scale, scale);
    // Paper is white, however dark the desktop is.
    painter.fillRect(QRectF(0, 0, report::PAGE_WIDTH, report::PAGE_HEIGHT), Qt::white);
    painter.save();
    m_pages.paint(painter, m_page);
    painter.restore();
    painter.setPen(QPen(Qt::gray, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, 0, report::PAGE_WIDTH, report::PAGE_HEIGHT));
}

} // namespace mrl::workbench
