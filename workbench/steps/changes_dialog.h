#pragma once

#include <QDialog>

#include "workbench/steps/shown_changes.h"

class QDialogButtonBox;

namespace mrl::workbench {

/// Lists what a step changed.
class ChangesDialog : public QDialog
{
    Q_OBJECT
  public:
    ChangesDialog(const QString& heading, std::vector<ShownChange> changes, QWidget* parent);
};

/// Another program has changed the project's file: lists where document and file differ, and asks what to do.
class ConflictDialog : public QDialog
{
    Q_OBJECT
  public:
    enum class Choice { Cancel, Reload, SaveAs, Overwrite };

    /// @param differences from the file to the document
    ConflictDialog(std::vector<ShownChange> differences, QWidget* parent);
    Choice choice() const { return m_choice; }

  private:
    void addChoice(const QString& text, Choice choice, const char* name, QDialogButtonBox* buttons);

    Choice m_choice = Choice::Cancel;
};

} // namespace mrl::workbench
