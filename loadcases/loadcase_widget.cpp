#include "loadcases/loadcase_widget.h"

#include <QFontMetrics>
#include <QHeaderView>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/load_case_columns_setup.h"
#include "loadcases/load_case_creation.h"
#include "loadcases/load_case_deletion.h"
#include "loadcases/load_case_numbering.h"
#include "loadcases/load_case_reconciliation.h"
#include "loadcases/load_case_rows.h"
#include "loadcases/row_actions.h"
#include "loadcases/row_context.h"
#include "loadcases/tab_settings.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"
#include "rules/project_setup.h"

LCM_LoadcaseWidget::LCM_LoadcaseWidget(int database, QWidget* parent, const char* name)
    : LCM_TabInterface(database, parent, name)
{
    model = new LCM_DataClass(database); // shared by its count, see the destructor
    LCM_LoadcaseWidget::createWidgets();
    slot_actionCountChanged();
}

LCM_LoadcaseWidget::~LCM_LoadcaseWidget() { model->release(); }

void LCM_LoadcaseWidget::createWidgets()
{
    modified = false;
    auto* mainLayout = new MRL_QT_VBoxLayout(this);
    setupTable();

    auto* deleteAction = new MRL_QT_Action(QStringLiteral("entf-action"), QKeySequence(Qt::Key_Delete), this);
    mrl_connect(deleteAction, "2triggered( bool )", this, "1slot_deleteClicked( )", Qt::AutoConnection);
    addAction(deleteAction);

    auto* box = new MRL_H_TableWidgetBox(loadcaseTable, this, nullptr);
    auto* tableLine = new MRL_QT_HBoxLayout(box);
    tableLine->addWidget(loadcaseTable);
    auto* buttonColumn = new MRL_QT_VBoxLayout();
    tableLine->addLayout(buttonColumn);
    createButtons(buttonColumn);
    mainLayout->addWidget(box);

    auto* boxLine = new MRL_QT_HBoxLayout();
    mainLayout->addLayout(boxLine);
    createCheckBoxes(boxLine);
    slot_checkDeadloadChanged(checkDeadload->checkState());
}

void LCM_LoadcaseWidget::setupTable()
{
    readSystem();
    loadcaseTable =
        new TableLoadCases(LC_FIXED_COLUMNS + model->optionalColumnCount(), this, "loadcase table");
    table = loadcaseTable;
    loadcaseTable->activateSearchEnabled(false);
    loadcaseTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    QHeaderView* rowHeader = loadcaseTable->verticalHeader();
    rowHeader->setSectionResizeMode(QHeaderView::Fixed);
    rowHeader->setDefaultSectionSize(rowHeader->fontMetrics().height() + 8);
    loadcaseTable->setItemDelegate(new MyDelegate(loadcaseTable, this));
    loadcaseTable->setContextmenueEnabled_new_del(false);
    lcm_create_load_case_columns(loadcaseTable, model, m_setup.gravity);
    mrl_connect(loadcaseTable, "2cellChanged( int, int )", this, "1slot_cellChanged( int, int )",
                Qt::AutoConnection);
    loadcaseTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    loadcaseTable->resizeColumnsToContents();
    loadcaseTable->setSortingEnabled(true);

    m_actions = std::make_unique<LCM_RowActions>(*loadcaseTable);
    m_rows = std::make_unique<LCM_LoadCaseRows>(*loadcaseTable, *m_actions, *model->availabilityRecord());
    m_numbering = std::make_unique<LCM_LoadCaseNumbering>(*this, *loadcaseTable, *model);
}

void LCM_LoadcaseWidget::createButtons(QBoxLayout* column)
{
    const struct
    {
        QString text;
        const char* name;
        const char* slot;
    } buttons[] = {{tr("New"), "button_new", "1slot_newClicked( )"},
                   {tr("Copy"), "button_copy", "1slot_copyClicked( )"},
                   {tr("Delete"), "button_delete", "1slot_deleteClicked( )"}};
    for (const auto& description : buttons) {
        auto* button = new MRL_QT_PushButton(description.text, this, description.name);
        button->setFocusPolicy(Qt::TabFocus);
        mrl_connect(button, "2clicked( )", this, description.slot, Qt::AutoConnection);
        column->addWidget(button);
    }
    column->addStretch(1);
}

void LCM_LoadcaseWidget::createCheckBoxes(QBoxLayout* line)
{
    checkDeadload = new MRL_QT_CheckBox(tr("Use global deadload directions"), this, "check_deadload");
    checkIncrease = new MRL_QT_CheckBox(tr("Increment loadcases automatically from selected on"), this,
                                        "check_increaselc");
    line->addWidget(checkDeadload);
    line->addWidget(checkIncrease);
    line->addStretch(1);
    checkIncrease->setCheckState(Qt::Checked);
    mrl_connect(checkDeadload, "2stateChanged( int )", this, "1slot_checkDeadloadChanged( int )",
                Qt::AutoConnection);
}

