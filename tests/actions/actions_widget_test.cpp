#include "tests/actions/actions_fixture.h"

#include <QMenu>
#include <QMetaMethod>

using mrl::test::ACTIONS_CODE;
using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::codeOf;
using mrl::test::FakeLoadcaseTab;
using mrl::test::ModalAnswers;
using mrl::test::soundAction;

namespace {

const char* const NOTICE = "You have made modifications to the actions.\nPlease check your inputs in the "
                           "Superposition Manager and adapt them if necessary manually or by reinitializing.";

/// The menu that opens next, closed again. @return the texts of its entries
QStringList entriesOfNextMenu(const std::function<void()>& open)
{
    QStringList entries;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&entries] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            return;
        }
        for (const QAction* entry : menu->actions()) {
            entries << (entry->isSeparator() ? QStringLiteral("-") : entry->text());
        }
        menu->close();
    });
    timer.start(0);
    open();
    return entries;
}

void rightClick(QWidget& widget, const QPoint& place)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST(ActionsWidget, MetaObjectListsSignalsAndSlotsInTheirOrder)
{
    const QMetaObject& meta = LCM_ActionsWidget::staticMetaObject;
    QList<QByteArray> signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        signatures << meta.method(i).methodSignature();
    }
    EXPECT_EQ(signatures,
              QList<QByteArray>({"signal_newAction()", "signal_deleteAction()", "signal_actionCountChanged()",
                                 "signal_actionValuesChanged(int,int)", "signal_reinitActions(std::set<int>)",
                                 "slot_addAllClicked()", "slot_newClicked()", "slot_deleteClicked()",
                                 "slot_cellChanged(int,int)", "slot_reInitAllActions()",
                                 "slot_reInitSelectedActions()"}));
}

TEST(ActionsWidget, TabInterfaceHasAMetaObjectOfItsOwnAndNothingInIt)
{
    const QMetaObject& meta = LCM_TabInterface::staticMetaObject;
    EXPECT_STREQ(meta.className(), "LCM_TabInterface");
    EXPECT_EQ(meta.methodOffset(), meta.methodCount());
    EXPECT_EQ(meta.propertyOffset(), meta.propertyCount());
}

TEST(ActionsWidget, ReinitSignalConnectsToASlotThatTakesAReference)
{
    EXPECT_EQ(QMetaObject::normalizedSignature("signal_reinitActions(const std::set<int>&)"),
              QByteArray("signal_reinitActions(std::set<int>)"));
}

TEST(ActionsWidget, SharesTheModelOfTheLoadcaseTab)
{
    const ActionsProject project;
    FakeLoadcaseTab loadcases(project.db());
    {
        const ActionsTab tab(project, &loadcases);
        EXPECT_EQ(tab.widget.workingModel(), loadcases.workingModel());
        EXPECT_EQ(loadcases.workingModel()->referenceCount(), 2);
    }
    EXPECT_EQ(loadcases.workingModel()->referenceCount(), 1);
}

TEST(ActionsWidget, MakesAModelOfItsOwnWithoutALoadcaseTab)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    EXPECT_EQ(tab.widget.workingModel()->referenceCount(), 1);
}

TEST(ActionsWidget, ButtonsAreReachedByTab)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    for (const char* name : {"button_new", "button_delete"}) {
        const auto* button = tab.widget.findChild<QAbstractButton*>(QLatin1String(name));
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->focusPolicy(), Qt::TabFocus);
    }
    EXPECT_EQ(tab.widget.findChild<QAbstractButton*>("button_new")->text(), QStringLiteral("New"));
    EXPECT_EQ(tab.widget.findChild<QAbstractButton*>("button_delete")->text(), QStringLiteral("Delete"));
    EXPECT_EQ(tab.widget.findChild<QAbstractButton*>("button_add_all"), nullptr);
}

TEST(ActionsWidget, ExperimentalRunOffersAddAllAtTheFoot)
{
    qputenv("MRL_EXPERIMENTAL", "1");
    const ActionsProject project;
    ActionsTab tab(project);
    qunsetenv("MRL_EXPERIMENTAL");
    const auto* addAll = tab.widget.findChild<QAbstractButton*>("button_add_all");
    ASSERT_NE(addAll, nullptr);
    EXPECT_EQ(addAll->text(), QStringLiteral("ADD ALL"));
    EXPECT_EQ(addAll->focusPolicy(), Qt::TabFocus);
    EXPECT_GT(addAll->y(),
              tab.widget.findChild<QAbstractButton*>("button_delete")->geometry().bottom() + 100);
    tab.press("button_add_all");
    EXPECT_EQ(tab.table.rowCount(), 7); // the defaults G and Q, and the five that were free
}

TEST(ActionsWidget, TableWithoutRowsIsValid)
{
    const ActionsProject project;
    ActionsTab tab(project, nullptr, 0, false);
    EXPECT_TRUE(tab.widget.isValid());
}

TEST(ActionsWidget, RowWithoutItsFirstCellIsInvalid)
{
    const ActionsProject project;
    ActionsTab tab(project);
    ASSERT_TRUE(tab.widget.isValid());
    delete tab.table.takeItem(1, 0);
    EXPECT_FALSE(tab.widget.isValid());
}

TEST(ActionsWidget, ValidityIsTheStoredVerdict)
{
    const ActionsProject project;
    ActionsTab tab(project);
    tab.widget.setRowValid(0, false);
    EXPECT_FALSE(tab.widget.isValid());
    tab.widget.setRowValid(0, true);
    EXPECT_TRUE(tab.widget.isValid());
    tab.widget.setRowValid(99, false);
    EXPECT_TRUE(tab.widget.isValid());
}

