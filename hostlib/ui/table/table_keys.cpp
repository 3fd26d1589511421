#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>

#include <algorithm>

#include "hostlib/ui/table/table_private.h"

namespace {

const QKeySequence fillDownKey(Qt::CTRL + Qt::Key_D);
const QKeySequence copyWithHeadersKey(Qt::CTRL + Qt::SHIFT + Qt::Key_C);

constexpr int mostEmphasisedRanges = 1000;

bool matches(const QKeyEvent& event, const QKeySequence& key)
{
    return QKeySequence(static_cast<int>(event.modifiers() & ~Qt::KeypadModifier) | event.key()) == key;
}

/// A key that starts the editing of a cell.
bool startsTyping(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_F2) {
        return true;
    }
    const bool command =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !command && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

bool MRL_H_TableWidget::Private::isEditable(const QModelIndex& index) const
{
    return index.isValid() && (index.flags() & Qt::ItemIsEditable) != 0 &&
           !table.isColumnHidden(index.column());
}

QModelIndex MRL_H_TableWidget::Private::typingIndex() const
{
    const QModelIndex current = table.currentIndex();
    if (isEditable(current) || !current.isValid() ||
        !table.selectionModel()->isRowSelected(current.row(), QModelIndex())) {
        return current;
    }
    for (const int column : shownColumns()) {
        if (const QModelIndex index = current.sibling(current.row(), column); isEditable(index)) {
            return index;
        }
    }
    return current;
}

QModelIndex MRL_H_TableWidget::Private::neighbour(const QModelIndex& index, int rows, int columns) const
{
    if (!index.isValid()) {
        return index;
    }
    int row = index.row();
    const std::vector<int> shown = shownColumns();
    const auto found = std::find(shown.begin(), shown.end(), index.column());
    int place = static_cast<int>(found - shown.begin()) + columns;
    const int count = static_cast<int>(shown.size());
    if (count == 0) {
        return index;
    }
    if (place >= count || place < 0) {
        rows += place < 0 ? -1 : 1;
        place = place < 0 ? count - 1 : 0;
    }
    const int step = rows < 0 ? -1 : 1;
    if (rows != 0) {
        do {
            row += step;
        } while (row >= 0 && row < table.rowCount() && table.isRowHidden(row));
    }
    if (row < 0 || row >= table.rowCount()) {
        return index;
    }
    return index.sibling(row, shown[static_cast<std::size_t>(place)]);
}

void MRL_H_TableWidget::Private::leaveEditor(int rows, int columns, const std::function<void()>& commit)
{
    const QPointer<MRL_H_TableWidget> alive(&table);
    // Taken before the entry, which may sort: whoever fills a column goes on with the cell that stood below.
    const QPersistentModelIndex next = neighbour(table.currentIndex(), rows, columns);
    keepSelectionOnLeave = false;
    commit();
    if (alive == nullptr || !next.isValid()) {
        return;
    }
    if (!keepSelectionOnLeave) {
        table.setCurrentIndex(next);
    } else if (columns != 0) { // the next value for the same rows
        table.selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
    }
}

void MRL_H_TableWidget::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) {
        MRL_QT_TableWidget::keyPressEvent(event);
        return;
    }
    const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid()) {
            setCurrentIndex(d->neighbour(currentIndex(), back ? -1 : 1, 0));
        }
    } else if (event->key() == Qt::Key_Escape) {
        // eaten: Esc must not reject the dialog around the table
    } else if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (matches(*event, copyWithHeadersKey)) {
        copySelectionWithHeaders();
    } else if (event->matches(QKeySequence::Paste)) {
        pasteClipboard();
    } else if (matches(*event, fillDownKey)) {
        fillDown();
    } else {
        if (startsTyping(*event) && d->typingIndex() != currentIndex()) {
            selectionModel()->setCurrentIndex(d->typingIndex(), QItemSelectionModel::NoUpdate);
        }
        MRL_QT_TableWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}