void LCM_LoadcaseWidget::slot_checkDeadloadChanged(int state)
{
    const auto show = [this](int column, bool shown) {
        loadcaseTable->setColumnHidden(loadcaseTable->getColumnNumber(column), !shown);
    };
    const bool components = state == Qt::Checked;
    readSystem();
    const auto shown = lcm_shown_components(m_setup.systemClass);
    show(LC_COL_DLX, components && shown[0]);
    show(LC_COL_DLY, components && shown[1]);
    show(LC_COL_DLZ, components && shown[2]);
    show(LC_COL_DEADFACTOR, !components);
    if (components && !m_componentsFitted) {
        // Fitting passes hidden columns over.
        for (const int column : {LC_COL_DLX, LC_COL_DLY, LC_COL_DLZ}) {
            loadcaseTable->resizeColumnToContents(loadcaseTable->getColumnNumber(column));
        }
        m_componentsFitted = true;
    }
}

void LCM_LoadcaseWidget::setActionsWidget(LCM_ActionsWidget* actions)
{
    actionsWidget = actions;
    mrl_connect(actions, "2signal_actionCountChanged( )", this, "1slot_actionCountChanged( )",
                Qt::AutoConnection);
    mrl_connect(actions, "2signal_actionValuesChanged( int, int )", this,
                "1slot_actionValuesChanged( int, int )", Qt::AutoConnection);
    mrl_connect(actions, "2signal_reinitActions( const std::set<int> & )", this,
                "1slot_reinitActions( const std::set<int> & )", Qt::AutoConnection);
    slot_actionCountChanged();
}

void LCM_LoadcaseWidget::readSystem() { lcm_read_system(db, m_setup); }

LCM_RowContext LCM_LoadcaseWidget::rowContext() const
{
    LCM_LoadCaseSetup setup = m_setup;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        setup.factorColumns[factor.id] = loadcaseTable->getColumnNumber(factor.loadCaseColumn) >= 0;
    }
    setup.globalDirections = checkDeadload->isChecked();
    return {setup, LCM_ActionLookup(actionsWidget, *model)};
}

void LCM_LoadcaseWidget::fillTable()
{
    readSystem();
    if (!model->loadcases.empty()) {
        appendRows(model->loadcases);
    }
    loadcaseTable->sortByColumn(loadcaseTable->getColumnNumber(LC_COL_NUMBER), Qt::AscendingOrder);
    LCM_TabSettings settings{checkDeadload->isChecked(), checkIncrease->isChecked()};
    lcm_read_settings(settings);
    checkDeadload->setChecked(settings.globalDirections);
    checkIncrease->setChecked(settings.increment);
    loadcaseTable->resizeColumnsToContents();
}

void LCM_LoadcaseWidget::appendRows(const std::vector<LCM_LoadcaseEntry>& entries)
{
    MRL_QT_SortingBlocker sortingBlocker(loadcaseTable);
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    m_actions->offerActionsOf(entries);
    LCM_RowContext context = rowContext();
    int row = loadcaseTable->rowCount();
    loadcaseTable->appendNewRows(static_cast<int>(entries.size()), MRL_H_TableWidget::CreateCells);
    for (const LCM_LoadcaseEntry& entry : entries) {
        LCM_LoadCaseCells cells(*loadcaseTable, row);
        m_rows->fill(cells, entry, context);
        setRowValid(row, m_rows->judge(row, cells, context));
        ++row;
    }
    m_actions->forgetUsed();
    sortingBlocker.unblock();
}

void LCM_LoadcaseWidget::selectLoadcases(const std::set<int>& numbers)
{
    if (numbers.empty()) {
        return;
    }
    loadcaseTable->setFocus();
    std::set<int> missing = numbers;
    std::map<int, int> rowByNumber; // the first row of each number
    for (int row = 0; row < loadcaseTable->rowCount() && !missing.empty(); ++row) {
        const int number = loadcaseTable->numberOfRow(row);
        if (missing.erase(number) != 0) {
            rowByNumber.emplace(number, row);
        }
    }
    std::set<int> rows;
    for (const auto& [number, row] : rowByNumber) {
        rows.insert(row);
    }
    if (!rows.empty()) {
        loadcaseTable->selectWholeRows(rows, rowByNumber.rbegin()->second);
    }
}

void LCM_LoadcaseWidget::getSelectedLoadcases(std::set<int>& numbers)
{
    numbers.clear();
    for (const int row : getSelectedRows(loadcaseTable)) {
        numbers.insert(loadcaseTable->numberOfRow(row));
    }
}

std::vector<LCM_LoadcaseCopy> LCM_LoadcaseWidget::getCopies() const { return copies; }

void LCM_LoadcaseWidget::save(bool writeToDatabase)
{
    readSystem();
    const LCM_RowContext context = rowContext();
    std::vector<LCM_LoadcaseEntry> entries(static_cast<std::size_t>(loadcaseTable->rowCount()));
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        m_rows->read(LCM_LoadCaseCells(*loadcaseTable, row), entries[static_cast<std::size_t>(row)], context);
    }
    model->loadcases = std::move(entries);
    notifyModification();
    if (writeToDatabase) {
        model->writeLoadcases(db);
    }
    lcm_store_settings({checkDeadload->isChecked(), checkIncrease->isChecked()});
}

void LCM_LoadcaseWidget::notifyModification()
{
    if (!modificationNoticePending || !modified || !model->hasSuperpositionContent()) {
        return;
    }
    MRL_QT_MessageBox::information(
        this, LCM_TabInterface::tr("Action modified"),
        LCM_TabInterface::tr("You have made modifications to the actions.\nPlease check your inputs in the "
                             "Superposition Manager and adapt them if necessary manually or by "
                             "reinitializing."));
    modificationNoticePending = false;
}
