#include "manager/loadcase_manager.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTabWidget>

#include "actions/actions_widget.h"
#include "actions/host_settings.h"
#include "host/mrl_alib.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "host/mrl_lib.h"
#include "host/mrl_textlist.h"
#include "loadcases/loadcase_widget.h"
#include "manager/control_struct.h"
#include "manager/entry_points.h"
#include "manager/extras.h"
#include "manager/leaving.h"

namespace {

constexpr int WANTED_LOADCASES = 0;
constexpr int WANTED_ACTIONS = 1;
constexpr int EXACTLY_ONE_LOADCASE = 1;
constexpr int SETTING_LANGUAGE = 102;

/// One line "label = value" where the design code defines the value, else an empty text.
QString boxedValueLine(const char* name, const char* textKey)
{
    float value = 0.0f;
    if (mrl_dlib_boxed_value("COMBINATIONS", name, value) <= 0) {
        return QString();
    }
    const QString label = QString::fromUtf8(mrl_lib_convtext(1, mrl_lib_setting(SETTING_LANGUAGE), textKey));
    return QStringLiteral("%1 = %2").arg(label, QString::number(static_cast<double>(value), 'g'));
}

} // namespace

LoadcaseManager::LoadcaseManager(MRL_H_PluginParameter* parameter, MRL_LC_CtrlStruct* control, int db)
    : MRL_H_Dialog(parameter, QStringLiteral("LoadcaseManager"), QStringLiteral("General"), true, false,
                   QRect(-1, -1, 1, 1)),
      m_control(control), m_db(db)
{
    setObjectName(QStringLiteral("new loadcase manager"));
}

LoadcaseManager::~LoadcaseManager() = default;

void LoadcaseManager::accept()
{
    const std::int32_t mode = m_control->mode;
    const std::vector<LCM_LoadcaseCopy> copies = m_control->copies;
    MRL_H_Dialog::accept();
    if (result() == QDialog::Accepted) {
        if (m_extras) {
            m_extras->noteAcceptance();
        }
        return;
    }
    // Saving may have set these before it failed and was rolled back.
    m_control->mode = mode;
    m_control->copies = copies;
}

int LoadcaseManager::createContents(QBoxLayout* layout)
{
    m_tabs = new QTabWidget(this);
    mrl_connect(m_tabs, "2currentChanged ( int )", this, "1slot_tabChanged ( int )", Qt::AutoConnection);
    setCaption(tr("Marlavon: Loadcase Manager"));
    createTabs();
    if (lcm_wants_extras()) {
        createExtras(layout);
    }
    layout->addWidget(m_tabs, 1);
    if (m_extras) {
        layout->addWidget(m_extras->findingsList());
    }
    mrl_cdb_use(m_db, 0);
    mrl_dlib_ini_switch(m_db);
    addInfoLine(layout);
    if (m_control->mode == WANTED_LOADCASES && m_loadCases) {
        m_tabs->setCurrentWidget(m_loadCases);
    } else if (m_control->mode == WANTED_ACTIONS && m_actions) {
        m_tabs->setCurrentWidget(m_actions);
    }
    return 1;
}

void LoadcaseManager::createExtras(QBoxLayout* layout)
{
    m_extras = std::make_unique<LCM_Extras>(this, LCM_HistoryTabs{m_actions, m_loadCases, m_tabs});
    layout->addWidget(m_extras.get());
}

void LoadcaseManager::createTabs()
{
    if (m_control->singleTab && m_control->mode == WANTED_LOADCASES) {
        createLoadCaseTab();
        m_tabs->addTab(m_loadCases, tr("Loadcases"));
        return;
    }
    if (m_control->singleTab && m_control->mode == WANTED_ACTIONS) {
        createActionsTab();
        m_tabs->addTab(m_actions, tr("Actions"));
        setCaption(tr("Marlavon: Action Manager"));
        return;
    }
    // The load-case tab makes the working model, which the actions tab then shares.
    createLoadCaseTab();
    createActionsTab();
    m_tabs->addTab(m_actions, tr("Actions"));
    m_tabs->addTab(m_loadCases, tr("Loadcases"));
    setCaption(tr("Marlavon: Action and Loadcase Manager"));
    m_loadCases->setActionsWidget(m_actions);
}

void LoadcaseManager::createLoadCaseTab()
{
    m_loadCases = new LCM_LoadcaseWidget(m_db, this, "loadcasewidget");
    mrl_connect(m_loadCases, "2signal_deleteUnusedLoadcases()", this, "1slot_deleteUnusedLoadcases()",
                Qt::AutoConnection);
}

