// What a host sees that asks for nothing more: the objects of the dialog with their texts, actions and shortcuts, and
// the meta-objects of its classes, as they were recorded before the dialog could offer more.
#include <QFile>
#include <QMetaMethod>
#include <QMetaProperty>

#include "actions/actions_table.h"
#include "actions/new_action_dialog.h"
#include "loadcases/number_dialog.h"
#include "loadcases/number_slider.h"
#include "loadcases/table_loadcases.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

namespace {

const char* const TEXTS[] = {
    "text",     "title",          "windowTitle",          "toolTip", "placeholderText",
    "shortcut", "accessibleName", "accessibleDescription"};

/// One line: class, name and texts.
QString lineOf(const QObject& object)
{
    QString line =
        QStringLiteral("%1 '%2'").arg(QLatin1String(object.metaObject()->className()), object.objectName());
    for (const char* name : TEXTS) {
        const QString text = object.property(name).toString();
        if (!text.isEmpty()) {
            line += QStringLiteral(" %1=%2").arg(QLatin1String(name), text).replace('\n', "\\n");
        }
    }
    const QVariant shown = object.property("visible");
    return shown.isValid() && !shown.toBool() ? line + QStringLiteral(" hidden") : line;
}

void addTree(const QObject& object, int depth, QStringList& lines)
{
    lines << QString(2 * depth, ' ') + lineOf(object);
    if (const auto* widget = qobject_cast<const QWidget*>(&object)) {
        for (const QAction* action : widget->actions()) {
            lines << QString(2 * depth + 2, ' ') + QStringLiteral("action: ") + lineOf(*action);
        }
    }
    if (const auto* table = qobject_cast<const MRL_H_TableWidget*>(&object)) {
        for (int column = 0; column < table->columnCount(); ++column) {
            const QTableWidgetItem* header = table->horizontalHeaderItem(column);
            lines << QStringLiteral("%1column %2 '%3' '%4'%5")
                         .arg(QString(2 * depth + 2, ' '))
                         .arg(table->getColumnId(column))
                         .arg(header->text(), header->toolTip(),
                              table->isColumnHidden(column) ? QStringLiteral(" hidden") : QString());
        }
    }
    // How a table is made of its parts is the host's own.
    const bool partsCount = qobject_cast<const MRL_H_TableWidget*>(&object) == nullptr;
    for (const QObject* child : object.children()) {
        if (partsCount || qobject_cast<const QAction*>(child) != nullptr) {
            addTree(*child, depth + 1, lines);
        }
    }
}

void addMetaObject(const QMetaObject& meta, QStringList& lines)
{
    lines << QStringLiteral("class %1 : %2")
                 .arg(QLatin1String(meta.className()), QLatin1String(meta.superClass()->className()));
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        lines << QStringLiteral("  %1 %2 %3")
                     .arg(method.methodType())
                     .arg(method.access())
                     .arg(QString::fromLatin1(method.methodSignature()));
    }
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        lines << QStringLiteral("  property %1").arg(QLatin1String(meta.property(i).name()));
    }
    lines << QStringLiteral("  enums %1 classinfo %2")
                 .arg(meta.enumeratorCount() - meta.enumeratorOffset())
                 .arg(meta.classInfoCount() - meta.classInfoOffset());
}

QStringList linesOf(const QString& file)
{
    QFile recorded(file);
    EXPECT_TRUE(recorded.open(QFile::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(recorded.readAll()).split('\n', Qt::SkipEmptyParts);
}

} // namespace

class PlainForm : public ManagerTest
{
  protected:
    /// The form of the dialog that a control structure asks for.
    void add(const QString& title, int mode, bool single)
    {
        m_lines << QStringLiteral("== ") + title;
        MRL_LC_CtrlStruct control;
        control.mode = mode;
        control.singleTab = single;
        run(control, [this](QWidget* dialog) {
            addTree(*dialog, 0, m_lines);
            for (auto* table : dialog->findChildren<MRL_H_TableWidget*>()) {
                m_lines << QStringLiteral("menu of %1").arg(table->objectName());
                addTree(*table->getContextMenu(), 1, m_lines);
            }
            pressCancel(dialog);
        });
    }

    QStringList m_lines;
};

TEST_F(PlainForm, IsAsItWasRecorded)
{
    add("both tabs", 1, false);
    add("actions", 1, true);
    add("load cases", 0, true);
    for (const QMetaObject* meta :
         {&LCM_TabInterface::staticMetaObject, &LCM_ActionsWidget::staticMetaObject,
          &LCM_LoadcaseWidget::staticMetaObject, &TableLoadCases::staticMetaObject,
          &MRL_LC_ActionsTable::staticMetaObject, &MRL_LC_AddNewActionDialog::staticMetaObject,
          &LCM_LoadcaseNumberDialog::staticMetaObject, &MySlider::staticMetaObject,
          &MyDelegate::staticMetaObject, &LoadcaseManager::staticMetaObject}) {
        addMetaObject(*meta, m_lines);
    }
    const QStringList recorded = linesOf(QStringLiteral(MRL_PLAIN_FORM));
    for (int i = 0; i < std::max(recorded.size(), m_lines.size()); ++i) {
        ASSERT_EQ(m_lines.value(i).toStdString(), recorded.value(i).toStdString()) << "line " << i + 1;
    }
}

} // namespace mrl::test
