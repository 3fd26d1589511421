#include "workbench/task_panel.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QVBoxLayout>

namespace mrl::workbench {

TaskPanel::TaskPanel(QWidget* parent) : QWidget(parent), m_refusal(new QLabel(this))
{
    setObjectName(QStringLiteral("tasks"));
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel(tr("Tasks"), this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    layout->addWidget(heading);
    m_actions = createTask(Manager::Actions, tr("Action Manager"), "task_actions");
    m_loadCases = createTask(Manager::LoadCases, tr("Load-case Manager"), "task_loadcases");
    layout->addWidget(m_actions);
    layout->addWidget(m_loadCases);
    setFocusProxy(m_actions);
    m_refusal->setObjectName(QStringLiteral("task_refusal"));
    m_refusal->setWordWrap(true);
    m_refusal->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_refusal->hide();
    layout->addWidget(m_refusal);
    layout->addStretch(1);
    setMinimumWidth(230);
}

TaskPanel::~TaskPanel() = default;

QCommandLinkButton* TaskPanel::createTask(Manager which, const QString& text, const char* name)
{
    auto* button = new QCommandLinkButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true); // Enter presses it, as in a dialog
    connect(button, &QCommandLinkButton::clicked, this, [this, which] { emit managerWanted(which); });
    return button;
}

void TaskPanel::showCounts(int actions, int loadCases)
{
    m_actions->setDescription(actions == 0   ? tr("no actions yet")
                              : actions == 1 ? tr("1 action")
                                             : tr("%1 actions").arg(actions));
    m_loadCases->setDescription(loadCases == 0   ? tr("no load cases yet")
                                : loadCases == 1 ? tr("1 load case")
                                                 : tr("%1 load cases").arg(loadCases));
}

void TaskPanel::setRefusal(const QString& reason)
{
    m_actions->setEnabled(reason.isEmpty());
    m_loadCases->setEnabled(reason.isEmpty());
    m_refusal->setText(reason);
    m_refusal->setVisible(!reason.isEmpty());
}

} // namespace mrl::workbench
