// Where the factors of the open dialog come from.
#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QToolTip>
#include <QWhatsThis>

#include <algorithm>

#include "host/mrl_widgets.h"
#include "tests/manager/manager_fixture.h"
#include "tests/support/sample_code.h"

namespace mrl::test {

/// The design code vouches for Psi0 of Q; the project's Q has another one.
class Origins : public ManagerTest
{
  protected:
    Origins()
    {
        std::string code = sampleCodeOf({"G", "Q"});
        code = replaced(code, "Psi0 = 0.7", "Psi0 = 0.7 {Table A1.1, verified} offices alone");
        code = replaced(code, "Gamu = 1.35", "Gamu = 1.35 {Table A1.2(B), one source}");
        useCode(code);
        project.putLoadCase(4, bareLoadCase(QStringLiteral("Q")).title(QStringLiteral("LC 4")));
        wantExtras(1);
    }
    ~Origins() override
    {
        wantExtras(0);
        QToolTip::hideText();
    }

    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    static MRL_H_TableWidget* front(QWidget* dialog, LCM_TabInterface* tab)
    {
        tabsOf(dialog)->setCurrentWidget(tab);
        return tab->tableWidget();
    }
    static QString toolTip(MRL_H_TableWidget* table, int row, int columnId)
    {
        QToolTip::hideText();
        table->scrollToItem(table->itemOnColId(row, columnId));
        const QPoint place = table->visualItemRect(table->itemOnColId(row, columnId)).center();
        QHelpEvent event(QEvent::ToolTip, place, table->viewport()->mapToGlobal(place));
        QApplication::sendEvent(table->viewport(), &event);
        return QToolTip::text();
    }
    static QString description(MRL_H_TableWidget* table, int row, int columnId)
    {
        QAccessibleInterface* view = QAccessible::queryAccessibleInterface(table);
        return view->tableInterface()
            ->cellAt(row, table->getColumnNumber(columnId))
            ->text(QAccessible::Description);
    }
    /// The texts of the context menu of a table, those of its submenus behind it.
    static QStringList menuTexts(MRL_H_TableWidget* table)
    {
        QStringList texts;
        QTimer::singleShot(0, [&texts] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions()) {
                texts << action->text();
                for (const QAction* inner : action->menu() ? action->menu()->actions() : QList<QAction*>()) {
                    texts << inner->text();
                }
            }
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                table->viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(table->viewport(), &event);
        return texts;
    }

    MRL_LC_CtrlStruct control;
};

TEST_F(Origins, OfAFactorIsToldByItsToolTip)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        const int q = rowOf(table, ACT_COL_ACTION, "Q");
        const int g = rowOf(table, ACT_COL_ACTION, "G");
        EXPECT_EQ(toolTip(table, q, ACT_COL_PSI0),
                  "Q p0 0.5: yours; the code says 0.7 (code2, Table A1.1, verified); offices alone");
        EXPECT_EQ(toolTip(table, g, ACT_COL_GAMU), "G gU 1.35: code2, Table A1.2(B), one source");
        EXPECT_EQ(toolTip(table, q, ACT_COL_GAMF), "Q gF 1: yours; the code states none");
        pressCancel(dialog);
    });
}

TEST_F(Origins, OfALoadCaseIsThatOfItsAction)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, loadCaseTab(dialog));
        const int row = rowOf(table, LC_COL_TITLE, "LC 4");
        EXPECT_EQ(toolTip(table, row, LC_COL_PSI0),
                  "Q p0 0.5: yours; the code says 0.7 (code2, Table A1.1, verified); offices alone");
        EXPECT_EQ(description(table, row, LC_COL_PSI0), toolTip(table, row, LC_COL_PSI0));
        EXPECT_EQ(description(table, rowOf(table, LC_COL_TITLE, "LC 1"), LC_COL_GAMU), "");
        pressCancel(dialog);
    });
}

TEST_F(Origins, FollowWhatIsTyped)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        const int q = rowOf(table, ACT_COL_ACTION, "Q");
        EXPECT_NE(description(table, q, ACT_COL_PSI0), "");
        typeInto(table, q, ACT_COL_PSI0, "0.7");
        EXPECT_EQ(description(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_PSI0), "");
        table->setCurrentCell(rowOf(table, ACT_COL_ACTION, "Q"), table->getColumnNumber(ACT_COL_PSI0));
        EXPECT_EQ(dialog->findChild<QLabel*>("label_origin")->text(),
                  "Q p0 0.7: code2, Table A1.1, verified; offices alone");
        EXPECT_TRUE(table->whatsThis().contains("Q p0 0.7: code2")) << "the help of the row";
        EXPECT_TRUE(table->whatsThis().contains("Q gU 1.35: yours; the code says 1.5"));
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(Origins, HelpOfTheRowComesWithShiftF1)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        table->setFocus();
        table->setCurrentCell(rowOf(table, ACT_COL_ACTION, "Q"), 0);
        QTest::keyClick(table, Qt::Key_F1, Qt::ShiftModifier);
        const auto windows = QApplication::topLevelWidgets();
        const auto help = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->inherits("QWhatsThat") && window->isVisible();
        });
        EXPECT_NE(help, windows.end());
        QWhatsThis::hideText();
        pressCancel(dialog);
    });
}

TEST_F(Origins, CellsOwnToolTipWins)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_PSI0, "1.5");
        EXPECT_TRUE(
            toolTip(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_PSI0).contains("has to be between"));
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(Origins, MenuTellsWhatReinitWouldChange)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        selectRows(table, ACT_COL_ACTION, {"Q"});
        const QStringList texts = menuTexts(table);
        EXPECT_TRUE(texts.contains("Q p0: 0.5 > 0.7")) << texts.join(" | ").toStdString();
        EXPECT_TRUE(texts.contains("Q gU: 1.35 > 1.5"));
        EXPECT_TRUE(texts.filter("G ").isEmpty()) << "it isn't selected";
        pressCancel(dialog);
    });
}

TEST_F(Origins, AreToldNowhereUnlessTheHostWantsIt)
{
    wantExtras(0);
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = front(dialog, actionsTab(dialog));
        const int q = rowOf(table, ACT_COL_ACTION, "Q");
        EXPECT_EQ(toolTip(table, q, ACT_COL_PSI0), "");
        EXPECT_EQ(description(table, q, ACT_COL_PSI0), "");
        EXPECT_TRUE(menuTexts(table).filter("Reinit would").isEmpty());
        pressCancel(dialog);
    });
}

} // namespace mrl::test
