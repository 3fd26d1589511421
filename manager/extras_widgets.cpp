// The parts of the bar.
#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QStringListModel>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "manager/extras.h"
#include "manager/origin_notes.h"

namespace {

constexpr int FINDINGS_HEIGHT = 110; ///< pixels of the list of findings
constexpr int LEAST_FIELD = 120;     ///< pixels of a field of the bar

/// The menu of a button lists steps; the n-th entry turns so many.
void fillMenu(QMenu& menu, const QStringList& names, const std::function<void()>& turn)
{
    constexpr int MOST = 25;
    menu.clear();
    for (int i = 0; i < std::min(names.size(), MOST); ++i) {
        QObject::connect(menu.addAction(names.at(i)), &QAction::triggered, &menu, [turn, i] {
            for (int step = 0; step <= i; ++step) {
                turn();
            }
        });
    }
}

/// The style's colour for a hint has too little contrast in light palettes and may be black in dark ones.
void showHint(QLineEdit* field, const QString& hint)
{
    QPalette palette = field->palette();
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [](int a, int b) { return (2 * a + b) / 3; };
    palette.setColor(QPalette::PlaceholderText,
                     QColor(mixed(text.red(), base.red()), mixed(text.green(), base.green()),
                            mixed(text.blue(), base.blue())));
    field->setPalette(palette);
    field->setPlaceholderText(hint);
}

QToolButton* newButton(QWidget* parent, QLayout* layout, const QString& text, const char* name)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    layout->addWidget(button);
    return button;
}

} // namespace

void LCM_Extras::createCommand(const QString& text, const QList<QKeySequence>& keys, const char* name,
                               void (LCM_Extras::*slot)())
{
    auto* command = new QAction(text, this);
    command->setObjectName(QLatin1String(name));
    command->setShortcuts(keys);
    connect(command, &QAction::triggered, this, slot);
    parentWidget()->addAction(command);
}

void LCM_Extras::createHistoryButtons(QLayout* layout)
{
    m_undo = newButton(this, layout, tr("Undo"), "button_undo");
    m_redo = newButton(this, layout, tr("Redo"), "button_redo");
    m_undo->setIcon(
        QIcon::fromTheme(QStringLiteral("edit-undo"), style()->standardIcon(QStyle::SP_ArrowBack)));
    m_redo->setIcon(
        QIcon::fromTheme(QStringLiteral("edit-redo"), style()->standardIcon(QStyle::SP_ArrowForward)));
    for (QToolButton* button : {m_undo, m_redo}) {
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setPopupMode(QToolButton::MenuButtonPopup);
        button->setMenu(new QMenu(button));
    }
    const auto commitFirst = [this](void (LCM_Extras::*turn)()) {
        return [this, turn] {
            if (LCM_TabInterface* tab = front()) {
                lcm_commit_edit(*tab->tableWidget());
            }
            (this->*turn)();
        };
    };
    connect(m_undo, &QToolButton::clicked, this, commitFirst(&LCM_Extras::undoStep));
    connect(m_redo, &QToolButton::clicked, this, commitFirst(&LCM_Extras::redoStep));
    connect(m_undo->menu(), &QMenu::aboutToShow, this, [this] {
        fillMenu(*m_undo->menu(), m_history ? m_history->undoNames() : QStringList(), [this] { undoStep(); });
    });
    connect(m_redo->menu(), &QMenu::aboutToShow, this, [this] {
        fillMenu(*m_redo->menu(), m_history ? m_history->redoNames() : QStringList(), [this] { redoStep(); });
    });
    createCommand(tr("Undo"), {QKeySequence(QStringLiteral("Ctrl+Z"))}, "undo", &LCM_Extras::undoStep);
    createCommand(tr("Redo"),
                  {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))},
                  "redo", &LCM_Extras::redoStep);
    createCommand(tr("Close"), {QKeySequence(QStringLiteral("Ctrl+W"))}, "close", &LCM_Extras::closeDialog);
    createCommand(tr("Quit"), {QKeySequence(QStringLiteral("Ctrl+Q"))}, "quit", &LCM_Extras::quit);
}

