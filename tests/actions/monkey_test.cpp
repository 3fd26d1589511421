// Random but valid actions of a person, from a fixed seed. After each of them table, model and signals agree.
#include "tests/actions/actions_fixture.h"

#include <QLineEdit>
#include <QRadioButton>

#include <random>

#include "check/finding_text.h"
#include "host/mrl_dlib.h"
#include "rules/action_rules.h"

using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::FakeLoadcaseTab;
using mrl::test::soundAction;

namespace {

constexpr int STEPS = 3000;

/// The actions that a receiver of the signals believes in: it re-reads what a signal tells it to, and no
/// more.
class Follower : public QObject
{
  public:
    explicit Follower(LCM_ActionsWidget& widget) : m_widget(widget)
    {
        connect(&widget, &LCM_ActionsWidget::signal_actionCountChanged, this, [this] { readAll(); });
        connect(&widget, &LCM_ActionsWidget::signal_actionValuesChanged, this,
                [this](int row, int) { readRow(row); });
        connect(&widget, &LCM_ActionsWidget::signal_reinitActions, this, [this](const std::set<int>& rows) {
            for (const int row : rows) {
                readRow(row);
            }
        });
        readAll();
    }

    std::map<int, tagCDB_LC_ACT> actions;

  private:
    void readAll()
    {
        actions.clear();
        for (int row = 0; row < m_widget.tableWidget()->rowCount(); ++row) {
            readRow(row);
        }
    }
    void readRow(int row)
    {
        tagCDB_LC_ACT record{};
        const int code = m_widget.readRow(row, record);
        actions[code] = record;
    }

    LCM_ActionsWidget& m_widget;
};

/// Answers whatever window comes: the new-action dialog and the question about used actions.
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
        if (window == nullptr) {
            return;
        }
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            QTest::mouseClick(box->buttons().at(static_cast<int>(m_random() % 2)), Qt::LeftButton);
            return;
        }
        if (m_random() % 2 == 0) {
            typeName(*window);
        }
        QTest::keyClick(window, m_random() % 5 == 0 ? Qt::Key_Escape : Qt::Key_Return);
        if (window->isVisible()) {
            QTest::keyClick(window, Qt::Key_Escape); // a refused name holds OK back
        }
    }
    void typeName(QWidget& dialog)
    {
        auto* radio = dialog.findChildren<QRadioButton*>().at(1);
        QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(8, radio->height() / 2));
        QString name;
        for (unsigned long i = 0, length = 1 + m_random() % 3; i < length; ++i) {
            name += QChar(static_cast<ushort>('A' + m_random() % 26));
        }
        QTest::keyClicks(dialog.findChild<QLineEdit*>("line_user_action"), name);
        if (name.size() < 3 && m_random() % 2 == 0) {
            QTest::keyClicks(dialog.findChild<QLineEdit*>("line_user_category"),
                             QString::number(m_random() % 10));
        }
    }

    std::mt19937& m_random;
    QTimer m_timer;
};

class Monkey
{
  public:
    Monkey(ActionsTab& tab, FakeLoadcaseTab& loadcases, std::mt19937& random)
        : m_tab(tab), m_loadCases(loadcases), m_random(random), m_follower(tab.widget)
    {
    }

    void step()
    {
        switch (m_random() % 12) {
        case 0:
        case 1:
        case 2:
        case 3:
            return enter(randomFactorColumn(), randomFactor());
        case 4:
            return enter(ACT_COL_DESCRIPTION, QStringLiteral("title%1").arg(m_random() % 100));
        case 5:
            return sort();
        case 6:
            return select();
        case 7:
            return m_tab.press("button_new");
        case 8:
            return deleteSome();
        case 9:
            return m_random() % 3 == 0 ? m_tab.widget.slot_reInitAllActions()
                                       : m_tab.widget.slot_reInitSelectedActions();
        case 10:
            return chooseEntry();
        default:
            m_tab.widget.save(false);
        }
    }

    /// What the table shows, what its verdicts say, what the receiver of the signals knows, and which actions
    /// the model holds for active: all the same.
    void check()
    {
        std::set<int> codes;
        bool valid = true;
        for (int row = 0; row < m_tab.table.rowCount(); ++row) {
            tagCDB_LC_ACT record{};
            const int code = m_tab.widget.readRow(row, record);
            EXPECT_EQ(m_tab.cell(row, ACT_COL_ACTION)->data(ROLE_ACTION_CODE).toInt(), code);
            EXPECT_TRUE(codes.insert(code).second);
            const auto known = m_follower.actions.find(code);
            ASSERT_NE(known, m_follower.actions.end());
            EXPECT_EQ(std::memcmp(&known->second, &record, sizeof record), 0);
            valid = checkVerdict(row, record) && valid;
        }
        EXPECT_EQ(m_follower.actions.size(), codes.size());
        EXPECT_EQ(m_tab.widget.isValid(), valid);
        EXPECT_EQ(activeCodes(), codes);
        EXPECT_EQ(m_tab.widget.getActionMap().size(), codes.size());
    }

