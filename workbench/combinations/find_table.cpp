#include "workbench/combinations/find_table.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include <algorithm>

#include "hostlib/ui/widget/hint.h"
#include "workbench/table_copy.h"

namespace mrl::workbench {

namespace {

constexpr int ROW_MARGIN = 6;
constexpr int WIDEST = 220; // a column at first
constexpr int NARROWEST = 90;
constexpr int COLUMNS_IN_SIGHT = 5; // at least, of a narrow table
constexpr int FIELD_WIDTH = 140;

/// Numbers by their value, texts by their letters.
class Proxy : public QSortFilterProxyModel
{
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

  protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const QVariant a = left.data(Qt::UserRole);
        const QVariant b = right.data(Qt::UserRole);
        return a.isValid() && b.isValid()
                   ? a.toDouble() < b.toDouble()
                   : QString::localeAwareCompare(left.data().toString(), right.data().toString()) < 0;
    }
};

} // namespace

FindTable::FindTable(QAbstractItemModel* model, const char* name, QWidget* parent)
    : QWidget(parent), m_find(new QLineEdit(this)), m_table(new QTableView(this)), m_proxy(new Proxy(this))
{
    m_find->setObjectName(QLatin1String(name) + QStringLiteral("_find"));
    ui::showHint(*m_find, tr("Find"));
    m_find->setMaximumWidth(FIELD_WIDTH);
    m_find->setAccessibleName(tr("Find"));
    m_find->setClearButtonEnabled(true);
    m_proxy->setSourceModel(model);
    m_proxy->setFilterKeyColumn(-1);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_table->setObjectName(QLatin1String(name));
    m_table->setModel(m_proxy);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(-1, Qt::AscendingOrder);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + ROW_MARGIN);
    // The heading and one row: four tables above one another have to fit a small screen.
    m_table->setMinimumHeight(2 * (m_table->fontMetrics().height() + ROW_MARGIN));
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    addCopyCommands(*m_table);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_find);
    layout->addWidget(m_table, 1);
    connect(m_find, &QLineEdit::textChanged, this, &FindTable::slot_find);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FindTable::currentChanged);
}

FindTable::~FindTable() = default;

int FindTable::currentRow() const
{
    const QModelIndex current = m_table->currentIndex();
    return current.isValid() ? m_proxy->mapToSource(current).row() : -1;
}

void FindTable::setCurrentRow(int row)
{
    m_table->setCurrentIndex(m_proxy->mapFromSource(m_proxy->sourceModel()->index(row, 0)));
}

void FindTable::fitColumns(std::initializer_list<int> stretched)
{
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setMaximumSectionSize(std::clamp(width() / COLUMNS_IN_SIGHT, NARROWEST, WIDEST));
    m_table->resizeColumnsToContents();
    header->setMaximumSectionSize(-1);
    for (const int column : stretched) {
        header->setSectionResizeMode(column, QHeaderView::Stretch);
    }
}

void FindTable::slot_find(const QString& text) { m_proxy->setFilterFixedString(text); }

} // namespace mrl::workbench
