// Keys and mouse of a table.

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>

#include "hostlib/ui/table/navigation.h"
#include "hostlib/ui/table/table_private.h"

namespace {

/// Up to so many pieces of a selection the headers emphasise it.
constexpr int MOST_EMPHASISED_RANGES = 1000;

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

void MRL_H_TableWidget::keyPressEvent(QKeyEvent* event)
{
    using mrl::table::ContextMenu;
    if (state() == EditingState) {
        MRL_QT_TableWidget::keyPressEvent(event);
        return;
    }
    const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid()) {
            setCurrentIndex(mrl::table::neighbour(*this, currentIndex(), back ? -1 : 1, 0));
        }
    } else if (event->key() == Qt::Key_Escape) {
        // eaten: Esc must not reject the dialog around the table
    } else if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (matches(*event, ContextMenu::copyWithHeadersKey())) {
        copySelectionWithHeaders();
    } else if (event->matches(QKeySequence::Paste)) {
        pasteClipboard();
    } else if (matches(*event, ContextMenu::fillDownKey())) {
        fillDown();
    } else {
        const QModelIndex typing = startsTyping(*event) ? mrl::table::typingIndex(*this) : currentIndex();
        if (typing != currentIndex()) {
            selectionModel()->setCurrentIndex(typing, QItemSelectionModel::NoUpdate);
        }
        MRL_QT_TableWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}

void MRL_H_TableWidget::mousePressEvent(QMouseEvent* event)
{
    d->clicked.note(*this, *event);
    MRL_QT_TableWidget::mousePressEvent(event);
}

void MRL_H_TableWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    d->clicked.giveBack(*this, *event);
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
    // A header that emphasises selected rows walks through all pieces of the selection for each painted row.
    const bool emphasise = selectionModel()->selection().size() <= MOST_EMPHASISED_RANGES;
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