TEST(ActionsWidget, SelectedCodesAreThoseOfTheSelectedRows)
{
    ActionsProject project;
    for (const char* name : {"A", "G", "U1"}) {
        project.putAction(soundAction(name));
    }
    ActionsTab tab(project);
    std::set<int> codes{1, 2};
    tab.table.clearSelection();
    tab.widget.getSelectedActionCodes(codes);
    EXPECT_TRUE(codes.empty());
    tab.selectRows({"A", "U1"});
    tab.widget.getSelectedActionCodes(codes);
    EXPECT_EQ(codes, (std::set<int>{codeOf("A"), codeOf("U1")}));
}

TEST(ActionsWidget, SelectedRowWithoutItsFirstCellCountsAsMinusOne)
{
    const ActionsProject project;
    ActionsTab tab(project);
    delete tab.table.takeItem(0, 0);
    tab.table.clearSelection();
    tab.table.setRangeSelected({0, 1, 0, 1}, true);
    std::set<int> codes;
    tab.widget.getSelectedActionCodes(codes);
    EXPECT_EQ(codes, (std::set<int>{-1}));
}

TEST(ActionsWidget, SaveWithoutWritingLeavesTheDatabase)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMU, "1.45");
    tab.widget.save(false);
    EXPECT_EQ(project.storedActions().at("G   ").gamu, 1.35f);
    tagCDB_LC_ACT record{};
    EXPECT_EQ(tab.widget.workingModel()->findAction(codeOf("G"), record, false), 1);
    EXPECT_EQ(record.gamu, 1.45f);
}

TEST(ActionsWidget, SaveWritesWhatTheRowsShow)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    project.putAction(soundAction("U1").title("Crane"));
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMU, "1.45");
    tab.enter("U1", ACT_COL_GAMA, "0");
    tab.widget.save(true);
    const auto stored = project.storedActions();
    ASSERT_EQ(stored.size(), 2u);
    const tagCDB_LC_ACT g = soundAction("G").gamu(1.45f);
    const tagCDB_LC_ACT u1 = soundAction("U1").title("Crane").gama(0.001f); // a shown 0 is stored so
    EXPECT_EQ(std::memcmp(&stored.at("G   "), &g, sizeof g), 0);
    EXPECT_EQ(std::memcmp(&stored.at("U1  "), &u1, sizeof u1), 0);
}

TEST(ActionsWidget, SaveAfterAnEditTellsOfSuperpositionInput)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    project.putSuperposition();
    ActionsTab tab(project);
    EXPECT_TRUE(modificationNoticePending);
    tab.enter("G", ACT_COL_GAMU, "1.45");
    ModalAnswers answers;
    answers.click("OK");
    tab.widget.save(true);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, QStringLiteral("Action modified"));
    EXPECT_EQ(answers.boxes()[0].text, QLatin1String(NOTICE));
    EXPECT_FALSE(modificationNoticePending);
}

TEST(ActionsWidget, SaveAfterAnEditSaysNothingWithoutSuperpositionInput)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMU, "1.45");
    const ModalAnswers nothing;
    tab.widget.save(true);
    EXPECT_TRUE(modificationNoticePending);
}

TEST(ActionsWidget, ReinitialisingAloneBringsNoNotice)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    project.putSuperposition();
    ActionsTab tab(project);
    tab.widget.slot_reInitAllActions();
    tab.widget.slot_addAllClicked();
    EXPECT_FALSE(tab.widget.isModified());
    const ModalAnswers nothing;
    tab.widget.save(true);
    EXPECT_TRUE(modificationNoticePending);
}

TEST(ActionsWidget, EachTabSetsThePendingNotice)
{
    const ActionsProject project;
    modificationNoticePending = false;
    const ActionsTab tab(project);
    EXPECT_TRUE(modificationNoticePending);
}

TEST(ActionsWidget, TableMenuOffersTheSelectedOnlyWithASelection)
{
    const ActionsProject project;
    ActionsTab tab(project);
    tab.table.clearSelection();
    const auto open = [&tab] { rightClick(*tab.table.viewport(), QPoint(5, 5)); };
    QStringList entries = entriesOfNextMenu(open);
    EXPECT_EQ(entries.last(), QStringLiteral("Reinit all actions"));
    EXPECT_EQ(entries.at(entries.size() - 2), QStringLiteral("-"));
    tab.selectRows({"G"});
    entries = entriesOfNextMenu(open);
    EXPECT_EQ(entries.last(), QStringLiteral("Reinit selected actions"));
    EXPECT_EQ(entries.count("Reinit all actions"), 1);
}

TEST(ActionsWidget, PageMenuNeverOffersTheSelected)
{
    const ActionsProject project;
    ActionsTab tab(project);
    tab.selectRows({"G"});
    const QStringList entries =
        entriesOfNextMenu([&tab] { rightClick(tab.widget, tab.widget.rect().bottomRight() - QPoint(2, 2)); });
    EXPECT_EQ(entries.last(), QStringLiteral("Reinit all actions"));
    EXPECT_FALSE(entries.contains("Reinit selected actions"));
}

TEST(ActionsWidget, ChosenMenuEntryReinitialises)
{
    ActionsProject project;
    project.putAction(soundAction("G").gamu(9.0f));
    ActionsTab tab(project);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            menu->setActiveAction(menu->actions().last());
            QTest::keyClick(menu, Qt::Key_Return);
        }
    });
    timer.start(0);
    tab.selectRows({"G"});
    rightClick(*tab.table.viewport(), QPoint(5, 5));
    EXPECT_EQ(tab.record("G").gamu, 1.35f);
}
