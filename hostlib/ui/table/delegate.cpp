#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <optional>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/cell_editors.h"
#include "hostlib/ui/table/plain_tool_tip.h"
#include "hostlib/ui/table/table_private.h"

using mrl::table::lineEditOf;

namespace {

/// The text or index that an editor was opened with: an edit that leaves it as it was writes nothing.
constexpr char LOADED_PROPERTY[] = "mrl_loaded";
/// True from the opening of a combo editor's list until its choice has arrived.
constexpr char LIST_OPEN_PROPERTY[] = "mrl_listOpen";

MRL_H_TableWidget* tableOf(const QModelIndex& index)
{
    return index.isValid() ? qobject_cast<MRL_H_TableWidget*>(index.model()->QObject::parent()) : nullptr;
}

MRL_H_TwItem* cellOf(const QModelIndex& index)
{
    const MRL_H_TableWidget* table = tableOf(index);
    return table != nullptr ? MRL_H_TwItem::fromItem(table->item(index.row(), index.column())) : nullptr;
}

MRL_H_TableWidget* tableAround(const QWidget* editor)
{
    for (QWidget* widget = editor->parentWidget(); widget != nullptr; widget = widget->parentWidget()) {
        if (auto* table = qobject_cast<MRL_H_TableWidget*>(widget)) {
            return table;
        }
    }
    return nullptr;
}

/// A pale mix of two colours.
QColor between(const QColor& a, const QColor& b)
{
    return {(a.red() + 3 * b.red()) / 4, (a.green() + 3 * b.green()) / 4, (a.blue() + 3 * b.blue()) / 4};
}

/// What a cell's text is painted on.
QColor backgroundOf(const QStyleOptionViewItem& option)
{
    if ((option.state & QStyle::State_Selected) != 0) {
        return option.palette.color(QPalette::Highlight);
    }
    return option.backgroundBrush.style() != Qt::NoBrush ? option.backgroundBrush.color()
                                                         : option.palette.color(QPalette::Base);
}

struct Step
{
    int rows = 0;
    int columns = 0;
};

/// Where the current cell goes when a key ends the editing; none for any other key.
std::optional<Step> stepOfKey(const QKeyEvent& event, QWidget& editor)
{
    const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Step{back ? -1 : 1, 0};
    case Qt::Key_Tab:
        return Step{0, back ? -1 : 1};
    case Qt::Key_Backtab:
        return Step{0, -1};
    case Qt::Key_Up:
    case Qt::Key_Down:
        return lineEditOf(&editor) != nullptr ? std::optional<Step>({event.key() == Qt::Key_Up ? -1 : 1, 0})
                                              : std::nullopt;
    default:
        return std::nullopt;
    }
}

/// Remembers at the editor of a choice whether its list is open.
void noteListOf(const QAbstractItemView& list, const QEvent& event)
{
    auto* combo = qobject_cast<QComboBox*>(list.parentWidget()->parentWidget());
    if (combo != nullptr && event.type() == QEvent::Show) {
        combo->setProperty(LIST_OPEN_PROPERTY, true);
    } else if (combo != nullptr && event.type() == QEvent::Hide) {
        QTimer::singleShot(0, combo, [combo] { combo->setProperty(LIST_OPEN_PROPERTY, false); });
    }
}

} // namespace

MRL_H_DelegateItem::MRL_H_DelegateItem(QObject* parent) : QStyledItemDelegate(parent) {}

MRL_H_DelegateItem::~MRL_H_DelegateItem() = default;

QWidget* MRL_H_DelegateItem::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const
{
    const MRL_H_TwItem* cell = cellOf(index);
    if (cell == nullptr) {
        return QStyledItemDelegate::createEditor(parent, option, index);
    }
    const MRL_H_TwColumn& column = *MRL_H_TwCellAccess::column(*cell);
    switch (cell->type()) {
    case MRL_H_TwItem::LineEditCell:
        return mrl::table::makeLineEditor(parent, column);
    case MRL_H_TwItem::EditableComboBoxCell:
        return mrl::table::makeEditableCombo(parent, column);
    default:
        return openChoice(*mrl::table::makeChoice(parent, column));
    }
}

