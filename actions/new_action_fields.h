#pragma once

#include <QString>
#include <QStringList>

#include "host/mrl_table.h"
#include "host/mrl_widgets.h"

/// A block of fields with their labels to the left, in the new-action dialog. The labels are as high as their
/// fields, so that each stands beside its own.
class LCM_NewActionFields
{
  public:
    /// @param labels in the order in which the fields are added
    LCM_NewActionFields(QWidget* parent, const QStringList& labels);

    /// The block, child of the parent. It owns the fields.
    QWidget* box() const { return m_box; }
    MRL_QT4_ComboBox* addComboBox();
    /// @param maxCharacters the greatest number of characters. @param flags of the host's description
    MRL_H_LineEdit* addLineEdit(const char* name, double maxCharacters, int flags);

  private:
    void addField(QWidget* field);

    QWidget* m_box;
    QStringList m_labels;
    MRL_QT_VBoxLayout* m_labelColumn; ///< child of the box, like the next one
    MRL_QT_VBoxLayout* m_fieldColumn;
};
