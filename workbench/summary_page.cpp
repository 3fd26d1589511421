#include "workbench/summary_page.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "workbench/actions_model.h"
#include "workbench/axis_name.h"
#include "workbench/findings_model.h"
#include "workbench/load_cases_model.h"
#include "workbench/table_copy.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

constexpr int FINDINGS = 2; ///< the tab of the findings

QLabel* valueLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

QString systemName(int systemClass)
{
    switch (systemClass) {
    case LC_SYSTEM_PLANE:
        return SummaryPage::tr("plane structure");
    case LC_SYSTEM_PLATE:
        return SummaryPage::tr("plate");
    default:
        return SummaryPage::tr("spatial structure");
    }
}

void fitColumns(QTableView* table, int stretched)
{
    table->resizeColumnsToContents();
    table->horizontalHeader()->setSectionResizeMode(stretched, QHeaderView::Stretch);
}

} // namespace

SummaryPage::SummaryPage(QWidget* parent)
    : QWidget(parent), m_designCode(valueLabel("fact_designcode", this)),
      m_system(valueLabel("fact_system", this)), m_gravity(valueLabel("fact_gravity", this)),
      m_current(valueLabel("fact_current", this)),
      m_noActions(
          new QLabel(tr("No actions are stored yet. The managers start with the default actions of the "
                        "design code; OK stores them."),
                     this)),
      m_tabs(new QTabWidget(this)), m_actionsModel(new ActionsModel(this)),
      m_loadCasesModel(new LoadCasesModel(this)), m_findingsModel(new FindingsModel(this)),
      m_actions(createTable(m_actionsModel, "table_actions")),
      m_loadCases(createTable(m_loadCasesModel, "table_loadcases")),
      m_findings(createTable(m_findingsModel, "table_findings")),
      m_checkAgain(new QLabel(QStringLiteral("<a href=\"#\">%1</a>").arg(tr("Check again")), this))
{
    setObjectName(QStringLiteral("summary"));
    m_noActions->setWordWrap(true);
    m_actions->setAccessibleName(tr("Actions"));
    m_loadCases->setAccessibleName(tr("Load cases"));
    m_findings->setAccessibleName(tr("Findings"));
    auto* actionsPage = new QWidget(this);
    auto* actionsLayout = new QVBoxLayout(actionsPage);
    actionsLayout->setContentsMargins(0, 0, 0, 0);
    actionsLayout->addWidget(m_noActions);
    actionsLayout->addWidget(m_actions, 1);
    m_tabs->addTab(actionsPage, QString());
    m_tabs->addTab(m_loadCases, QString());
    m_tabs->addTab(createFindingsPage(), QString());
    m_tabs->setDocumentMode(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createFacts());
    layout->addWidget(m_tabs, 1);
}

SummaryPage::~SummaryPage() = default;

QWidget* SummaryPage::createFindingsPage()
{
    m_checkAgain->setObjectName(QStringLiteral("link_check_again"));
    m_checkAgain->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_checkAgain->setContentsMargins(6, 4, 6, 0);
    connect(m_checkAgain, &QLabel::linkActivated, this, &SummaryPage::checkAgain);
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_checkAgain);
    layout->addWidget(m_findings, 1);
    return page;
}

void SummaryPage::showFindings()
{
    m_tabs->setCurrentIndex(FINDINGS);
    m_findings->setFocus();
}

void SummaryPage::openAt(const QModelIndex& index)
{
    const QVariant number = index.data(ROW_LOAD_CASE_ROLE);
    if (number.isValid()) {
        emit loadCaseWanted(number.toInt());
    } else {
        emit actionWanted();
    }
}

QWidget* SummaryPage::createFacts()
{
    auto* facts = new QWidget(this);
    auto* form = new QFormLayout(facts);
    form->setContentsMargins(0, 0, 0, 6);
    form->setHorizontalSpacing(18);
    form->addRow(tr("Design code:"), m_designCode);
    form->addRow(tr("System:"), m_system);
    form->addRow(tr("Gravity:"), m_gravity);
    form->addRow(tr("Current load case:"), m_current);
    return facts;
}

QTableView* SummaryPage::createTable(QAbstractItemModel* model, const char* name)
{
    auto* table = new QTableView(this);
    table->setObjectName(QLatin1String(name));
    table->setModel(model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAlternatingRowColors(true);
    addCopyCommands(*table);
    connect(table, &QTableView::activated, this, &SummaryPage::openAt);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setFrameShape(QFrame::NoFrame);
    table->verticalHeader()->hide();
    // The height of all rows is that of the font; asking each row would be slow with very many.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

void SummaryPage::show(const ProjectSummary& summary)
{
    showFacts(summary);
    m_actionsModel->show(summary.actions, summary.factors, summary.origins);
    m_loadCasesModel->show(summary.loadCases, summary.factors, summary.currentLoadCase, summary.actions,
                           summary.origins);
    m_findingsModel->show(summary.findings);
    m_checkAgain->setVisible(wantsExtras());
    fitColumns(m_actions, ActionsModel::Title);
    fitColumns(m_loadCases, LoadCasesModel::Title);
    fitColumns(m_findings, 1);
    m_noActions->setVisible(summary.actions.empty());
    showCounts(summary);
}

void SummaryPage::showFacts(const ProjectSummary& summary)
{
    m_designCode->setText(summary.designCodeReason.isEmpty()
                              ? summary.designCode
                              : tr("can't be loaded: %1").arg(summary.designCodeReason));
    m_system->setText(systemName(summary.systemClass));
    m_gravity->setText(axisName(summary.gravity));
    m_current->setText(summary.currentLoadCase == 0 ? tr("none", "load case")
                                                    : QString::number(summary.currentLoadCase));
}

void SummaryPage::showCounts(const ProjectSummary& summary)
{
    const auto size = [](const auto& list) { return static_cast<int>(list.size()); };
    m_tabs->setTabText(0, tr("Actions (%1)").arg(size(summary.actions)));
    m_tabs->setTabText(1, tr("Load cases (%1)").arg(size(summary.loadCases)));
    m_tabs->setTabToolTip(1,
                          summary.foreignLoadCases == 0
                              ? QString()
                              : tr("Numbers that belong to other modules: %1").arg(summary.foreignLoadCases));
    const QString findings = summary.findings.empty() ? tr("none") : QString::number(summary.findings.size());
    m_tabs->setTabText(2, summary.designCodeReason.isEmpty() ? tr("Findings (%1)").arg(findings)
                                                             : tr("Findings (not checked)"));
}

} // namespace mrl::workbench
