#include "manager/untaken_values.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "manager/extras.h"

namespace {

constexpr QSize SIZE(560, 320);

QTableWidget* newList(QWidget* parent, const std::vector<LCM_UntakenValue>& untaken)
{
    auto* list = new QTableWidget(static_cast<int>(untaken.size()), 3, parent);
    list->setObjectName(QStringLiteral("untaken_values"));
    list->setHorizontalHeaderLabels(
        {LCM_Extras::tr("Cell"), LCM_Extras::tr("Value"), LCM_Extras::tr("Reason")});
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setTabKeyNavigation(false);
    list->setWordWrap(false);
    list->verticalHeader()->hide();
    int row = 0;
    for (const LCM_UntakenValue& value : untaken) {
        int column = 0;
        for (const QString& text : {value.cell, value.text, value.reason}) {
            list->setItem(row, column++, new QTableWidgetItem(text)); // the table's
        }
        ++row;
    }
    list->resizeColumnsToContents();
    list->horizontalHeader()->setStretchLastSection(true);
    return list;
}

} // namespace

QString lcm_untaken_summary(int values, const std::vector<LCM_UntakenValue>& untaken)
{
    return untaken.empty() ? QString()
                           : LCM_Extras::tr("%1 of %2 values not taken").arg(untaken.size()).arg(values);
}

void lcm_show_untaken(QWidget* parent, const QString& summary, const std::vector<LCM_UntakenValue>& untaken)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("untaken"));
    dialog.setWindowTitle(LCM_Extras::tr("Paste"));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(summary, &dialog));
    layout->addWidget(newList(&dialog, untaken), 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout->addWidget(buttons);
    dialog.resize(SIZE);
    dialog.exec();
}
