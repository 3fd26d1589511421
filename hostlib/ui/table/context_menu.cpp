#include "hostlib/ui/table/context_menu.h"

#include <QItemSelectionModel>

#include <utility>

#include "hostlib/ui/table/selection.h"

namespace mrl::table {

namespace {

constexpr char COPY[] = "table copy";
constexpr char COPY_WITH_HEADERS[] = "table copy with headers";
constexpr char PASTE[] = "table paste";
constexpr char FILL_DOWN[] = "table fill down";
constexpr char DELETE_ROWS[] = "table delete rows";

} // namespace

const QKeySequence& ContextMenu::fillDownKey()
{
    static const QKeySequence KEY(QStringLiteral("Ctrl+D"));
    return KEY;
}

const QKeySequence& ContextMenu::copyWithHeadersKey()
{
    static const QKeySequence KEY(QStringLiteral("Ctrl+Shift+C"));
    return KEY;
}

MRL_QT_Menu* ContextMenu::menu()
{
    if (m_menu == nullptr || m_table.isResetContextMenuOnCreation()) {
        if (m_menu != nullptr) {
            m_menu->deleteLater(); // it may still be closing
        }
        build();
    }
    enableEntries();
    return m_menu;
}

void ContextMenu::build()
{
    using Table = MRL_H_TableWidget;
    m_menu = new MRL_QT_Menu(&m_table, "table menu");
    add(MRL_H_TableWidget::tr("Copy"), QKeySequence::Copy, COPY, [this] { m_table.copySelection(); });
    add(MRL_H_TableWidget::tr("Copy with headers"), copyWithHeadersKey(), COPY_WITH_HEADERS,
        [this] { m_table.copySelectionWithHeaders(); });
    add(MRL_H_TableWidget::tr("Paste"), QKeySequence::Paste, PASTE, [this] { m_table.pasteClipboard(); });
    add(MRL_H_TableWidget::tr("Fill down"), fillDownKey(), FILL_DOWN, [this] { m_table.fillDown(); });
    add(MRL_H_TableWidget::tr("Select all"), QKeySequence::SelectAll, "table select all",
        [this] { m_table.selectAll(); });
    add(MRL_H_TableWidget::tr("Fit columns"), QKeySequence(), "table fit columns",
        [this] { m_table.fitColumns(); });
    if (!m_newDeleteEntries) {
        return;
    }
    m_menu->addSeparator();
    add(MRL_H_TableWidget::tr("New row"), QKeySequence(), "table new row",
        [this] { m_table.appendNewRows(1, Table::CreateCells); });
    add(MRL_H_TableWidget::tr("Delete rows"), QKeySequence(), DELETE_ROWS, [this] {
        const std::vector<int> rows = selectedRows(m_table);
        m_table.removeRows({rows.begin(), rows.end()});
    });
}

void ContextMenu::add(const QString& text, const QKeySequence& key, const char* name,
                      std::function<void()> command)
{
    auto* action = new MRL_QT_Action(text, key, m_menu.data(), name);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    QObject::connect(action, &QAction::triggered, &m_table, std::move(command));
    m_menu->addAction(action);
}

void ContextMenu::enableEntries()
{
    const bool selected = m_table.selectionModel()->hasSelection();
    for (QAction* action : m_menu->actions()) {
        const QString name = action->objectName();
        if (name == QLatin1String(COPY) || name == QLatin1String(COPY_WITH_HEADERS) ||
            name == QLatin1String(DELETE_ROWS)) {
            action->setEnabled(selected);
        } else if (name == QLatin1String(FILL_DOWN)) {
            action->setEnabled(selectedRows(m_table).size() > 1);
        } else if (name == QLatin1String(PASTE)) {
            action->setEnabled(m_table.currentIndex().isValid());
        }
    }
}

} // namespace mrl::table