  private:
    bool checkVerdict(int row, const tagCDB_LC_ACT& record)
    {
        const LCM_ErrorList errors = lcm_error_list(
            lcm_check_action(record, *m_tab.widget.workingModel()->availabilityRecord(), {1, 2, 49, 2010}));
        EXPECT_EQ(m_tab.cell(row, ACT_COL_ACTION)->data(ROLE_ROW_VALID).toBool(), errors.empty());
        for (int id = ACT_COL_ACTION; id <= ACT_COL_PSI1S; ++id) {
            const auto error = errors.find(id);
            EXPECT_EQ(m_tab.isRed(row, id), error != errors.end());
            EXPECT_EQ(m_tab.cell(row, id)->toolTip(), error == errors.end() ? QString() : error->second);
        }
        return errors.empty();
    }
    std::set<int> activeCodes() const
    {
        std::set<int> codes;
        for (const LCM_ActionEntry* parent : m_tab.widget.workingModel()->actions) {
            if (parent->state == LCM_STATE_ACTIVE) {
                codes.insert(parent->code);
            }
            for (const LCM_SubAction* child : parent->subActions) {
                if (child->state == LCM_STATE_ACTIVE) {
                    codes.insert(child->code);
                }
            }
        }
        return codes;
    }

    int randomRow() { return static_cast<int>(m_random() % static_cast<unsigned>(m_tab.table.rowCount())); }
    int randomFactorColumn() { return ACT_COL_GAMU + static_cast<int>(m_random() % 7); }
    QString randomFactor()
    {
        return QString::number(static_cast<double>(m_random() % 31) / 20.0)
            .replace('.', m_random() % 2 ? "," : ".");
    }
    void enter(int column, const QString& text)
    {
        if (m_tab.table.rowCount() == 0) {
            return;
        }
        const QString name = m_tab.text(randomRow(), ACT_COL_ACTION).trimmed();
        m_tab.clickCell(name, column);
        if (m_random() % 3 == 0) {
            m_tab.clickCell(m_tab.text(randomRow(), ACT_COL_ACTION).trimmed(), column, Qt::ShiftModifier);
        }
        m_tab.typeOver(text);
    }
    void sort()
    {
        const int column = static_cast<int>(m_random() % static_cast<unsigned>(m_tab.table.columnCount()));
        m_tab.table.sortByColumn(column, m_random() % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    void select()
    {
        m_tab.table.clearSelection();
        for (int row = 0; row < m_tab.table.rowCount(); ++row) {
            if (m_random() % 4 == 0) {
                m_tab.selectRows({m_tab.text(row, ACT_COL_ACTION).trimmed()});
            }
        }
    }
    void deleteSome()
    {
        if (m_tab.table.rowCount() < 4) {
            return m_tab.widget.slot_addAllClicked();
        }
        m_loadCases.used.clear();
        for (int row = 0; row < m_tab.table.rowCount(); ++row) {
            if (m_random() % 3 == 0) {
                m_loadCases.used.insert(m_tab.cell(row, ACT_COL_ACTION)->data(ROLE_ACTION_CODE).toInt());
            }
        }
        if (m_random() % 2) {
            m_tab.press("button_delete");
        } else {
            QTest::keyClick(&m_tab.table, Qt::Key_Delete);
        }
    }
    void chooseEntry()
    {
        if (m_tab.table.rowCount() == 0) {
            return;
        }
        // Chosen in the cell itself, with its row selected as a person's click leaves it.
        const int row = randomRow();
        m_tab.table.setCurrentCell(row, m_tab.table.getColumnNumber(ACT_COL_PARTITION));
        const int ids[] = {1, 2, 3, 4, 5, 49, 53};
        static_cast<MRL_H_TwSimpleComboBoxItem*>(m_tab.cell(row, ACT_COL_PARTITION))
            ->setCurrentId(ids[m_random() % 7]);
    }

    ActionsTab& m_tab;
    FakeLoadcaseTab& m_loadCases;
    std::mt19937& m_random;
    Follower m_follower;
};

} // namespace

TEST(Monkey, TableModelAndSignalsAgreeAfterEachRandomAction)
{
    std::mt19937 random(20240229);
    ActionsProject project;
    for (const char* name : {"A", "G", "Q", "Q_1", "U1", "U2"}) {
        project.putAction(soundAction(name));
    }
    FakeLoadcaseTab loadcases(project.db());
    ActionsTab tab(project, &loadcases);
    const Answerer answerer(random);
    Monkey monkey(tab, loadcases, random);
    for (int i = 0; i < STEPS && !::testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        monkey.step();
        monkey.check();
    }
}