/// Has the editor of a choice commit as soon as an entry was picked from its list.
QWidget* MRL_H_DelegateItem::openChoice(MRL_QT4_ComboBox& combo) const
{
    auto* self = const_cast<MRL_H_DelegateItem*>(this); // Qt makes editors through a const delegate
    // The list is a window of its own, where the Delete key must not reach the commands of the page either.
    combo.view()->installEventFilter(self);
    QObject::connect(&combo, QOverload<int>::of(&QComboBox::activated), self, [self, &combo] {
        if (!combo.property(LIST_OPEN_PROPERTY).toBool()) {
            return; // stepping through the entries with the arrow keys
        }
        emit self->commitData(&combo);
        emit self->closeEditor(&combo, NoHint);
    });
    return &combo;
}

void MRL_H_DelegateItem::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const MRL_H_TwItem* cell = cellOf(index);
    QLineEdit* edit = lineEditOf(editor);
    if (cell == nullptr || (edit == nullptr && qobject_cast<MRL_QT4_ComboBox*>(editor) == nullptr)) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    // A repaint of the whole table comes here too. It must not take away what is being typed.
    if (edit != nullptr) {
        const QString text = MRL_H_TwCellAccess::text(*cell);
        if (editor->property(LOADED_PROPERTY).toString() == text &&
            editor->property(LOADED_PROPERTY).isValid()) {
            return;
        }
        editor->setProperty(LOADED_PROPERTY, text);
        edit->setText(text);
    } else if (const auto* choice = MRL_H_TwSimpleComboBoxItem::fromItem(cell)) {
        if (editor->property(LOADED_PROPERTY) == QVariant(choice->getCurrentId())) {
            return;
        }
        editor->setProperty(LOADED_PROPERTY, choice->getCurrentId());
        auto* combo = static_cast<MRL_QT4_ComboBox*>(editor);
        if (!combo->setCurrentId(choice->getCurrentId())) {
            combo->setCurrentIndex(-1);
        }
    }
}

void MRL_H_DelegateItem::setModelData(QWidget* editor, QAbstractItemModel* model,
                                      const QModelIndex& index) const
{
    MRL_H_TableWidget* table = tableOf(index);
    const MRL_H_TwItem* cell = cellOf(index);
    if (cell == nullptr) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    mrl::table::CellEntry& entry = MRL_H_TableWidget::Private::of(*table).entry;
    const QVariant loaded = editor->property(LOADED_PROPERTY);
    if (const QLineEdit* edit = lineEditOf(editor)) {
        if (edit->text() != loaded.toString()) {
            entry.enterFromEditor({index.row(), index.column(), edit->text(), std::nullopt});
        }
    } else if (const auto* combo = qobject_cast<MRL_QT4_ComboBox*>(editor)) {
        if (combo->currentIndex() >= 0 && combo->getCurrentId() != loaded.toInt()) {
            entry.enterFromEditor({index.row(), index.column(), {}, combo->getCurrentId()});
        }
    }
}

void MRL_H_DelegateItem::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex& index) const
{
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    const auto* combo = qobject_cast<QComboBox*>(editor);
    if (combo == nullptr || combo->isEditable()) {
        return;
    }
    // A column fits the texts alone; beside them the arrow has no room.
    QRect place = editor->geometry();
    const int missing = mrl::table::widthOfChoices(*combo) - place.width();
    if (missing <= 0) {
        return;
    }
    const int roomRight = editor->parentWidget()->width() - 1 - place.right();
    const int toLeft = std::clamp(missing - roomRight, 0, std::max(place.left(), 0));
    editor->setGeometry(place.adjusted(-toLeft, 0, missing - toLeft, 0));
}