void LCM_Extras::createSearch(QLayout* layout)
{
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("line_find"));
    showHint(m_search, tr("Find (Ctrl+F)"));
    m_search->setAccessibleName(tr("Find"));
    m_search->setToolTip(tr("Finds as you type, in all columns; F3 finds the next one"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumWidth(LEAST_FIELD);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textEdited, this, &LCM_Extras::findTyped);
    layout->addWidget(m_search);
    auto* focus = new QAction(tr("Find"), this);
    focus->setObjectName(QStringLiteral("find"));
    focus->setShortcut(QKeySequence(QStringLiteral("Ctrl+F")));
    connect(focus, &QAction::triggered, m_search, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    parentWidget()->addAction(focus);
    createCommand(tr("Find next"), {QKeySequence(Qt::Key_F3)}, "find next", &LCM_Extras::findNext);
    createCommand(tr("Find previous"), {QKeySequence(QStringLiteral("Shift+F3"))}, "find previous",
                  &LCM_Extras::findPrevious);
}

void LCM_Extras::createFilter(QLayout* layout)
{
    m_filter = new QLineEdit(this);
    m_filter->setObjectName(QStringLiteral("line_filter"));
    showHint(m_filter, tr("Filter: text, >1.0, =Q_B"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setToolTip(
        tr("Hides the rows without a match. Hidden rows are never selected, filled or deleted, "
           "but they are saved and checked."));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMinimumWidth(LEAST_FIELD);
    m_filter->installEventFilter(this);
    m_kind = new QComboBox(this);
    m_kind->setObjectName(QStringLiteral("combo_rows"));
    m_kind->setAccessibleName(tr("Rows"));
    m_kind->addItems({tr("All rows"), tr("Findings only"), tr("Changed only")});
    m_kind->setMinimumWidth(LEAST_FIELD);
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("label_message"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->hide();
    constexpr int PAUSE = 200; // milliseconds after the last key
    connect(m_filter, &QLineEdit::textChanged, m_filterTimer, [this] { m_filterTimer->start(PAUSE); });
    connect(m_kind, QOverload<int>::of(&QComboBox::activated), this, &LCM_Extras::applyFilter);
    layout->addWidget(m_filter);
    layout->addWidget(m_kind);
}

void LCM_Extras::createFindings(QLayout* layout)
{
    m_findingsButton = newButton(this, layout, tr("Findings (%1)").arg(0), "button_findings");
    m_findingsButton->setCheckable(true);
    m_findingsButton->setToolTip(tr("Lists the findings; F8 goes to the next one, Shift+F8 back"));
    QToolButton* check = newButton(this, layout, tr("Check again"), "button_check_again");
    check->setToolTip(tr("Judges all rows of both tabs anew (F5)"));
    connect(check, &QToolButton::clicked, this, &LCM_Extras::checkAgain);
    m_findingsView->setObjectName(QStringLiteral("list_findings"));
    m_findingsView->setAccessibleName(tr("Findings"));
    m_findingsView->setModel(m_findingTexts);
    m_findingsView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_findingsView->setUniformItemSizes(true);
    m_findingsView->setFixedHeight(FINDINGS_HEIGHT);
    m_findingsView->hide();
    connect(m_findingsButton, &QToolButton::toggled, m_findingsView, &QWidget::setVisible);
    connect(m_findingsView, &QListView::activated, this, [this](const QModelIndex& at) { goTo(at.row()); });
    createCommand(tr("Check again"), {QKeySequence(Qt::Key_F5)}, "check again", &LCM_Extras::checkAgain);
    createCommand(tr("Next finding"), {QKeySequence(Qt::Key_F8)}, "next finding", &LCM_Extras::nextFinding);
    createCommand(tr("Previous finding"), {QKeySequence(QStringLiteral("Shift+F8"))}, "previous finding",
                  &LCM_Extras::previousFinding);
}

void LCM_Extras::createOrigins(QLayout* layout)
{
    auto* line = new QLabel(this);
    line->setObjectName(QStringLiteral("label_origin"));
    line->setAccessibleName(tr("Where the factor comes from"));
    line->setTextFormat(Qt::PlainText);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->setWordWrap(true);
    line->setMinimumHeight(line->fontMetrics().height()); // so that the tables stay in place
    layout->addWidget(line);
    new LCM_OriginNotes(m_tabs, *line, this);
}
