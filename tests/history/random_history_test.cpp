// Random commands of a person on both tabs, from a fixed seed, with some steps taken back and done again between them.
// Everything is compared after each step, and at the end all steps are taken back and done again.
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <random>

#include "actions/table_helpers.h"
#include "history/history.h"
#include "host/mrl_widgets.h"
#include "loadcases/action_list.h"
#include "tests/history/snapshot.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

constexpr int COMMANDS = 1000;

/// Answers whatever window comes, sometimes with a refusal.
class Answerer
{
  public:
    explicit Answerer(std::mt19937& random) : m_random(random)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(0);
    }

  private:
    void answer()
    {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) {
            return;
        }
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            const int choice = m_random() % 4 == 0 ? 1 : 0;
            QTest::mouseClick(box->buttons().at(std::min(choice, box->buttons().size() - 1)), Qt::LeftButton);
            return;
        }
        auto* name = window->findChild<QLineEdit*>("line_user_action");
        if (name && m_random() % 2 == 0) {
            auto* radio = window->findChildren<QRadioButton*>().at(1);
            QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(8, radio->height() / 2));
            QTest::keyClicks(name, QString(QChar(ushort('A' + m_random() % 20))) +
                                       QString::number(m_random() % 10));
        }
        QTest::keyClick(window, m_random() % 5 == 0 ? Qt::Key_Escape : Qt::Key_Return);
        if (window->isVisible()) {
            QTest::keyClick(window, Qt::Key_Escape);
        }
    }

    std::mt19937& m_random;
    QTimer m_timer;
};

class Person
{
  public:
    /// @param sorts whether the person sorts the tables between the commands, which is no step
    Person(Tabs& tabs, std::mt19937& random, bool sorts)
        : m_tabs(tabs), m_random(random), m_places(sorts ? Places::DontCount : Places::Count),
          m_parts{tabs.actions, tabs.lc, tabs.window()->findChild<QTabWidget*>()}, m_history(m_parts, nullptr)
    {
        tabs.actions->tableWidget()->setMultiEditingEnabled(true);
        tabs.table->setMultiEditingEnabled(true);
    }

    void act()
    {
        select();
        if (m_places == Places::DontCount && below(4) == 0) {
            sort();
        }
        if (below(6) == 0) {
            return below(3) == 0 ? redoOne() : undoOne();
        }
        const QStringList before = snapshot();
        const int count = m_history.undoCount();
        command();
        const QStringList after = snapshot();
        if (m_history.undoCount() > count) {
            ASSERT_EQ(m_history.undoCount(), count + 1) << "one command, one step";
            m_undone.clear();
            m_done.push_back({before, after});
        } else {
            EXPECT_EQ(m_history.undoCount(), count);
        }
    }
    void undoOne()
    {
        const bool any = !m_done.empty();
        SCOPED_TRACE("undo " + m_history.undoNames().value(0).toStdString());
        m_history.undo();
        if (any) {
            expectSame(m_done.back().before);
            m_undone.push_back(m_done.back());
            m_done.pop_back();
        }
        EXPECT_EQ(m_history.undoCount(), int(m_done.size()));
    }
    void redoOne()
    {
        const bool any = !m_undone.empty();
        SCOPED_TRACE("redo " + m_history.redoNames().value(0).toStdString());
        m_history.redo();
        if (any) {
            expectSame(m_undone.back().after);
            m_done.push_back(m_undone.back());
            m_undone.pop_back();
        }
        EXPECT_EQ(m_history.redoCount(), int(m_undone.size()));
    }
    int doneCount() const { return int(m_done.size()); }
    int undoneCount() const { return int(m_undone.size()); }

  private:
    struct Pair
    {
        QStringList before;
        QStringList after;
    };