void MRL_H_TableWidget::mousePressEvent(QMouseEvent* event)
{
    // A click on a selection reduces it to the cell when the button is released; if that was the first half
    // of a double click, the selection comes back for the editing.
    const QModelIndex index = indexAt(event->pos());
    const bool kept = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier &&
                      selectionModel()->isSelected(index);
    d->pressedSelection = kept ? selectionModel()->selection() : QItemSelection();
    d->pressedIndex = kept ? QPersistentModelIndex(index) : QPersistentModelIndex();
    MRL_QT_TableWidget::mousePressEvent(event);
}

void MRL_H_TableWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && d->pressedIndex == index && event->button() == Qt::LeftButton) {
        selectionModel()->select(d->pressedSelection, QItemSelectionModel::ClearAndSelect);
    }
    MRL_QT_TableWidget::mouseDoubleClickEvent(event);
    d->openListOnRelease = state() == EditingState;
}

void MRL_H_TableWidget::mouseReleaseEvent(QMouseEvent* event)
{
    MRL_QT_TableWidget::mouseReleaseEvent(event);
    const bool open = d->openListOnRelease && state() == EditingState;
    d->openListOnRelease = false;
    if (!open) {
        return;
    }
    // Editors that have been closed wait for their deletion, hidden.
    for (auto* combo : viewport()->findChildren<MRL_QT4_ComboBox*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (combo->isVisible() && !combo->isEditable()) {
            combo->showPopup();
        }
    }
}

void MRL_H_TableWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    MRL_QT_TableWidget::selectionChanged(selected, deselected);
    // A header that emphasises selected rows walks through all pieces of the selection for each row it
    // paints.
    const bool emphasise = selectionModel()->selection().size() <= mostEmphasisedRanges;
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        if (header->highlightSections() != emphasise) {
            header->setHighlightSections(emphasise);
        }
    }
}

void MRL_H_TableWidget::contextMenuEvent(QContextMenuEvent* event)
{
    getContextMenu()->exec(event->globalPos());
    event->accept();
}

MRL_QT_Menu* MRL_H_TableWidget::getContextMenu()
{
    if (d->menu != nullptr && !isResetContextMenuOnCreation()) {
        d->updateMenu();
        return d->menu;
    }
    if (d->menu != nullptr) {
        d->menu->deleteLater(); // it may still be closing
    }
    d->menu = new MRL_QT_Menu(this, "table menu"); // child of this
    const auto add = [this](const QString& text, const QKeySequence& key, const char* name, auto slot) {
        auto* action = new MRL_QT_Action(text, key, d->menu.data(), name); // child of the menu
        // Shown in the menu; the key itself is the table's, in keyPressEvent.
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
        QObject::connect(action, &QAction::triggered, this, slot);
        d->menu->addAction(action);
    };
    add(tr("Copy"), QKeySequence::Copy, "table copy", [this] { copySelection(); });
    add(tr("Copy with headers"), copyWithHeadersKey, "table copy with headers",
        [this] { copySelectionWithHeaders(); });
    add(tr("Paste"), QKeySequence::Paste, "table paste", [this] { pasteClipboard(); });
    add(tr("Fill down"), fillDownKey, "table fill down", [this] { fillDown(); });
    add(tr("Select all"), QKeySequence::SelectAll, "table select all", [this] { selectAll(); });
    add(tr("Fit columns"), QKeySequence(), "table fit columns", [this] { fitColumns(); });
    if (d->newDeleteEntries) {
        d->menu->addSeparator();
        add(tr("New row"), QKeySequence(), "table new row", [this] { appendNewRows(1, CreateCells); });
        add(tr("Delete rows"), QKeySequence(), "table delete rows", [this] {
            const std::vector<int> rows = d->selectedRows();
            removeRows({rows.begin(), rows.end()});
        });
    }
    d->updateMenu();
    return d->menu;
}

void MRL_H_TableWidget::Private::updateMenu()
{
    const bool selected = table.selectionModel()->hasSelection();
    for (QAction* action : menu->actions()) {
        const QString name = action->objectName();
        if (name == QLatin1String("table copy") || name == QLatin1String("table copy with headers") ||
            name == QLatin1String("table delete rows")) {
            action->setEnabled(selected);
        } else if (name == QLatin1String("table fill down")) {
            action->setEnabled(selectedRows().size() > 1);
        } else if (name == QLatin1String("table paste")) {
            action->setEnabled(table.currentIndex().isValid());
        }
    }
}
