#pragma once

/// Projects in memory with actions and load cases, and the two tabs on them, for tests.

#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <map>
#include <memory>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "host/mrl_cdb.h"
#include "host/mrl_table.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/roles.h"
#include "loadcases/cell.h"
#include "loadcases/loadcase_widget.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"
#include "support/loadcase_builders.h"

namespace lctest {

/// A design code with all seven factors, the default actions G (dead), Q and W (live).
inline std::string fullCode()
{
    return "[DESIGN CODE]\nlabel = Test code\nntcode = 0\nidcode = 1\ncountry = 0\nyear = 2020\n"
           "[AVAILABILITY]\nGamu = 1.0\nGamf = 1.0\nGama = 1.0\nPsi0 = 1.0\nPsi1 = 1.0\nPsi2 = 1.0\nPsi1s = "
           "1.0\n"
           "[ACTIONS]\nTXT_GAMU = gU\n"
           "[ACTION G]\ntitle = Permanent\ncategory = G\nsuperposition = PERM\nold = 2\n"
           "Gamu = 1.35\nGamf = 1.0\nGama = 1.0\nPsi0 = 1.0\nPsi1 = 1.0\nPsi2 = 1.0\nPsi1s = 1.0\n"
           "[ACTION Q]\ntitle = Variable\ncategory = Q\nsuperposition = COND\nold = 7\n"
           "Gamu = 1.5\nGamf = 0.0\nGama = 1.0\nPsi0 = 0.7\nPsi1 = 0.5\nPsi2 = 0.3\nPsi1s = 0.9\n"
           "[ACTION W]\ntitle = Wind\ncategory = Q\nsuperposition = COND\n"
           "Gamu = 1.5\nGamf = 0.0\nGama = 1.0\nPsi0 = 0.6\nPsi1 = 0.2\nPsi2 = 0.0\nPsi1s = 0.8\n";
}

/// A text without the lines that begin with a word.
inline std::string withoutLines(const std::string& text, const std::string& word)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at) + 1;
        const std::string line = text.substr(at, end - at);
        if (line.compare(0, word.size(), word) != 0) {
            result += line;
        }
        at = end;
    }
    return result;
}

/// The actions of fullCode() as the project stores them.
inline ActionBuilder permanent() { return action("G", "Permanent").all(1.0f).gamu(1.35f).partition(0x10); }
inline ActionBuilder variable()
{
    return action("Q", "Variable")
        .partition(0x31)
        .gamu(1.5f)
        .gamf(0.0f)
        .gama(1.0f)
        .psi0(0.7f)
        .psi1(0.5f)
        .psi2(0.3f)
        .psi1s(0.9f);
}

/// A project in memory. It is closed at its end.
class Project
{
  public:
    explicit Project(const std::string& designCode = fullCode())
    {
        const std::string file = m_folder.filePath("code.ini").toStdString();
        std::ofstream(file) << designCode;
        m_db = mrl::cdb::openMemory().db;
        EXPECT_TRUE(mrl::cdb::setFact(m_db, "designcode", file));
        EXPECT_EQ(mrl::designcode::ofDatabase(m_db).reason, "");
        system(0, -3);
    }
    ~Project() { mrl::cdb::close(m_db); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    int db() const { return m_db; }

    void put(int kwh, int kwl, const void* data, int length) const
    {
        EXPECT_EQ(mrl_cdb_put(m_db, kwh, kwl, data, &length, 0), CD_OK);
    }
    /// @param rawClass 0 spatial, 1 to 19 plane, 20 to 39 plate
    void system(int rawClass, int gravity) const
    {
        int record[88] = {rawClass, gravity};
        put(LC_KWH_SYSTEM, 0, record, static_cast<int>(sizeof record));
    }
    void putAction(const tagCDB_LC_ACT& record) const
    {
        put(LC_KWH_ACTIONS, lcm_action_code(record), &record, 112);
    }
    void putLoadcase(int number, const tagCDB_LC_CTRL& record) const
    {
        put(LC_KWH_CASES, number, &record, 188);
    }
    /// Superposition data, of which a change of actions warns.
    void putSuperposition() const
    {
        const int record[28] = {1};
        put(LC_KWH_ACTIONS, 5, record, 112);
    }

    tagCDB_LC_CTRL loadcase(int number) const
    {
        tagCDB_LC_CTRL record{};
        int length = 188;
        EXPECT_LE(mrl_cdb_get(m_db, LC_KWH_CASES, number, &record, &length, 0), CD_CUT) << number;
        mrl_cdb_free_ex(m_db, LC_KWH_CASES, number);
        return record;
    }
    std::vector<int> numbers() const
    {
        std::list<int> found;
        mrl::dbo::getKwls(m_db, LC_KWH_CASES, 0, 999, &found, nullptr);
        return {found.begin(), found.end()};
    }

  private:
    QTemporaryDir m_folder;
    int m_db = -1;
};

/// A titled record.
inline tagCDB_LC_CTRL titled(tagCDB_LC_CTRL record, const QString& title)
{
    lcm_title_pack(title, record.title, LC_TITLE_WORDS);
    return record;
}

/// The load-case tab in a window, alone or with the actions tab, as the manager makes them.
class Tabs
{
  public:
    enum Which { LoadcasesAlone, Both };