void LoadcaseManager::createActionsTab()
{
    m_actions = new LCM_ActionsWidget(m_loadCases, m_db, m_control->actionOptions, this, "actionswidget");
}

QString LoadcaseManager::infoText() const
{
    QString text = MRL_A_Normen::getNormLabelText(m_db);
    for (const QString& line : {boxedValueLine("KFI", "40Z"), boxedValueLine("XSI", "40X")}) {
        if (!line.isEmpty()) {
            text += QLatin1Char('\n') + line;
        }
    }
    return text;
}

void LoadcaseManager::addInfoLine(QBoxLayout* layout)
{
    auto* line = new MRL_QT_HBoxLayout;
    line->addWidget(new MRL_QT_InfoText(infoText(), this, "norm info"));
    layout->addLayout(line, 0);
}

void LoadcaseManager::initContents()
{
    if (m_actions) {
        m_actions->fillTable();
    }
    if (m_loadCases) {
        m_loadCases->fillTable();
        m_loadCases->selectLoadcases(m_control->loadCases);
    }
    if (m_extras) {
        m_extras->start();
    }
    if (!m_actions || m_actions->hasFactorColumns()) {
        return;
    }
    // Only the page is removed; the widget is still checked and saved.
    m_tabs->removeTab(m_tabs->indexOf(m_actions));
    if (m_loadCases) {
        m_tabs->setCurrentWidget(m_loadCases);
    }
}

bool LoadcaseManager::refuseInvalid(LCM_TabInterface* tab)
{
    QMessageBox::critical(this, tr("Invalid input"), tr("The input is invalid, please check your input!"),
                          QMessageBox::Ok);
    if (m_tabs->indexOf(tab) >= 0) {
        m_tabs->setCurrentWidget(tab);
    }
    // The row may be one of thousands, and a row whose action is missing has no red cell.
    tab->showInvalidRow();
    return false;
}

bool LoadcaseManager::takeSelectedLoadCases()
{
    std::set<int> selected;
    m_loadCases->getSelectedLoadcases(selected);
    if ((m_control->options & EXACTLY_ONE_LOADCASE) == 0 || selected.size() == 1) {
        m_control->loadCases = std::move(selected);
        return true;
    }
    MRL_QT_MessageBox::critical(this, tr("Error!"), tr("Please select exactly one loadcase!"));
    return false;
}

bool LoadcaseManager::checkContents()
{
    if (m_actions && !m_actions->isValid()) {
        return refuseInvalid(m_actions);
    }
    if (m_loadCases && !m_loadCases->isValid()) {
        return refuseInvalid(m_loadCases);
    }
    const bool mayClose = !m_loadCases || takeSelectedLoadCases();
    if (m_actions) {
        m_actions->getSelectedActionCodes(m_control->actions);
    }
    return mayClose;
}

void LoadcaseManager::saveContents()
{
    if (m_actions) {
        m_actions->save(true);
    }
    if (m_loadCases) {
        m_loadCases->save(true);
        m_control->copies = m_loadCases->getCopies();
    }
    m_control->mode = m_actions && m_tabs->currentWidget() == m_actions ? WANTED_ACTIONS : WANTED_LOADCASES;
}

void LoadcaseManager::noOpHook() {}

void LoadcaseManager::showHelp()
{
    if (m_control->helpFunction) {
        m_control->helpFunction(-1);
    } else {
        MRL_T_Help::show(this, "marlload", "ACT");
    }
}

void LoadcaseManager::slot_tabChanged(int) {}

void LoadcaseManager::slot_deleteUnusedLoadcases()
{
    if (mayLoseSteps()) {
        done(MRL_LC_DELETE_UNUSED);
    }
}

bool LoadcaseManager::mayLoseSteps() { return !m_extras || lcm_may_lose(this, m_extras->stepCount()); }

void LoadcaseManager::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel) && !mayLoseSteps()) {
        event->accept();
        return;
    }
    MRL_H_Dialog::keyPressEvent(event);
}

void LoadcaseManager::closeEvent(QCloseEvent* event)
{
    if (!mayLoseSteps()) {
        event->ignore();
        return;
    }
    MRL_H_Dialog::closeEvent(event);
}

void LoadcaseManager::showEvent(QShowEvent* event)
{
    MRL_H_Dialog::showEvent(event);
    auto* buttons = m_extras ? findChild<MRL_QT_Ok*>(QStringLiteral("buttons")) : nullptr;
    if (!buttons || event->spontaneous()) {
        return;
    }
    // The base connects the button to reject(), which stays unconditional for those who call it.
    QPushButton* cancel = buttons->cmdCancel();
    cancel->disconnect(this);
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (mayLoseSteps()) {
            reject();
        }
    });
}
