// The tab: its making, its settings, its link to the actions tab, and the way of its rows into the model.

#include "loadcases/loadcase_widget.h"

#include <QItemSelectionModel>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/columns.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"

namespace {

const auto SETTINGS = QStringLiteral("LF_Manager");

MRL_QT_Application* application() { return qobject_cast<MRL_QT_Application*>(QCoreApplication::instance()); }

} // namespace

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
    const auto shown = lcm_shown_components(m_systemClass);
    show(LC_COL_DLX, components && shown[0]);
    show(LC_COL_DLY, components && shown[1]);
    show(LC_COL_DLZ, components && shown[2]);
    show(LC_COL_DEADFACTOR, !components);
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

void LCM_LoadcaseWidget::selectLoadcases(const std::set<int>& numbers)
{
    if (numbers.empty()) {
        return;
    }
    loadcaseTable->setFocus();
    std::set<int> missing = numbers;
    std::map<int, int> rows; // the first row of each number
    for (int row = 0; row < loadcaseTable->rowCount() && !missing.empty(); ++row) {
        const int number = LCM_LoadCaseCells(*loadcaseTable, row).number();
        if (missing.erase(number) != 0) {
            rows.emplace(number, row);
        }
    }
    if (rows.empty()) {
        return;
    }
    std::set<int> positions;
    for (const auto& [number, row] : rows) {
        positions.insert(row);
    }

    // Rows that follow each other become one range: the cost of a selection goes with its ranges.
    QItemSelection selection;
    const QAbstractItemModel* items = loadcaseTable->model();
    const int lastColumn = loadcaseTable->columnCount() - 1;
    for (auto first = positions.begin(); first != positions.end();) {
        auto last = first;
        for (auto next = std::next(last); next != positions.end() && *next == *last + 1; ++next) {
            last = next;
        }
        selection.append(QItemSelectionRange(items->index(*first, 0), items->index(*last, lastColumn)));
        first = std::next(last);
    }
    const QModelIndex current = items->index(rows.rbegin()->second, 0);
    loadcaseTable->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    loadcaseTable->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void LCM_LoadcaseWidget::getSelectedLoadcases(std::set<int>& numbers)
{
    numbers.clear();
    for (const int row : getSelectedRows(loadcaseTable)) {
        numbers.insert(LCM_LoadCaseCells(*loadcaseTable, row).number());
    }
}

std::vector<LCM_LoadcaseCopy> LCM_LoadcaseWidget::getCopies() const { return copies; }

void LCM_LoadcaseWidget::save(bool writeToDatabase)
{
    readSystem();
    const LCM_RowContext context = rowContext();
    std::vector<LCM_LoadcaseEntry> entries(static_cast<std::size_t>(loadcaseTable->rowCount()));
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        readCells(LCM_LoadCaseCells(*loadcaseTable, row), entries[static_cast<std::size_t>(row)], context);
    }
    model->loadcases = std::move(entries);
    notifyModification();
    if (writeToDatabase) {
        model->writeLoadcases(db);
    }
    storeSettings();
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

void LCM_LoadcaseWidget::readSettings()
{
    MRL_QT_Application* settings = application();
    if (!settings) {
        return;
    }
    int deadload = 0;
    int increment = 1;
    settings->getAppSettings(SETTINGS, QStringLiteral("checkDeadload"), deadload, 0);
    settings->getAppSettings(SETTINGS, QStringLiteral("checkIncrement"), increment, 1);
    checkDeadload->setChecked(deadload != 0);
    checkIncrease->setChecked(increment != 0);
}

void LCM_LoadcaseWidget::storeSettings()
{
    MRL_QT_Application* settings = application();
    if (!settings) {
        return;
    }
    settings->setAppSettings(SETTINGS, QStringLiteral("checkDeadload"), checkDeadload->isChecked() ? 1 : 0);
    settings->setAppSettings(SETTINGS, QStringLiteral("checkIncrement"), checkIncrease->isChecked() ? 1 : 0);
}
