// Random but valid actions of a person on both tabs, from a fixed seed. After each of them every row shows
// what its action and its own values say; at the end the database holds exactly the rows.

#include <gmock/gmock.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <random>

#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/number_dialog.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

constexpr int STEPS = 1500;

class Monkey
{
  public:
    Monkey(Tabs& tabs, const LoadCaseProject& project, std::mt19937& random) : m_tabs(tabs), m_random(random)
    {
        for (const int number : tabs.numbers()) {
            m_rows[number] =
                lcm_row_of_record(number, project.storedLoadCase(number), nullptr, setupOfAllFactors());
        }
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(0);
    }

    void step()
    {
        switch (m_random() % 14) {
        case 0:
        case 1:
        case 2:
            return typeFactor();
        case 3:
            return typeTitle();
        case 4:
            return typeDeadWeight();
        case 5:
            return chooseAction();
        case 6:
            return sort();
        case 7:
            return select();
        case 8:
            return create("button_new");
        case 9:
            return create("button_copy");
        case 10:
            return deleteSelected();
        case 11:
            return changeAction();
        case 12:
            return deleteAction();
        default:
            return m_random() % 2 ? m_tabs.actions->slot_reInitAllActions() : reinitSome();
        }
    }

    void check()
    {
        ASSERT_EQ(m_tabs.numbers().size(), m_rows.size());
        for (int r = 0; r < m_tabs.table->rowCount(); ++r) {
            const int number = m_tabs.table->itemOnColId(r, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt();
            SCOPED_TRACE(number);
            const auto row = m_rows.find(number);
            ASSERT_NE(row, m_rows.end());
            checkRow(r, row->second);
        }
    }

    const std::map<int, LCM_LoadCaseRow>& rows() const { return m_rows; }
    tagCDB_LC_CTRL recordOf(int number) const
    {
        return lcm_record_of_row(m_rows.at(number), setupOfAllFactors());
    }

  private:
    void checkRow(int r, const LCM_LoadCaseRow& row)
    {
        EXPECT_EQ(m_tabs.table->itemOnColId(r, LC_COL_TITLE)->text(), row.title);
        EXPECT_EQ(lcm_cell_id(m_tabs.table->itemOnColId(r, LC_COL_ACTION)), row.action);
        EXPECT_EQ(lcm_cell_value(m_tabs.table->itemOnColId(r, LC_COL_DEADFACTOR)), row.deadWeight.factor);
        tagCDB_LC_ACT action{};
        const bool follows = m_tabs.actions->findAction(row.action, action);
        EXPECT_TRUE(follows || row.action == 0 || row.action == 70);
        for (const LCM_Factor& factor : LCM_FACTORS) {
            const QTableWidgetItem* cell = m_tabs.table->itemOnColId(r, factor.loadCaseColumn);
            const float own = row.action == 0 ? row.factors[factor.id] : 0.0f;
            EXPECT_EQ(lcm_cell_value(cell), follows ? action.*factor.actionField : own) << factor.key;
            EXPECT_EQ((cell->flags() & Qt::ItemIsEditable) != 0, row.action == 0) << factor.key;
        }
        LCM_LoadcaseEntry entry;
        m_tabs.lc->readRow(r, entry);
        EXPECT_TRUE(sameBytes(entry.record, lcm_record_of_row(row, setupOfAllFactors())));
    }

    int any(const std::vector<int>& numbers) { return numbers[m_random() % numbers.size()]; }
    int anyNumber() { return any(m_tabs.numbers()); }
    float anyFactor() { return static_cast<float>(m_random() % 40) / 20.0f; }

    /// Types over a cell as a person does, with its row clicked before.
    void type(int number, int column, const QString& text)
    {
        QApplication::setActiveWindow(m_tabs.window());
        QTableWidgetItem* cell = m_tabs.cell(number, column);
        m_tabs.table->scrollToItem(cell);
        QTest::mouseClick(m_tabs.table->viewport(), Qt::LeftButton, {},
                          m_tabs.table->visualItemRect(cell).center());
        QTest::keyClicks(m_tabs.table, text.left(1));
        QWidget* editor = QApplication::focusWidget();
        ASSERT_TRUE(editor && editor != m_tabs.table) << "no editor for " << text.toStdString();
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(editor, Qt::Key_Return);
    }
    void typeFactor()
    {
        std::vector<int> own;
        for (const auto& [number, row] : m_rows) {
            if (row.action == 0) {
                own.push_back(number);
            }
        }
        if (own.empty()) {
            return chooseAction();
        }
        const int number = any(own);
        const LCM_Factor& factor = LCM_FACTORS[m_random() % LCM_FACTORS.size()];
        const float value = anyFactor();
        type(number, factor.loadCaseColumn,
             QString::number(static_cast<double>(value)).replace('.', m_random() % 2 ? ',' : '.'));
        m_rows[number].factors[factor.id] = value;
    }
    void typeTitle()
    {
        const int number = anyNumber();
        const QString title = QString("title %1").arg(m_random() % 100);
        type(number, LC_COL_TITLE, title);
        m_rows[number].title = title;
    }
    void typeDeadWeight()
    {
        const int number = anyNumber();
        const float value = anyFactor();
        type(number, LC_COL_DEADFACTOR, QString::number(static_cast<double>(value)));
        m_rows[number].deadWeight.factor = value;
    }
    void chooseAction()
    {
        std::vector<int> ids{0, 0, 70};
        for (const auto& [actionCode, record] : m_tabs.actions->getActionMap()) {
            ids.push_back(actionCode);
        }
        const int number = anyNumber();
        const int id = any(ids);
        if (m_rows[number].action == id) {
            return;
        }
        m_tabs.chooseAction(number, id);
        m_rows[number].action = id;
        m_rows[number].factors = {};
    }
    void sort()
    {
        const int column = static_cast<int>(m_random() % static_cast<unsigned>(m_tabs.table->columnCount()));
        m_tabs.table->sortByColumn(column, m_random() % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    void select()
    {
        std::set<int> numbers;
        for (const auto& [number, row] : m_rows) {
            if (m_random() % 6 == 0) {
                numbers.insert(number);
            }
        }
        m_tabs.select(numbers);
    }

    std::vector<int> selectedInRowOrder() const
    {
        std::vector<int> numbers;
        for (const int row : getSelectedRows(m_tabs.table)) {
            numbers.push_back(m_tabs.table->itemOnColId(row, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt());
        }
        return numbers;
    }
    void create(const char* button)
    {
        if (m_rows.size() > 40) {
            return deleteSelected();
        }
        std::vector<int> sources = selectedInRowOrder();
        if (sources.size() > 4 || sources.empty()) {
            m_tabs.select({anyNumber()});
            sources = selectedInRowOrder();
        }
        const std::set<int> used = m_tabs.lc->workingModel()->getUsedLoadcaseNumbers();
        press(button);
        for (const int source : sources) {
            // Each search begins at the topmost selected row.
            int number = sources.front();
            while (m_rows.count(number) != 0 || used.count(number) != 0) {
                ++number;
            }
            if (m_tabs.row(number) < 0) {
                break; // given up in the dialog
            }
            LCM_LoadCaseRow made = m_rows.at(source);
            made.number = number;
            // A new row is filled from a record, so its own factors went through the packing.
            const tagCDB_LC_CTRL record = lcm_record_of_row(made, setupOfAllFactors());
            made.factors = lcm_shown_factors(record, nullptr);
            m_rows[number] = made;
        }
    }
    void press(const char* name)
    {
        QTest::mouseClick(m_tabs.lc->findChild<QPushButton*>(name), Qt::LeftButton);
    }
    void deleteSelected()
    {
        const std::vector<int> numbers = selectedInRowOrder();
        if (numbers.empty() || m_rows.size() < numbers.size() + 3) {
            return;
        }
        m_agree = m_random() % 3 != 0;
        press("button_delete");
        for (const int number : numbers) {
            if (m_agree) {
                m_rows.erase(number);
            }
        }
    }

    std::vector<int> actionCodes() const
    {
        std::vector<int> codes;
        for (const auto& [actionCode, record] : m_tabs.actions->getActionMap()) {
            codes.push_back(actionCode);
        }
        return codes;
    }
    void changeAction()
    {
        if (actionCodes().empty()) {
            return m_tabs.actions->slot_addAllClicked();
        }
        const int actionCode = any(actionCodes());
        if (m_random() % 4 == 0) {
            m_tabs.actions->tableWidget()
                ->itemOnColId(m_tabs.actionRow(actionCode), ACT_COL_DESCRIPTION)
                ->setText(QString("label %1").arg(m_random() % 100));
        } else {
            m_tabs.enterAction(actionCode, ACT_COL_GAMU + static_cast<int>(m_random() % 7), anyFactor());
        }
    }
    void deleteAction()
    {
        if (actionCodes().size() < 2) {
            return m_tabs.actions->slot_addAllClicked();
        }
        const int actionCode = any(actionCodes());
        std::vector<int> users;
        for (const auto& [number, row] : m_rows) {
            if (row.action == actionCode) {
                users.push_back(number);
            }
        }
        if (users.size() + 3 > m_rows.size()) {
            return;
        }
        m_agree = m_random() % 2 == 0;
        m_tabs.selectAction(actionCode);
        m_tabs.actions->slot_deleteClicked();
        for (const int number : users) {
            if (m_agree) {
                m_rows.erase(number);
            }
        }
    }
    void reinitSome()
    {
        if (actionCodes().empty()) {
            return;
        }
        m_tabs.selectAction(any(actionCodes()));
        m_tabs.actions->slot_reInitSelectedActions();
    }

    void answer()
    {
        QWidget* window = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            const auto buttons = box->buttons();
            for (QAbstractButton* button : buttons) {
                const QString text = button->text().remove('&');
                if (text == (m_agree ? "Yes" : "No") || text == (m_agree ? "Delete" : "Cancel") ||
                    text == "OK") {
                    return QTest::mouseClick(button, Qt::LeftButton);
                }
            }
        } else if (window) {
            QTest::keyClick(window, m_random() % 6 == 0 ? Qt::Key_Escape : Qt::Key_Return);
        }
    }

    Tabs& m_tabs;
    std::mt19937& m_random;
    QTimer m_timer;
    std::map<int, LCM_LoadCaseRow> m_rows; ///< what the rows have to be, by number
    bool m_agree = true;
};

TEST(LoadcaseMonkey, EveryRowShowsItsActionAndItsValuesAndAcceptingWritesThem)
{
    std::mt19937 random(20250317);
    const LoadCaseProject project;
    project.putAction(permanent());
    project.putAction(variable());
    for (int number = 1; number <= 15; ++number) {
        project.putLoadCase(number, (number % 3 == 0   ? standalone()
                                     : number % 3 == 1 ? following("G")
                                                       : following("Q"))
                                        .title(QString("Case %1").arg(number)));
    }
    std::map<int, tagCDB_LC_CTRL> expected;
    {
        Tabs tabs(project);
        tabs.show();
        Monkey monkey(tabs, project, random);
        for (int i = 0; i < STEPS && !testing::Test::HasFailure(); ++i) {
            SCOPED_TRACE(i);
            monkey.step();
            monkey.check();
        }
        for (const auto& [number, row] : monkey.rows()) {
            expected[number] = monkey.recordOf(number);
        }
        tabs.save();
    }
    ASSERT_EQ(project.storedNumbers().size(), expected.size());
    const Tabs reopened(project);
    for (const auto& [number, record] : expected) {
        EXPECT_TRUE(sameBytes(project.storedLoadCase(number), record)) << number;
        tagCDB_LC_ACT action{};
        const bool follows = reopened.actions->findAction(record.action, action);
        const LCM_LoadCaseFactors shown = lcm_shown_factors(record, follows ? &action : nullptr);
        for (const LCM_Factor& factor : LCM_FACTORS) {
            EXPECT_EQ(reopened.value(number, factor.loadCaseColumn), shown[factor.id])
                << number << ' ' << factor.key;
        }
    }
}

} // namespace
