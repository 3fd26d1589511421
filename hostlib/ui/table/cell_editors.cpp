#include "hostlib/ui/table/cell_editors.h"

#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>

#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/column_fit.h"

namespace mrl::table {

namespace {

constexpr char EDITOR_NAME[] = "cell editor";

QLineEdit* plainLineEdit(QWidget* parent, const MRL_H_TwColumn& column)
{
    auto* edit = new MRL_H_LineEdit(parent, column.description, EDITOR_NAME, {}, {}, true);
    edit->setFrame(false);
    return edit;
}

MRL_QT4_ComboBox* plainCombo(QWidget* parent)
{
    auto* combo = new MRL_QT4_ComboBox(parent, EDITOR_NAME);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setFrame(false);
    return combo;
}

} // namespace

QLineEdit* makeLineEditor(QWidget* parent, const MRL_H_TwColumn& column)
{
    QLineEdit* edit = plainLineEdit(parent, column);
    if (!column.isNumber() && column.description.secondBound > 0.0) {
        edit->setMaxLength(static_cast<int>(column.description.secondBound));
    }
    edit->setAlignment(column.isNumber() ? Qt::AlignRight | Qt::AlignVCenter : column.alignment);
    return edit;
}

QComboBox* makeEditableCombo(QWidget* parent, const MRL_H_TwColumn& column)
{
    MRL_QT4_ComboBox* combo = plainCombo(parent);
    combo->setEditable(true);
    combo->setLineEdit(plainLineEdit(combo, column));
    combo->setCompleter(nullptr);
    return combo;
}

MRL_QT4_ComboBox* makeChoice(QWidget* parent, const MRL_H_TwColumn& column)
{
    MRL_QT4_ComboBox* combo = plainCombo(parent);
    for (const ComboList& entry : column.entries) {
        combo->addItem(entry.text, entry.id);
    }
    combo->setWidthTextEnabled(true);
    return combo;
}

QLineEdit* lineEditOf(QWidget* editor)
{
    auto* combo = qobject_cast<QComboBox*>(editor);
    return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

int widthOfChoices(const QComboBox& combo)
{
    int text = 0;
    for (int i = 0; i < combo.count(); ++i) {
        text = std::max(text, combo.fontMetrics().horizontalAdvance(combo.itemText(i)));
    }
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.frame = combo.hasFrame();
    const QSize contents(text + CELL_TEXT_MARGIN, combo.fontMetrics().height());
    return combo.style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, &combo).width();
}

} // namespace mrl::table
