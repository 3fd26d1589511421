#include "hostlib/ui/table/view_headers.h"

#include <utility>

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

std::vector<bool> ColumnHeader::shownSections() const
{
    std::vector<bool> shown(static_cast<std::size_t>(count()));
    for (int section = 0; section < count(); ++section) {
        shown[static_cast<std::size_t>(section)] = !isSectionHidden(section);
    }
    return shown;
}
