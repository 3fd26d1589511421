// What a host may ask of the dialog while it is open, and of the one that was accepted last.
#include "host/mrl_widgets.h"
#include "manager/open_rows.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

class OpenRows : public ManagerTest
{
  protected:
    OpenRows() { wantExtras(1); }
    ~OpenRows() override { wantExtras(0); }

    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    static void typeTitle(QWidget* dialog, const QString& title)
    {
        tabsOf(dialog)->setCurrentWidget(loadCaseTab(dialog));
        typeInto(loadCaseTab(dialog)->tableWidget(), 0, LC_COL_TITLE, title);
    }
    tagCDB_LC_ACT storedActionOf(int code) const { return project.read<tagCDB_LC_ACT>(LC_KWH_ACTIONS, code); }
    static QString titleOf(const MRL_LC_OpenRows& rows, std::size_t row)
    {
        return lcm_title_text(rows.loadCases.at(row).second.title);
    }

    MRL_LC_CtrlStruct control;
};

TEST_F(OpenRows, AreNoneWithoutADialogAndBeforeTheFirstCommand)
{
    MRL_LC_OpenRows rows;
    EXPECT_EQ(mrl_loadcase_manager_rows(rows, 100), MRL_LC_ROWS_NONE);
    run(control, [&](QWidget* dialog) {
        EXPECT_EQ(mrl_loadcase_manager_rows(rows, 100), MRL_LC_ROWS_NONE);
        pressCancel(dialog);
    });
}

TEST_F(OpenRows, AreReadInBitsAndAnewAfterTheNextCommand)
{
    run(control, [&](QWidget* dialog) {
        MRL_LC_OpenRows rows;
        typeTitle(dialog, "First");
        ASSERT_EQ(mrl_loadcase_manager_rows(rows, 1), MRL_LC_ROWS_MORE);
        typeTitle(dialog, "Second");
        int bits = 0;
        while (mrl_loadcase_manager_rows(rows, 1) == MRL_LC_ROWS_MORE) {
            ++bits;
        }
        EXPECT_GT(bits, 1);
        EXPECT_EQ(rows.actions.size(),
                  static_cast<std::size_t>(actionsTab(dialog)->tableWidget()->rowCount()));
        EXPECT_EQ(rows.loadCases.size(),
                  static_cast<std::size_t>(loadCaseTab(dialog)->tableWidget()->rowCount()));
        EXPECT_EQ(titleOf(rows, 0), "Second");
        static_cast<QDialog*>(dialog)->reject();
    });
}

TEST_F(OpenRows, AreWhatAnAcceptanceStores)
{
    MRL_LC_OpenRows rows;
    run(control, [&](QWidget* dialog) {
        typeTitle(dialog, "Kept");
        ASSERT_EQ(mrl_loadcase_manager_rows(rows, 1000), MRL_LC_ROWS_ALL);
        pressOk(dialog);
    });
    for (const auto& [number, record] : rows.loadCases) {
        const tagCDB_LC_CTRL stored = project.storedLoadCase(number);
        EXPECT_EQ(std::memcmp(&stored, &record, sizeof record), 0) << number;
    }
    for (const auto& [code, record] : rows.actions) {
        const tagCDB_LC_ACT stored = storedActionOf(code);
        EXPECT_EQ(std::memcmp(&stored, &record, sizeof record), 0) << code;
    }
    EXPECT_FALSE(rows.loadCases.empty());
}

TEST_F(OpenRows, OfAnAcceptanceTellWhichWereEdited)
{
    int number = 0;
    run(control, [&](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        number = table->itemOnColId(0, LC_COL_NUMBER)->text().toInt();
        typeTitle(dialog, "Edited");
        pressOk(dialog);
    });
    std::set<int> loadCases{-5};
    std::set<int> actions{-5};
    mrl_loadcase_manager_edited(loadCases, actions);
    EXPECT_EQ(loadCases, std::set<int>{number});
    EXPECT_EQ(actions, std::set<int>());
}

} // namespace mrl::test
