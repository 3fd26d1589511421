#include "loadcases/load_case_columns_setup.h"

#include <cstdlib>

#include "actions/table_helpers.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

namespace {

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

QString factorToolTip(LCM_FactorKind kind, const QString& label)
{
    switch (kind) {
    case LCM_FactorKind::Unfavourable:
        return LCM_LoadcaseWidget::tr("Unfavourable safety factor");
    case LCM_FactorKind::Favourable:
        return LCM_LoadcaseWidget::tr("Favourable safety factor");
    case LCM_FactorKind::Accidental:
        return LCM_LoadcaseWidget::tr("Accidental safety factor");
    case LCM_FactorKind::Combination:
        return LCM_LoadcaseWidget::tr("Combination factor %1").arg(label);
    }
    return {};
}

/// The key of a factor's label. This table asks for the first one in lower case, which is what it shows where the
/// design code has no label.
QString labelKey(const LCM_Factor& factor)
{
    const QString key = QLatin1String(factor.key);
    return factor.id == LCM_FactorId::Gamu ? key.toLower() : key;
}

void createFactorColumns(TableLoadCases* table, LCM_DataClass* model, int position)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (model->hasFactor(factor.id)) {
            const QString label = model->designCodeText(labelKey(factor));
            createLineEditHeader(table, factor.loadCaseColumn, factorDescription(), label,
                                 factorToolTip(factor.kind, label), position++);
        }
    }
}

} // namespace

void lcm_create_load_case_columns(TableLoadCases* table, LCM_DataClass* model, int gravity)
{
    const QString components[] = {
        LCM_LoadcaseWidget::tr("Component of automatic dead weight in X-direction"),
        LCM_LoadcaseWidget::tr("Component of automatic dead weight in Y-direction"),
        LCM_LoadcaseWidget::tr("Component of automatic dead weight in Z-direction")};
    const int axis = gravity >= -3 && gravity <= 3 ? std::abs(gravity) : 0;
    int position = 0;
    createLineEditHeader(table, LC_COL_NUMBER, baseDescription(0), QStringLiteral("Nr"),
                         LCM_LoadcaseWidget::tr("Number of loadcase"), position++)
        ->setColumnEnabled(false);
    createLineEditHeader(table, LC_COL_TITLE, baseDescription(-15), LCM_LoadcaseWidget::tr("Title"),
                         LCM_LoadcaseWidget::tr("Name of loadcase"), position++);
    // slot_actionCountChanged replaces the list.
    table->setHorizontalHeaderItem(
        position++,
        new MRL_H_TwHeaderComboBoxItem(LC_COL_ACTION, {{LCM_LoadcaseWidget::tr("Standard"), 0, -99999}},
                                       LCM_LoadcaseWidget::tr("Action"),
                                       LCM_LoadcaseWidget::tr("Action of loadcase"), true, Qt::AlignLeft));
    createLineEditHeader(table, LC_COL_DEADFACTOR, limitedDescription(),
                         LCM_LoadcaseWidget::tr("Factor of dead weight"),
                         components[axis == 1 || axis == 2 ? axis - 1 : 2], position++);
    const struct
    {
        int id;
        QString caption;
    } directions[] = {{LC_COL_DLX, LCM_LoadcaseWidget::tr("DLX")},
                      {LC_COL_DLY, LCM_LoadcaseWidget::tr("DLY")},
                      {LC_COL_DLZ, LCM_LoadcaseWidget::tr("DLZ")}};
    for (int i = 0; i < 3; ++i) {
        createLineEditHeader(table, directions[i].id,
                             axis == i + 1 ? limitedDescription() : factorDescription(),
                             directions[i].caption, components[i], position++);
    }
    createFactorColumns(table, model, position);
}
