#include "actions/action_columns_setup.h"

#include <list>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_table.h"
#include "model/working_model.h"
#include "rules/action_columns.h"

namespace {

struct Entry
{
    const char* text;
    int id;
};

constexpr Entry PARTITIONS[] = {
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "G (Permanent)"), 1},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "P (Prestress)"), 2},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q (Variable)"), 3},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "A (Accidental)"), 4},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "E (Earthquake)"), 5},
    // A load group's id is category Q shifted up four bits and joined with the number of the group.
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_1 (Variable) Loadgroup 1"), 49},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_2 (Variable) Loadgroup 2"), 50},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_3 (Variable) Loadgroup 3"), 51},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_4 (Variable) Loadgroup 4"), 52},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_5 (Variable) Loadgroup 5"), 53},
};

constexpr Entry SUPERPOSITIONS[] = {
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "PERM permanent"), 0},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "COND conditional"), 1},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "EXCL exclusive within category"), 2},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "UNSI conditional with unfavourable sign"), 3},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "USEX exclusive with unfavourable sign"), 4},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "ALEX permanent but exclusive"), 5},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "EXEX exclusive within action"), 6},
    {QT_TRANSLATE_NOOP("LCM_ActionsWidget", "PERC permanent with individual factors"), 8},
};

template <std::size_t N>
std::list<ComboList> comboList(const Entry (&entries)[N])
{
    std::list<ComboList> list;
    for (const Entry& entry : entries) {
        list.push_back({LCM_ActionsWidget::tr(entry.text), entry.id});
    }
    return list;
}

/// The description of a text column (format -15) or of a factor (format -3). Its bounds set no limit: the
/// first lies above the second, and what is out of range is told by the rules, not refused by the cell.
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
    // Child of the table; the fixed columns stand at the places that their ids count.
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
    createComboHeader(table, ACT_COL_PARTITION, comboList(PARTITIONS), partition, partition);
    createComboHeader(table, ACT_COL_SUPERPOSITION, comboList(SUPERPOSITIONS),
                      LCM_ActionsWidget::tr("Superposition"),
                      LCM_ActionsWidget::tr("Handling of the loadcases"));
}

/// Appends a factor's column if the design code shows it. An empty tool tip stands for that of a combination
/// factor, which names the design code's label.
void createFactorColumn(MRL_H_TableWidget* table, LCM_DataClass* model, int& position, int id, bool shown,
                        const char* key, const QString& toolTip = QString())
{
    if (!shown) {
        return;
    }
    const QString label = model->designCodeText(QLatin1String(key));
    createLineEditHeader(
        table, id, description(-3, 2), label,
        toolTip.isEmpty() ? LCM_ActionsWidget::tr("Combination factor %1").arg(label) : toolTip, position++);
}

} // namespace

void lcm_create_action_columns(MRL_H_TableWidget* table, LCM_DataClass* model)
{
    createFixedColumns(table);
    int position = 4;
    createFactorColumn(table, model, position, ACT_COL_GAMU, model->hasGamu() != 0, "Gamu",
                       LCM_ActionsWidget::tr("Unfavourable safety factor"));
    createFactorColumn(table, model, position, ACT_COL_GAMF, model->hasGamf() != 0, "Gamf",
                       LCM_ActionsWidget::tr("Favourable safety factor"));
    createFactorColumn(table, model, position, ACT_COL_GAMA, model->hasGama() != 0, "Gama",
                       LCM_ActionsWidget::tr("Accidental safety factor"));
    createFactorColumn(table, model, position, ACT_COL_PSI0, model->hasPsi0() != 0, "Psi0");
    createFactorColumn(table, model, position, ACT_COL_PSI1, model->hasPsi1() != 0, "Psi1");
    createFactorColumn(table, model, position, ACT_COL_PSI2, model->hasPsi2() != 0, "Psi2");
    createFactorColumn(table, model, position, ACT_COL_PSI1S, model->hasPsi1s() != 0, "Psi1s");
}