QString MRL_H_DelegateItem::displayText(const QVariant& value, const QLocale& locale) const
{
    // Whole numbers without the grouping of the locale.
    return value.type() == QVariant::Int ? QString::number(value.toInt())
                                         : QStyledItemDelegate::displayText(value, locale);
}

QSize MRL_H_DelegateItem::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const MRL_H_TwItem* cell = cellOf(index);
    if (cell == nullptr) {
        return QStyledItemDelegate::sizeHint(option, index);
    }
    return {option.fontMetrics.horizontalAdvance(MRL_H_TwCellAccess::text(*cell)) +
                2 * mrl::table::CELL_TEXT_MARGIN,
            option.fontMetrics.height() + mrl::table::CELL_TEXT_MARGIN};
}

void MRL_H_DelegateItem::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const MRL_H_TwItem* cell = cellOf(index);
    if (cell == nullptr) {
        return;
    }
    if (MRL_H_TableWidget::Private::of(*tableOf(index)).noteOn(index).isMarked) {
        option->font.setItalic(true);
    }
    const quint8 state = MRL_H_TwCellAccess::state(*cell);
    const QPalette normal = option->widget != nullptr ? option->widget->palette() : option->palette;
    // Black is what the rules call normal; on a dark desktop that is another colour.
    if ((state & MRL_H_TwCellAccess::TextBlack) != 0) {
        option->palette.setBrush(QPalette::Text, normal.text());
    }
    if ((state & MRL_H_TwCellAccess::TextRed) == 0) {
        return;
    }
    // A wrong value is seen in a selected cell too.
    if ((option->state & QStyle::State_Selected) != 0) {
        option->palette.setColor(QPalette::HighlightedText, Qt::red);
        option->palette.setColor(QPalette::Highlight,
                                 between(normal.color(QPalette::Highlight), normal.color(QPalette::Base)));
    }
    if (MRL_H_TableWidget::Private::of(*tableOf(index)).marks.areOn()) {
        const QColor red = mrl::table::readableOn(backgroundOf(*option), Qt::red);
        option->palette.setColor(QPalette::Text, red);
        option->palette.setColor(QPalette::HighlightedText, red);
    }
}

void MRL_H_DelegateItem::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    MRL_H_TableWidget* table = tableOf(index);
    if (table == nullptr || !MRL_H_TableWidget::Private::of(*table).marks.isFinding(index)) {
        return;
    }
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    mrl::table::paintMark(*painter, option.rect, mrl::table::readableOn(backgroundOf(shown), Qt::red));
}

bool MRL_H_DelegateItem::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    QString text = index.data(Qt::ToolTipRole).toString();
    if (text.isEmpty() && cellOf(index) != nullptr) {
        text = MRL_H_TableWidget::Private::of(*tableOf(index)).noteOn(index).text;
    }
    if (event->type() != QEvent::ToolTip || text.isEmpty()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), mrl::table::plainToolTip(text), view);
    return true;
}

bool MRL_H_DelegateItem::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        event->accept();
        return true;
    }
    if (const auto* list = qobject_cast<QAbstractItemView*>(object)) {
        noteListOf(*list, *event);
        return false;
    }
    auto* editor = qobject_cast<QWidget*>(object);
    if (editor != nullptr && event->type() == QEvent::KeyPress &&
        leaveByKey(*editor, *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

/// Ends the editing where a key does so. @return false for any other key
bool MRL_H_DelegateItem::leaveByKey(QWidget& editor, const QKeyEvent& event)
{
    MRL_H_TableWidget* table = tableAround(&editor);
    const auto step = stepOfKey(event, editor);
    if (table == nullptr || !step.has_value()) {
        return false;
    }
    const auto commit = [this, guarded = QPointer<QWidget>(&editor)] {
        emit commitData(guarded);
        if (guarded != nullptr) {
            emit closeEditor(guarded, NoHint);
        }
    };
    MRL_H_TableWidget::Private::of(*table).entry.leaveEditor(step->rows, step->columns, commit);
    return true;
}
