#include "actions/new_action_fields.h"

#include <QLabel>

#include <utility>

LCM_NewActionFields::LCM_NewActionFields(QWidget* parent, QStringList labels)
    : m_box(new QWidget(parent)), m_labels(std::move(labels)), m_labelColumn(new MRL_QT_VBoxLayout),
      m_fieldColumn(new MRL_QT_VBoxLayout)
{
    auto* line = new MRL_QT_HBoxLayout(m_box, nullptr);
    line->addLayout(m_labelColumn);
    line->addLayout(m_fieldColumn);
}

MRL_QT4_ComboBox* LCM_NewActionFields::addComboBox()
{
    auto* combo = new MRL_QT4_ComboBox(m_box);
    combo->setWidthTextEnabled(true);
    addField(combo);
    return combo;
}

MRL_H_LineEdit* LCM_NewActionFields::addLineEdit(const char* name, double maxCharacters, int flags)
{
    StructLineEdit description;
    description.format = -15;
    description.secondBound = maxCharacters;
    description.flags = flags;
    auto* edit = new MRL_H_LineEdit(m_box, description, name, QString(), QString(), true);
    addField(edit);
    return edit;
}

void LCM_NewActionFields::addField(QWidget* field)
{
    auto* label = new QLabel(m_labels.takeFirst(), m_box);
    label->setBuddy(field);
    label->setFixedHeight(field->sizeHint().height());
    m_labelColumn->addWidget(label);
    m_fieldColumn->addWidget(field);
}
