#include "actions/actions_widget.h"

#include <QCursor>

#include <algorithm>
#include <utility>

#include "actions/actions_table.h"
#include "actions/load_case_tab.h"
#include "actions/row_cells.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "model/working_model.h"

namespace {

LCM_DataClass* shareModel(const LCM_LoadCaseTab& tab)
{
    LCM_DataClass* shared = tab.workingModel();
    shared->addReference();
    return shared;
}

} // namespace

LCM_ActionsWidget::LCM_ActionsWidget(LCM_LoadCaseTab* loadCaseTab, int database, int dialogOption,
                                     QWidget* parent, const char* name)
    : LCM_TabInterface(database, parent, name), m_dialogOption(dialogOption), m_loadCaseTab(loadCaseTab)
{
    // Counted: the last tab that releases the model destroys it.
    model = loadCaseTab != nullptr ? shareModel(*loadCaseTab) : new LCM_DataClass(database);
    LCM_ActionsWidget::createWidgets();
}

LCM_ActionsWidget::~LCM_ActionsWidget() { model->release(); }

void LCM_ActionsWidget::createWidgets()
{
    modified = false;
    auto* outer = new MRL_QT_VBoxLayout;
    setLayout(outer);
    setupTable();
    createCommands();

    auto* box = new MRL_H_TableWidgetBox(table, this, nullptr);
    auto* line = new MRL_QT_HBoxLayout(box, nullptr);
    line->addWidget(table);
    line->addLayout(createButtons(box));
    outer->addWidget(box);
}

void LCM_ActionsWidget::createCommands()
{
    // The text stands in no menu.
    auto* remove =
        new MRL_QT_Action(QStringLiteral("entf-action"), QKeySequence(Qt::Key_Delete), this, nullptr);
    mrl_connect(remove, "2triggered( bool )", this, "1slot_deleteClicked( )", Qt::AutoConnection);
    addAction(remove);

    m_reinitAllAction = new MRL_QT_Action(tr("Reinit all actions"), this, "reinit action");
    mrl_connect(m_reinitAllAction, "2triggered( bool )", this, "1slot_reInitAllActions( )",
                Qt::AutoConnection);
    m_reinitSelectedAction = new MRL_QT_Action(tr("Reinit selected actions"), this, "reinit single action");
    mrl_connect(m_reinitSelectedAction, "2triggered( bool )", this, "1slot_reInitSelectedActions( )",
                Qt::AutoConnection);
    m_actionsTable->setReinitActions(m_reinitAllAction, m_reinitSelectedAction);
}

QBoxLayout* LCM_ActionsWidget::createButtons(QWidget* box)
{
    auto* column = new MRL_QT_VBoxLayout;
    const auto addButton = [this, box, column](const QString& text, const char* name, const char* slot) {
        auto* button = new MRL_QT_PushButton(text, box, name);
        button->setFocusPolicy(Qt::TabFocus);
        mrl_connect(button, "2clicked( )", this, slot, Qt::AutoConnection);
        column->addWidget(button);
    };
    addButton(tr("New"), "button_new", "1slot_newClicked( )");
    addButton(tr("Delete"), "button_delete", "1slot_deleteClicked( )");
    column->addStretch(1);
    if (MRL_QT_ApplicationInterface::experimentalOn()) {
        addButton(tr("ADD ALL"), "button_add_all", "1slot_addAllClicked( )");
    }
    return column;
}

void LCM_ActionsWidget::contextMenuEvent(QContextMenuEvent*)
{
    MRL_QT_Menu* menu = table->getContextMenu();
    menu->addSeparator();
    menu->addAction(m_reinitAllAction);
    menu->exec(QCursor::pos());
}

void LCM_ActionsWidget::save(bool writeToDatabase)
{
    std::vector<LCM_CodedAction> rows(static_cast<std::size_t>(table->rowCount()));
    for (int row = 0; row < table->rowCount(); ++row) {
        LCM_CodedAction& action = rows[static_cast<std::size_t>(row)];
        action.code = readRow(row, action.record);
    }
    model->storeActions(rows, true);

    if (modified && model->hasSuperpositionKeys()) {
        MRL_QT_MessageBox::information(
            this, LCM_TabInterface::tr("Action modified"),
            LCM_TabInterface::tr(
                "You have made modifications to the actions.\nPlease check your inputs in the "
                "Superposition Manager and adapt them if necessary manually or by "
                "reinitializing."),
            QString(), QString(), QString(), 0, -1);
        modificationNoticePending = false;
    }
    if (writeToDatabase) {
        model->writeActions(db);
    }
}

int LCM_ActionsWidget::readRow(int row, tagCDB_LC_ACT& action)
{
    return LCM_RowCells(table, row).read(action);
}

void LCM_ActionsWidget::readAllRows(std::vector<tagCDB_LC_ACT>& actions)
{
    actions.resize(static_cast<std::size_t>(table->rowCount()));
    for (int row = 0; row < table->rowCount(); ++row) {
        readRow(row, actions[static_cast<std::size_t>(row)]);
    }
}

const std::map<int, tagCDB_LC_ACT>& LCM_ActionsWidget::getActionMap()
{
    if (rowCacheDirty) {
        rowCache.clear();
        tagCDB_LC_ACT action;
        for (int row = 0; row < table->rowCount(); ++row) {
            const int code = readRow(row, action);
            rowCache[code] = action;
        }
        rowCacheDirty = false;
    }
    return rowCache;
}

bool LCM_ActionsWidget::findAction(int code, tagCDB_LC_ACT& action)
{
    const std::map<int, tagCDB_LC_ACT>& rows = getActionMap();
    const auto found = rows.find(code);
    if (found == rows.end()) {
        return false;
    }
    action = found->second;
    return true;
}

bool LCM_ActionsWidget::findAction(const tagCDB_LC_CTRL& loadcase, tagCDB_LC_ACT& action)
{
    return findAction(loadcase.action, action);
}

bool LCM_ActionsWidget::actionExists(int code)
{
    tagCDB_LC_ACT action;
    return findAction(code, action);
}

bool LCM_ActionsWidget::hasFactorColumns() const
{
    return std::any_of(LCM_FACTORS.begin(), LCM_FACTORS.end(), [this](const LCM_Factor& factor) {
        return factor.kind != LCM_FactorKind::Accidental && model->hasFactor(factor.id);
    });
}

void LCM_ActionsWidget::getSelectedActionCodes(std::set<int>& codes) const
{
    codes.clear();
    for (const int row : getSelectedRows(table)) {
        codes.insert(LCM_RowCells(table, row).actionCode());
    }
}
