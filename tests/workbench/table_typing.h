#pragma once

/// Typing into the table of an open manager, as a person does.

#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace mrl::test {

/// The table of the tab in front.
inline QTableWidget* frontTable(QWidget* dialog)
{
    return dialog->findChild<QTabWidget*>()->currentWidget()->findChild<QTableWidget*>();
}

/// Types over a cell, by position.
inline void typeOver(QTableWidget* table, int row, int column, const QString& text)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(table->window()));
    table->setFocus();
    table->setCurrentCell(row, column);
    QTest::keyClick(table, Qt::Key_F2);
    QLineEdit* editor = nullptr;
    for (auto* candidate : table->viewport()->findChildren<QLineEdit*>()) {
        editor = candidate->isVisible() ? candidate : editor;
    }
    ASSERT_NE(editor, nullptr) << "the cell can't be edited";
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

} // namespace mrl::test
