#pragma once

/// A project in memory with a design code of the test's own, and the actions tab on it.

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/load_case_tab.h"
#include "actions/table_helpers.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/roles.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "tests/support/action_builder.h"
#include "tests/support/modal_answers.h"
#include "tests/support/project_fixture.h"

Q_DECLARE_METATYPE(std::set<int>)

namespace mrl::test {

/// A design code that knows every factor, each Psi up to 1, and lists G, Q with two categories, W_1 and W_2
/// without their parent, and A.
inline const std::string FULL_CODE = R"([DESIGN CODE]
label = Test code
ntcode = 1
idcode = 2
country = 49
year = 2010
[AVAILABILITY]
Gamu = 1
Gamf = 1
Gama = 1
Psi0 = 1
Psi1 = 1
Psi2 = 1
Psi1s = 1
[ACTIONS]
TXT_GAMU = gU
TXT_GAMF = gF
TXT_GAMA = gA
TXT_PSI0 = p0
TXT_PSI1 = p1
TXT_PSI2 = p2
TXT_PSI1S = p1s
[ACTION G]
title = Permanent load
category = G
superposition = PERM
old = 2
Gamu = 1.35
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
Psi1s = 1.0
[ACTION Q]
title = Variable load
category = Q
superposition = EXCL
old = 7
Gamu = 1.5
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
Psi1s = 0.8
[ACTION Q_1]
title = Offices
category = Q
group = 1
superposition = COND
Gamu = 1.5
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
Psi1s = 0.6
[ACTION Q_2]
title = Storage
category = Q
group = 2
superposition = COND
Gamu = 1.5
Gama = 1.0
Psi0 = 1.0
Psi1 = 0.9
Psi2 = 0.8
Psi1s = 0.9
[ACTION W_1]
title = Wind from the left
category = Q
superposition = EXCL
Gamu = 1.5
Gama = 1.0
Psi0 = 0.6
Psi1 = 0.2
Psi2 = 0
Psi1s = 0.6
[ACTION W_2]
title = Wind from the right
category = Q
superposition = EXCL
Gamu = 1.5
Gama = 1.0
Psi0 = 0.6
Psi1 = 0.2
Psi2 = 0
Psi1s = 0.6
[ACTION A]
title = Impact
category = A
superposition = EXEX
Gamu = 1.0
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
Psi1s = 1.0
)";

/// The four characters of an action's code.
inline QByteArray codeName(const tagCDB_LC_ACT& action)
{
    char text[5] = {};
    lcm_word_to_chars(lcm_action_code(action), text);
    return QByteArray(text);
}

/// A text with one part replaced by another.
inline std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return text.replace(place, from.size(), to);
}

/// A project in memory.
class Project : public MemoryProject
{
  public:
    explicit Project(const std::string& designCode = FULL_CODE)
    {
        const std::string file = m_folder.filePath(QStringLiteral("code.ini")).toStdString();
        std::ofstream(file) << designCode;
        setDesignCode(file);
    }
    /// A project of a shipped design code. @param name see mrl::designcode::list
    static std::unique_ptr<Project> ofShippedCode(const std::string& name)
    {
        auto project = std::make_unique<Project>();
        project->setDesignCode(name);
        return project;
    }

    void store(const tagCDB_LC_ACT& action) { putAction(action); }
    void storeAt(int code, const tagCDB_LC_ACT& action) { putAction(code, action); }

    /// The stored actions by the text of their code.
    std::map<std::string, tagCDB_LC_ACT> stored() const
    {
        std::map<std::string, tagCDB_LC_ACT> actions;
        int kwh = 14;
        int kwl = 0;
        for (mrl_cdb_kenq_ex(db(), &kwh, &kwl, 1); kwh == 14; mrl_cdb_kenq_ex(db(), &kwh, &kwl, 1)) {
            tagCDB_LC_ACT action{};
            int length = sizeof action;
            mrl_cdb_get(db(), kwh, kwl, &action, &length, 0);
            mrl_cdb_free_ex(db(), kwh, kwl);
            char text[5] = {};
            lcm_word_to_chars(kwl, text);
            actions[text] = action;
        }
        return actions;
    }

  private:
    QTemporaryDir m_folder; ///< holds the design code
};

