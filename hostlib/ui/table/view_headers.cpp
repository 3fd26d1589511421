#include "hostlib/ui/table/view_headers.h"

#include <QHelpEvent>
#include <QToolTip>

#include <utility>

#include "hostlib/ui/table/finding_marks.h"
#include "hostlib/ui/table/plain_tool_tip.h"

RowHeader::RowHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent)
{
    setSectionsClickable(true); // as QTableView's own
    setHighlightSections(true);
}

QSize RowHeader::sizeHint() const
{
    if (count() == 0) {
        return QHeaderView::sizeHint();
    }
    const int digits = QString::number(count()).size();
    if (digits != m_digits) {
        m_digits = digits;
        m_hint = sectionSizeFromContents(0).expandedTo(sectionSizeFromContents(count() - 1));
    }
    return m_hint;
}

void RowHeader::changeEvent(QEvent* event)
{
    m_digits = 0; // another font or style
    QHeaderView::changeEvent(event);
}

void RowHeader::setMarkedRows(std::function<bool(int row)> isMarked) { m_isMarked = std::move(isMarked); }

void RowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const
{
    painter->save();
    QHeaderView::paintSection(painter, rect, row);
    painter->restore();
    if (m_isMarked && m_isMarked(row)) {
        const QColor background = palette().color(QPalette::Button);
        mrl::table::paintMark(*painter, rect, mrl::table::readableOn(background, Qt::red));
    }
}

ColumnHeader::ColumnHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(true); // as QTableView's own
    setHighlightSections(true);
}

QSize ColumnHeader::sizeHint() const
{
    std::vector<bool> shown = shownSections();
    if (!m_hint.isValid() || shown != m_measured) {
        m_measured = std::move(shown);
        m_hint = QHeaderView::sizeHint();
    }
    return m_hint;
}

void ColumnHeader::setModel(QAbstractItemModel* newModel)
{
    if (model() != nullptr) {
        disconnect(model(), &QAbstractItemModel::headerDataChanged, this, nullptr);
    }
    m_hint = QSize();
    // Before the base connects itself: it may ask for the height while it handles the change.
    if (newModel != nullptr) {
        connect(newModel, &QAbstractItemModel::headerDataChanged, this, [this] { m_hint = QSize(); });
    }
    QHeaderView::setModel(newModel);
}

void ColumnHeader::changeEvent(QEvent* event)
{
    m_hint = QSize(); // another font or style
    QHeaderView::changeEvent(event);
}

bool ColumnHeader::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QHeaderView::viewportEvent(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const int section = logicalIndexAt(help->pos());
    const QVariant text = model()->headerData(section, Qt::Horizontal, Qt::ToolTipRole);
    QToolTip::showText(help->globalPos(), mrl::table::plainToolTip(text.toString()), this);
    return true;
}

std::vector<bool> ColumnHeader::shownSections() const
{
    std::vector<bool> shown(static_cast<std::size_t>(count()));
    for (int section = 0; section < count(); ++section) {
        shown[static_cast<std::size_t>(section)] = !isSectionHidden(section);
    }
    return shown;
}