    unsigned below(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    QStringList snapshot() const { return snapshotOf(m_parts, m_places); }
    void expectSame(const QStringList& wanted) const
    {
        const QStringList is = snapshot();
        for (int i = 0; i < std::max(is.size(), wanted.size()); ++i) {
            ASSERT_EQ(is.value(i).toStdString(), wanted.value(i).toStdString()) << "line " << i;
        }
    }

    MRL_H_TableWidget* anyTable()
    {
        LCM_TabInterface* tab = below(2) ? static_cast<LCM_TabInterface*>(m_tabs.actions)
                                         : static_cast<LCM_TabInterface*>(m_tabs.lc);
        m_parts.pages->setCurrentWidget(tab);
        return tab->tableWidget();
    }
    void select()
    {
        MRL_H_TableWidget* table = anyTable();
        if (table->rowCount() == 0 || below(3) == 0) {
            return;
        }
        const int first = int(below(unsigned(table->rowCount())));
        const int last = std::min(table->rowCount() - 1, first + int(below(4)));
        const int column = int(below(unsigned(table->columnCount())));
        table->clearSelection();
        table->setCurrentCell(first, column);
        table->setRangeSelected(QTableWidgetSelectionRange(first, column, last, column), true);
    }
    void sort()
    {
        MRL_H_TableWidget* table = anyTable();
        table->sortByColumn(int(below(unsigned(table->columnCount()))),
                            below(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    MRL_H_TableWidget* front() const
    {
        return qobject_cast<LCM_TabInterface*>(m_parts.pages->currentWidget())->tableWidget();
    }
    void command()
    {
        switch (below(15)) {
        case 0:
        case 1:
        case 2:
            return type(anyText());
        case 3:
            return type(QString());
        case 4:
        case 5:
            return paste();
        case 6:
            return front()->fillDown();
        case 7:
            return m_tabs.lc->slot_newClicked();
        case 8:
            return getSelectedRows(m_tabs.table).empty() ? m_tabs.lc->slot_newClicked()
                                                         : m_tabs.lc->slot_copyClicked();
        case 9:
            return m_tabs.table->rowCount() > 40 || below(3) == 0 ? m_tabs.lc->slot_deleteClicked()
                                                                  : m_tabs.lc->slot_newClicked();
        case 10:
            return m_tabs.actions->slot_newClicked();
        case 11:
            return below(2) ? m_tabs.actions->slot_deleteClicked() : m_tabs.actions->slot_addAllClicked();
        case 12:
            return m_tabs.actions->slot_reInitAllActions();
        case 13:
            return m_tabs.actions->slot_reInitSelectedActions();
        default:
            return below(2) ? m_tabs.actions->judgeAllRows() : m_tabs.lc->judgeAllRows();
        }
    }
    QString anyText()
    {
        const QStringList texts{"1.5", "0,7", "2", "0", "-1", "a title", "none of these", "0.25"};
        return texts.at(int(below(unsigned(texts.size()))));
    }
    void type(const QString& text)
    {
        MRL_H_TableWidget* table = front();
        const QModelIndex current = table->currentIndex();
        if (!current.isValid() || (current.flags() & Qt::ItemIsEditable) == 0) {
            return;
        }
        QApplication::setActiveWindow(m_tabs.window());
        table->setFocus();
        QTest::keyClick(table, Qt::Key_F2);
        QWidget* editor = QApplication::focusWidget();
        if (!editor || editor == table) {
            return;
        }
        if (qobject_cast<QLineEdit*>(editor)) {
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(editor, Qt::Key_Delete);
            QTest::keyClicks(editor, text);
        } else {
            QTest::keyClick(editor, Qt::Key_Down);
        }
        QTest::keyClick(editor, Qt::Key_Return);
    }
    void paste()
    {
        QStringList texts;
        const auto& entries = m_tabs.lc->offeredActions()->entries();
        for (const ComboList& entry : entries) {
            texts << entry.text;
        }
        QString text;
        for (unsigned line = 0; line <= below(3); ++line) {
            text += (below(3) == 0 ? texts.at(int(below(unsigned(texts.size())))) : anyText()) +
                    (below(2) ? QStringLiteral("\t") + anyText() : QString()) + QStringLiteral("\n");
        }
        QApplication::clipboard()->setText(text);
        front()->pasteClipboard();
    }

    Tabs& m_tabs;
    std::mt19937& m_random;
    Places m_places;
    LCM_HistoryTabs m_parts;
    LCM_History m_history;
    std::vector<Pair> m_done;
    std::vector<Pair> m_undone;
};

void runRandomly(bool sorts, unsigned seed)
{
    std::mt19937 random(seed);
    LoadCaseProject project;
    project.putAction(permanent());
    project.putAction(variable());
    for (int number = 1; number <= 12; ++number) {
        project.putLoadCase(number, bareLoadCase(number % 3 ? "G" : "Q").title(QString("LC %1").arg(number)));
    }
    Tabs tabs(project);
    tabs.show();
    const Answerer answerer(random);
    Person person(tabs, random, sorts);
    for (int i = 0; i < COMMANDS && !::testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        person.act();
    }
    EXPECT_GT(person.doneCount(), COMMANDS / 4) << "most commands change something";
    while (person.doneCount() > 0 && !::testing::Test::HasFailure()) {
        SCOPED_TRACE(QString("undo to %1").arg(person.doneCount()).toStdString());
        person.undoOne();
    }
    while (person.undoneCount() > 0 && !::testing::Test::HasFailure()) {
        SCOPED_TRACE(QString("redo of %1").arg(person.undoneCount()).toStdString());
        person.redoOne();
    }
}

} // namespace

TEST(RandomHistory, EveryStepIsTakenBackAndDoneAgainToTheLastDetail) { runRandomly(false, 20240301); }

TEST(RandomHistory, StepsFindTheirRowsInTablesThatWereSortedSince) { runRandomly(true, 20240302); }
