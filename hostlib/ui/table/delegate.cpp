#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <optional>

#include "hostlib/ui/table/table_private.h"

namespace {

/// The text or index that an editor was opened with: an edit that leaves it as it was writes nothing.
constexpr char loadedProperty[] = "mrl_loaded";
/// True from the opening of a combo editor's list until its choice has arrived.
constexpr char listOpenProperty[] = "mrl_listOpen";

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

QLineEdit* lineEditOf(QWidget* editor)
{
    auto* combo = qobject_cast<QComboBox*>(editor);
    return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

/// A pale mix of two colours.
QColor between(const QColor& a, const QColor& b)
{
    return {(a.red() + 3 * b.red()) / 4, (a.green() + 3 * b.green()) / 4, (a.blue() + 3 * b.blue()) / 4};
}

/// What a combo editor needs to show each of its entries in full.
int widthOfChoices(const QComboBox& combo)
{
    int text = 0;
    for (int i = 0; i < combo.count(); ++i) {
        text = std::max(text, combo.fontMetrics().horizontalAdvance(combo.itemText(i)));
    }
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.frame = combo.hasFrame();
    const QSize contents(text + cellTextMargin, combo.fontMetrics().height());
    return combo.style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, &combo).width();
}

struct Step
{
    int rows = 0;
    int columns = 0;
};

/// Where the current cell goes when a key ends the editing; none for any other key.
std::optional<Step> stepOfKey(const QKeyEvent& event, bool inText)
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
        return inText ? std::optional<Step>({event.key() == Qt::Key_Up ? -1 : 1, 0}) : std::nullopt;
    default:
        return std::nullopt;
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
    const auto lineEdit = [&column](QWidget* owner) {
        auto* edit = new MRL_H_LineEdit(owner, column.description, "cell editor", {}, {}, true);
        edit->setFrame(false);
        return edit; // child of the owner
    };
    if (cell->type() == MRL_H_TwItem::LineEditCell) {
        QLineEdit* edit = lineEdit(parent);
        if (!column.isNumber() && column.description.secondBound > 0.0) {
            edit->setMaxLength(static_cast<int>(column.description.secondBound));
        }
        edit->setAlignment(column.isNumber() ? Qt::AlignRight | Qt::AlignVCenter : column.alignment);
        return edit;
    }

    auto* combo = new MRL_QT4_ComboBox(parent, "cell editor"); // child of the parent
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setFrame(false);
    if (cell->type() == MRL_H_TwItem::EditableComboBoxCell) {
        combo->setEditable(true);
        combo->setLineEdit(lineEdit(combo));
        combo->setCompleter(nullptr);
        return combo;
    }
    for (const ComboList& entry : column.entries) {
        combo->addItem(entry.text, entry.id);
    }
    combo->setWidthTextEnabled(true);
    auto* self = const_cast<MRL_H_DelegateItem*>(this); // Qt makes editors through a const delegate
    // The list is a window of its own, where the Delete key must not reach the commands of the page either.
    combo->view()->installEventFilter(self);
    QObject::connect(combo, QOverload<int>::of(&QComboBox::activated), self, [self, combo] {
        if (!combo->property(listOpenProperty).toBool()) {
            return; // stepping through the entries with the arrow keys
        }
        emit self->commitData(combo);
        emit self->closeEditor(combo, NoHint);
    });
    return combo;
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
        if (editor->property(loadedProperty).toString() == text &&
            editor->property(loadedProperty).isValid()) {
            return;
        }
        editor->setProperty(loadedProperty, text);
        edit->setText(text);
    } else if (const auto* choice = MRL_H_TwSimpleComboBoxItem::fromItem(cell)) {
        if (editor->property(loadedProperty) == QVariant(choice->getCurrentId())) {
            return;
        }
        editor->setProperty(loadedProperty, choice->getCurrentId());
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
    MRL_H_TableWidget::Private& d = MRL_H_TableWidget::Private::of(*table);
    const QVariant loaded = editor->property(loadedProperty);
    if (const QLineEdit* edit = lineEditOf(editor)) {
        if (edit->text() != loaded.toString()) {
            d.enterFromEditor(index, edit->text(), std::nullopt);
        }
    } else if (const auto* combo = qobject_cast<MRL_QT4_ComboBox*>(editor)) {
        if (combo->currentIndex() >= 0 && combo->getCurrentId() != loaded.toInt()) {
            d.enterFromEditor(index, {}, combo->getCurrentId());
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
    const int missing = widthOfChoices(*combo) - place.width();
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
    return {option.fontMetrics.horizontalAdvance(MRL_H_TwCellAccess::text(*cell)) + 2 * cellTextMargin,
            option.fontMetrics.height() + cellTextMargin};
}

void MRL_H_DelegateItem::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const MRL_H_TwItem* cell = cellOf(index);
    if (cell == nullptr) {
        return;
    }
    const quint8 state = MRL_H_TwCellAccess::state(*cell);
    const QPalette normal = option->widget != nullptr ? option->widget->palette() : option->palette;
    // Black is what the rules call normal; on a dark desktop that is another colour.
    if ((state & MRL_H_TwCellAccess::TextBlack) != 0) {
        option->palette.setBrush(QPalette::Text, normal.text());
    }
    // A wrong value is seen in a selected cell too.
    if ((state & MRL_H_TwCellAccess::TextRed) != 0 && (option->state & QStyle::State_Selected) != 0) {
        option->palette.setColor(QPalette::HighlightedText, Qt::red);
        option->palette.setColor(QPalette::Highlight,
                                 between(normal.color(QPalette::Highlight), normal.color(QPalette::Base)));
    }
}

bool MRL_H_DelegateItem::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        event->accept();
        return true;
    }
    auto* view = qobject_cast<QAbstractItemView*>(object);
    if (view != nullptr) { // the list of a combo editor
        auto* combo = qobject_cast<QComboBox*>(view->parentWidget()->parentWidget());
        if (combo != nullptr && event->type() == QEvent::Show) {
            combo->setProperty(listOpenProperty, true);
        } else if (combo != nullptr && event->type() == QEvent::Hide) {
            QTimer::singleShot(0, combo, [combo] { combo->setProperty(listOpenProperty, false); });
        }
        return false;
    }
    auto* editor = qobject_cast<QWidget*>(object);
    MRL_H_TableWidget* table = editor != nullptr ? tableAround(editor) : nullptr;
    if (table != nullptr && event->type() == QEvent::KeyPress) {
        const auto step = stepOfKey(*static_cast<QKeyEvent*>(event), lineEditOf(editor) != nullptr);
        if (step.has_value()) {
            MRL_H_TableWidget::Private::of(*table).leaveEditor(step->rows, step->columns,
                                                               [this, guarded = QPointer<QWidget>(editor)] {
                                                                   emit commitData(guarded);
                                                                   if (guarded != nullptr) {
                                                                       emit closeEditor(guarded, NoHint);
                                                                   }
                                                               });
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}
