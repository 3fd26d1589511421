#include "workbench/exchange/heading_choices.h"

#include <QComboBox>
#include <QHeaderView>

namespace mrl::workbench {

namespace {

enum Place { Heading, Meaning, PLACES };

} // namespace

HeadingChoices::HeadingChoices(QWidget* parent) : QTableWidget(0, PLACES, parent)
{
    setObjectName(QStringLiteral("table_headings"));
    setHorizontalHeaderLabels({tr("Column of the file"), tr("Means")});
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
}

HeadingChoices::~HeadingChoices() = default;

void HeadingChoices::show(const exchange::ReadTables& read)
{
    setRowCount(0);
    for (const auto& [sheet, headings] : read.headings) {
        for (const exchange::FoundHeading& heading : headings) {
            addRow(sheet, heading);
        }
    }
}

void HeadingChoices::addRow(exchange::Sheet sheet, const exchange::FoundHeading& heading)
{
    const int row = rowCount();
    setRowCount(row + 1);
    setItem(row, Heading, new QTableWidgetItem(QString::fromStdString(heading.text))); // the table's
    auto* meaning = new QComboBox(this);
    meaning->addItem(tr("(passed over)"), QString());
    for (const exchange::Column& column : exchange::columnsOf(sheet)) {
        meaning->addItem(QString::fromLatin1(column.name), QString::fromLatin1(column.name));
    }
    meaning->setCurrentIndex(heading.column + 1);
    // A turn of the wheel is meant for the table.
    meaning->setFocusPolicy(Qt::StrongFocus);
    connect(meaning, QOverload<int>::of(&QComboBox::activated), this, [this, meaning, text = heading.text] {
        m_chosen[text] = meaning->currentData().toString().toStdString();
        // The answer fills this table anew, and the field is still at work.
        QMetaObject::invokeMethod(this, &HeadingChoices::chosenByHand, Qt::QueuedConnection);
    });
    setCellWidget(row, Meaning, meaning);
}

} // namespace mrl::workbench
