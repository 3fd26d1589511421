// The table of the load-case tab and its columns.

#include <QFontMetrics>
#include <QHeaderView>

#include <cstdlib>

#include "actions/table_helpers.h"
#include "loadcases/columns.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"

namespace {

constexpr int FIXED_COLUMNS = 7;
constexpr int LINE_EDIT_FLAGS = 0x800;

StructLineEdit baseDescription(int format)
{
    StructLineEdit description;
    description.format = format;
    description.precision = -1;
    description.flags = LINE_EDIT_FLAGS;
    return description;
}

StructLineEdit factorDescription()
{
    StructLineEdit description = MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(-3);
    description.precision = 2;
    description.flags |= LINE_EDIT_FLAGS;
    return description;
}

/// An amount of dead weight along gravity.
StructLineEdit limitedDescription()
{
    StructLineEdit description = factorDescription();
    description.firstBound = 0.0;
    description.secondBound = 9999.0;
    return description;
}

} // namespace

void LCM_LoadcaseWidget::setupTable()
{
    // Child of this.
    loadcaseTable = new TableLoadCases(FIXED_COLUMNS + model->optionalColumnCount(), this, "loadcase table");
    table = loadcaseTable;
    loadcaseTable->activateSearchEnabled(false);
    loadcaseTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    QHeaderView* rows = loadcaseTable->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(rows->fontMetrics().height() + 8);
    loadcaseTable->setItemDelegate(new MyDelegate(loadcaseTable, this));
    loadcaseTable->setContextmenueEnabled_new_del(false);
    setupColumns();
    mrl_connect(loadcaseTable, "2cellChanged( int, int )", this, "1slot_cellChanged( int, int )",
                Qt::AutoConnection);
    loadcaseTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    loadcaseTable->resizeColumnsToContents();
    loadcaseTable->setSortingEnabled(true);
}

void LCM_LoadcaseWidget::setupColumns()
{
    const QString components[] = {tr("Component of automatic dead weight in X-direction"),
                                  tr("Component of automatic dead weight in Y-direction"),
                                  tr("Component of automatic dead weight in Z-direction")};
    readSystem();
    const int axis = m_gravity >= -3 && m_gravity <= 3 ? std::abs(m_gravity) : 0;
    int position = 0;
    createLineEditHeader(loadcaseTable, LC_COL_NUMBER, baseDescription(0), QStringLiteral("Nr"),
                         tr("Number of loadcase"), position++)
        ->setColumnEnabled(false);
    createLineEditHeader(loadcaseTable, LC_COL_TITLE, baseDescription(-15), tr("Title"),
                         tr("Name of loadcase"), position++);
    // Child of the table; slot_actionCountChanged replaces the list.
    loadcaseTable->setHorizontalHeaderItem(
        position++, new MRL_H_TwHeaderComboBoxItem(LC_COL_ACTION, {{tr("Standard"), 0, -99999}}, tr("Action"),
                                                   tr("Action of loadcase"), true, Qt::AlignLeft));
    createLineEditHeader(loadcaseTable, LC_COL_DEADFACTOR, limitedDescription(), tr("Factor of dead weight"),
                         components[axis == 1 || axis == 2 ? axis - 1 : 2], position++);
    const struct
    {
        int id;
        QString caption;
    } directions[] = {{LC_COL_DLX, tr("DLX")}, {LC_COL_DLY, tr("DLY")}, {LC_COL_DLZ, tr("DLZ")}};
    for (int i = 0; i < 3; ++i) {
        createLineEditHeader(loadcaseTable, directions[i].id,
                             axis == i + 1 ? limitedDescription() : factorDescription(),
                             directions[i].caption, components[i], position++);
    }
    setupFactorColumns(position);
}

void LCM_LoadcaseWidget::setupFactorColumns(int position)
{
    const auto add = [&](bool exists, int id, const char* key, const QString& toolTip) {
        if (!exists) {
            return;
        }
        const QString label = model->designCodeText(QLatin1String(key));
        const QString text = toolTip.contains(QLatin1String("%1")) ? toolTip.arg(label) : toolTip;
        createLineEditHeader(loadcaseTable, id, factorDescription(), label, text, position++);
    };
    const QString combination = tr("Combination factor %1");
    add(model->hasGamu(), LC_COL_GAMU, "gamu", tr("Unfavourable safety factor"));
    add(model->hasGamf(), LC_COL_GAMF, "Gamf", tr("Favourable safety factor"));
    add(model->hasGama(), LC_COL_GAMA, "Gama", tr("Accidental safety factor"));
    add(model->hasPsi0(), LC_COL_PSI0, "Psi0", combination);
    add(model->hasPsi1(), LC_COL_PSI1, "Psi1", combination);
    add(model->hasPsi2(), LC_COL_PSI2, "Psi2", combination);
    add(model->hasPsi1s(), LC_COL_PSI1S, "Psi1s", combination);
}
