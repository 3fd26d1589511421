#pragma once

#include <QString>
#include <QStringList>

#include "host/mrl_table.h"
#include "host/mrl_widgets.h"

/// A block of fields in the new-action dialog, each with a label of its height to the left.
class LCM_NewActionFields
{
  public:
    /// @param labels in the order in which the fields are added
    LCM_NewActionFields(QWidget* parent, QStringList labels);

    /// The block; it owns the fields.
    QWidget* box() const { return m_box; }
    MRL_QT4_ComboBox* addComboBox();
    /// @param maxCharacters the greatest number of characters. @param flags of the host's description
    MRL_H_LineEdit* addLineEdit(const char* name, double maxCharacters, int flags);

  private:
    void addField(QWidget* field);

    QWidget* m_box;
    QStringList m_labels;
    MRL_QT_VBoxLayout* m_labelColumn;
    MRL_QT_VBoxLayout* m_fieldColumn;
};
