#include "actions/action_columns_setup.h"

#include <list>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_table.h"
#include "lcdata/values/partition.h"
#include "model/working_model.h"
#include "rules/action_columns.h"

namespace {

template <class List>
std::list<ComboList> comboList(const List& entries)
{
    std::list<ComboList> list;
    for (const auto& entry : entries) {
        list.push_back({LCM_ActionsWidget::tr(entry.caption), entry.id});
    }
    return list;
}

/// The description of a text column (format -15) or of a factor (format -3). Its first bound lies above the
/// second, so that the cell refuses nothing: the rules judge the range.
StructLineEdit description(int format, int precision)
{
    StructLineEdit result;
    result.format = format;
    result.precision = precision;
    result.flags = 0x800;
    return result;
}

void createComboHeader(MRL_H_TableWidget* table, int id, const std::list<ComboList>& entries,
                       const QString& caption, const QString& toolTip)
{
    // The ids of the fixed columns count their positions.
    table->setHorizontalHeaderItem(
        id - ACT_COL_ACTION,
        new MRL_H_TwHeaderComboBoxItem(id, entries, caption, toolTip, true, Qt::AlignLeft));
}

void createFixedColumns(MRL_H_TableWidget* table)
{
    const StructLineEdit text = description(-15, -1);
    const QString action = LCM_ActionsWidget::tr("Action");
    createLineEditHeader(table, ACT_COL_ACTION, text, action, action, 0)->setColumnEnabled(false);
    const QString title = LCM_ActionsWidget::tr("Description");
    createLineEditHeader(table, ACT_COL_DESCRIPTION, text, title, title, 1);
    const QString partition = LCM_ActionsWidget::tr("Partition");
    createComboHeader(table, ACT_COL_PARTITION, comboList(LCM_PARTITIONS), partition, partition);
    createComboHeader(table, ACT_COL_SUPERPOSITION, comboList(LCM_SUPERPOSITIONS),
                      LCM_ActionsWidget::tr("Superposition"),
                      LCM_ActionsWidget::tr("Handling of the loadcases"));
}

QString factorToolTip(LCM_FactorKind kind, const QString& label)
{
    switch (kind) {
    case LCM_FactorKind::Unfavourable:
        return LCM_ActionsWidget::tr("Unfavourable safety factor");
    case LCM_FactorKind::Favourable:
        return LCM_ActionsWidget::tr("Favourable safety factor");
    case LCM_FactorKind::Accidental:
        return LCM_ActionsWidget::tr("Accidental safety factor");
    case LCM_FactorKind::Combination:
        return LCM_ActionsWidget::tr("Combination factor %1").arg(label);
    }
    return {};
}

} // namespace

void lcm_create_action_columns(MRL_H_TableWidget* table, LCM_DataClass* model)
{
    createFixedColumns(table);
    int position = 4;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (model->hasFactor(factor.id)) {
            const QString label = model->designCodeText(QLatin1String(factor.key));
            createLineEditHeader(table, factor.actionColumn, description(-3, 2), label,
                                 factorToolTip(factor.kind, label), position++);
        }
    }
}