    explicit Tabs(const Project& project, Which which = Both)
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        auto* pages = new QTabWidget(m_window.get());
        layout->addWidget(pages);
        lc = new LCM_LoadcaseWidget(project.db(), m_window.get(), "loadcasewidget");
        if (which == Both) {
            actions = new LCM_ActionsWidget(lc, project.db(), 0, m_window.get(), "actionswidget");
            pages->addTab(actions, "Actions");
            lc->setActionsWidget(actions);
        }
        pages->addTab(lc, "Loadcases");
        pages->setCurrentWidget(lc);
        m_window->resize(1150, 700);
        if (actions) {
            actions->fillTable();
        }
        lc->fillTable();
        table = static_cast<MRL_H_TableWidget*>(lc->tableWidget());
    }

    QWidget* window() const { return m_window.get(); }
    void show()
    {
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    void save() const
    {
        if (actions) {
            actions->save(true);
        }
        lc->save(true);
    }

    /// The row of a load case, -1 when there is none.
    int row(int number) const
    {
        for (int r = 0; r < table->rowCount(); ++r) {
            if (table->itemOnColId(r, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt() == number) {
                return r;
            }
        }
        return -1;
    }
    std::vector<int> numbers() const
    {
        std::vector<int> found;
        for (int r = 0; r < table->rowCount(); ++r) {
            found.push_back(table->itemOnColId(r, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt());
        }
        return found;
    }
    QTableWidgetItem* cell(int number, int column) const { return table->itemOnColId(row(number), column); }
    QString text(int number, int column) const { return cell(number, column)->text(); }
    float value(int number, int column) const { return lcm_cell_value(cell(number, column)); }
    int actionId(int number) const { return lcm_cell_id(cell(number, LC_COL_ACTION)); }
    bool isEditable(int number, int column) const
    {
        return (cell(number, column)->flags() & Qt::ItemIsEditable) != 0;
    }
    bool isValid(int number) const { return cell(number, LC_COL_NUMBER)->data(ROLE_ROW_VALID).toBool(); }
    bool isRed(int number, int column) const
    {
        return cell(number, column)->foreground().color() == QColor(Qt::red);
    }
    LCM_LoadcaseEntry read(int number) const
    {
        LCM_LoadcaseEntry entry;
        lc->readRow(row(number), entry);
        return entry;
    }

    void select(const std::set<int>& numbers) const
    {
        table->clearSelection();
        lc->selectLoadcases(numbers);
    }
    /// Chooses an entry of the action column as an edit does.
    void chooseAction(int number, int id) const
    {
        MRL_H_TwSimpleComboBoxItem::fromItem(cell(number, LC_COL_ACTION))->setCurrentId(id);
    }
    /// Enters a number as an edit does.
    void enter(int number, int column, float entered) const
    {
        MRL_H_TwSimpleLineEditItem::fromItem(cell(number, column))->setVal(entered);
    }

    int actionRow(int code) const
    {
        tagCDB_LC_ACT record;
        for (int r = 0; r < actions->tableWidget()->rowCount(); ++r) {
            if (actions->readRow(r, record) == code) {
                return r;
            }
        }
        return -1;
    }
    /// Enters a factor of an action as an edit does.
    void enterAction(int code, int column, float entered) const
    {
        MRL_H_TwSimpleLineEditItem::fromItem(actions->tableWidget()->itemOnColId(actionRow(code), column))
            ->setVal(entered);
    }
    void selectAction(int code) const
    {
        actions->tableWidget()->clearSelection();
        actions->tableWidget()->selectRow(actionRow(code));
    }

    LCM_LoadcaseWidget* lc;               ///< child of the window
    LCM_ActionsWidget* actions = nullptr; ///< child of the window
    MRL_H_TableWidget* table;             ///< the table of the load cases

  private:
    std::unique_ptr<QWidget> m_window;
};

} // namespace lctest