/// A load-case tab that knows which actions are used and notes what it is asked.
class FakeLoadcaseTab : public LCM_LoadCaseTab
{
  public:
    explicit FakeLoadcaseTab(int db) : m_model(new LCM_DataClass(db)) {}
    ~FakeLoadcaseTab() override { m_model->release(); }

    LCM_DataClass* workingModel() const override { return m_model; }
    bool isActionUsed(const tagCDB_LC_ACT& action) override
    {
        asked.push_back(lcm_action_code(action));
        return used.count(asked.back()) != 0;
    }
    void removeActionLoadcases(const tagCDB_LC_ACT& action) override
    {
        removed.push_back(lcm_action_code(action));
    }

    std::set<int> used;
    std::vector<int> asked;
    std::vector<int> removed;

  private:
    LCM_DataClass* m_model; ///< counted
};

inline int codeOf(const QString& name) { return lcm_pack_word(name); }

/// The tab, filled and shown, with what a person can do to it and see of it.
class ActionsTab
{
  public:
    explicit ActionsTab(const Project& project, LCM_LoadCaseTab* loadcases = nullptr, int dialogOption = 0,
                        bool fill = true)
        : widget(loadcases, project.db(), dialogOption, nullptr, "actionswidget"),
          table(*widget.actionsTable())
    {
        widget.resize(1100, 500);
        widget.show();
        QApplication::setActiveWindow(&widget);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
        if (fill) {
            widget.fillTable();
        }
    }

    int rowOf(const QString& name) const
    {
        for (int row = 0; row < table.rowCount(); ++row) {
            if (text(row, ACT_COL_ACTION).trimmed() == name) {
                return row;
            }
        }
        return -1;
    }
    QStringList names() const
    {
        QStringList list;
        for (int row = 0; row < table.rowCount(); ++row) {
            list << text(row, ACT_COL_ACTION).trimmed();
        }
        return list;
    }
    QTableWidgetItem* cell(int row, int id) const { return table.itemOnColId(row, id); }
    QTableWidgetItem* cell(const QString& name, int id) const { return cell(rowOf(name), id); }
    QString text(int row, int id) const
    {
        const QTableWidgetItem* item = cell(row, id);
        return item == nullptr ? QString() : item->text();
    }
    QString text(const QString& name, int id) const { return text(rowOf(name), id); }
    bool isRed(int row, int id) const { return cell(row, id)->foreground().color() == Qt::red; }
    bool isRed(const QString& name, int id) const { return isRed(rowOf(name), id); }
    QString toolTip(const QString& name, int id) const { return cell(name, id)->toolTip(); }
    bool isRowValid(const QString& name) const
    {
        return cell(name, ACT_COL_ACTION)->data(ROLE_ROW_VALID).toBool();
    }
    tagCDB_LC_ACT record(const QString& name)
    {
        tagCDB_LC_ACT action{};
        widget.readRow(rowOf(name), action);
        return action;
    }

    void clickCell(const QString& name, int id, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTableWidgetItem* item = cell(name, id);
        ASSERT_NE(item, nullptr);
        table.scrollToItem(item);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, table.visualItemRect(item).center());
    }
    /// Types a text over the current cell and presses Return.
    void typeOver(const QString& text)
    {
        QApplication::setActiveWindow(&widget); // a dialog that closed leaves no window active here
        table.setFocus();
        QTest::keyClicks(&table, text.left(1));
        QWidget* editor = QApplication::focusWidget();
        ASSERT_NE(editor, &table) << "no cell editor for " << text.toStdString();
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    void enter(const QString& name, int id, const QString& text)
    {
        clickCell(name, id);
        typeOver(text);
    }
    void selectRows(const QStringList& rowNames)
    {
        table.clearSelection();
        for (const QString& name : rowNames) {
            table.selectionModel()->select(table.model()->index(rowOf(name), 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }
    void press(const char* buttonName)
    {
        auto* button = widget.findChild<QAbstractButton*>(QLatin1String(buttonName));
        ASSERT_NE(button, nullptr) << buttonName;
        QTest::mouseClick(button, Qt::LeftButton);
    }

    LCM_ActionsWidget widget;
    MRL_LC_ActionsTable& table;
};

} // namespace mrl::test
