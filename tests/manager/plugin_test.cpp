// The two plug-ins as a host calls them.
#include <QRadioButton>

#include "host/mrl_textlist.h"
#include "hostlib/data/settings/settings.h"
#include "hostlib/ui/framework/project_document.h"
#include "manager/plugins.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

namespace {

constexpr int FIRST = 0x20202020;
constexpr int LAST = 0x7a7a7a7a;

std::unique_ptr<MRL_H_Plugin> make(const char* name)
{
    return std::unique_ptr<MRL_H_Plugin>(MRL_H_PluginFactory(QString::fromLatin1(name)));
}

} // namespace

TEST(PluginFactory, KnowsTwoNamesInTheirExactSpelling)
{
    EXPECT_NE(qobject_cast<LoadCaseManagerPlugin*>(make("lcmanager").get()), nullptr);
    EXPECT_NE(qobject_cast<ActionManagerPlugin*>(make("actionmanager").get()), nullptr);
    for (const char* name : {"LCMANAGER", "ActionManager", "lcmanager ", "", "manager"}) {
        EXPECT_EQ(make(name), nullptr) << name;
    }
}

TEST(PluginFactory, MakesANewPluginEachTime) { EXPECT_NE(make("lcmanager"), make("lcmanager")); }

TEST(Plugin, SaysWhichTaskItIs)
{
    EXPECT_EQ(make("lcmanager")->task(), 12);
    EXPECT_EQ(make("actionmanager")->task(), 93);
}

TEST(Plugin, TellsItsAbilities)
{
    EXPECT_EQ(make("lcmanager")->function(MRL_H_FUNCTION_ABILITIES, nullptr), 7);
    EXPECT_EQ(make("actionmanager")->function(MRL_H_FUNCTION_ABILITIES, nullptr), 0x2240);
}

TEST(Plugin, LeavesOtherCodesToTheFramework)
{
    MRL_H_PluginParameter parameter;
    MRL_H_Plugin base(MRL_H_TASK_ACTIONS);
    for (const int code : {0, 3, 9, 77}) {
        const int expected = base.function(static_cast<SupportedFunctions>(code), &parameter);
        for (const char* name : {"lcmanager", "actionmanager"}) {
            EXPECT_EQ(make(name)->function(static_cast<SupportedFunctions>(code), &parameter), expected);
        }
    }
}

class PluginTest : public ManagerTest
{
  protected:
    PluginTest()
    {
        document.attach(db);
        parameter.document = &document;
        parameter.projectTask = &task;
    }

    int call(const char* name, SupportedFunctions code) { return make(name)->function(code, &parameter); }

    /// Opens a plug-in's dialog and runs the script in it.
    int open(const char* name, const Script& script)
    {
        answers.then(script);
        return call(name, MRL_H_FUNCTION_DIALOG);
    }

    MRL_H_ShadowDatabase document;
    MRL_H_ProjectTask task{QStringLiteral("Actions of the bridge")};
    MRL_H_PluginParameter parameter;
};

TEST_F(PluginTest, ActionManagerMarksActionCodesForSaving)
{
    EXPECT_EQ(call("actionmanager", MRL_H_FUNCTION_SAVE), 1);
    const auto& marks = document.host().marks();
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].kwh, 14);
    EXPECT_EQ(marks[0].first, FIRST) << "the numeric keys of the group lie below";
    EXPECT_EQ(marks[0].last, LAST);
}

TEST_F(PluginTest, LoadCaseManagerMarksTheWholeGroupForSaving)
{
    EXPECT_EQ(call("lcmanager", MRL_H_FUNCTION_SAVE), 1);
    const auto& marks = document.host().marks();
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].kwh, 12);
    EXPECT_EQ(marks[0].first, INT32_MIN);
    EXPECT_EQ(marks[0].last, INT32_MAX);
}

TEST_F(PluginTest, LoadingAnswersOne)
{
    EXPECT_EQ(call("actionmanager", MRL_H_FUNCTION_LOAD), 1);
    EXPECT_EQ(call("lcmanager", MRL_H_FUNCTION_LOAD), 1);
}

/// What each plug-in brings into the document when the document opens, of what came into the file since.
TEST(PluginLoading, BringsTheKeysOfThePluginAlone)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QStringLiteral("late.cdb")).toStdString();
    const cdb::Opened other = cdb::create(file);
    ASSERT_TRUE(other) << other.result.text;
    const auto has = [](int database, int kwh, int kwl) {
        char buffer[4];
        int length = sizeof buffer;
        const bool found = mrl_cdb_get(database, kwh, kwl, buffer, &length, 0) < CD_END;
        mrl_cdb_free_ex(database, kwh, kwl);
        return found;
    };
    const struct
    {
        const char* name;
        bool bringsCase;
        bool bringsAction;
    } plugins[] = {{"actionmanager", false, true}, {"lcmanager", true, false}};
    for (const auto& plugin : plugins) {
        for (const auto& [kwh, kwl] : {std::pair{12, 1}, std::pair{14, codeOf("G")}, std::pair{14, 5}}) {
            mrl_cdb_del(other.db, kwh, kwl);
        }
        MRL_H_ShadowDatabase document;
        ASSERT_TRUE(document.host().open(QString::fromStdString(file)));
        const int word = 1;
        const int length = sizeof word;
        for (const auto& [kwh, kwl] : {std::pair{12, 1}, std::pair{14, codeOf("G")}, std::pair{14, 5}}) {
            ASSERT_EQ(mrl_cdb_put(other.db, kwh, kwl, &word, &length, 0), CD_OK);
        }
        MRL_H_PluginParameter parameter;
        parameter.document = &document;
        EXPECT_EQ(make(plugin.name)->function(MRL_H_FUNCTION_LOAD, &parameter), 1);
        EXPECT_EQ(has(document.index(), 12, 1), plugin.bringsCase) << plugin.name;
        EXPECT_EQ(has(document.index(), 14, codeOf("G")), plugin.bringsAction) << plugin.name;
        EXPECT_FALSE(has(document.index(), 14, 5)) << "a numeric key of another module";
        document.host().close();
    }
    cdb::close(other.db);
}

TEST_F(PluginTest, ActionManagerTellsAcceptanceFromTheRest)
{
    EXPECT_EQ(open("actionmanager", pressOk), 1025);
    EXPECT_EQ(open("actionmanager", pressCancel), 2);
    EXPECT_EQ(open("actionmanager", [](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->done(40021); }), 2);
}

TEST_F(PluginTest, LoadCaseManagerAnswersTheSameWhateverHappened)
{
    EXPECT_EQ(open("lcmanager", pressOk), 7);
    EXPECT_EQ(open("lcmanager", pressCancel), 7);
    EXPECT_EQ(open("lcmanager", [](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->done(40021); }), 7);
}

TEST_F(PluginTest, ActionManagerOpensTheActionsAlone)
{
    open("actionmanager", [](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), QStringList{QStringLiteral("Actions")});
        EXPECT_EQ(loadCaseTab(dialog), nullptr);
        pressCancel(dialog);
    });
}

TEST_F(PluginTest, LoadCaseManagerOpensBothTabsWithTheLoadCasesInFront)
{
    open("lcmanager", [](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), (QStringList{QStringLiteral("Actions"), QStringLiteral("Loadcases")}));
        EXPECT_EQ(tabsOf(dialog)->currentIndex(), 1);
        pressCancel(dialog);
    });
}

class RestrictedRunMode : public PluginTest, public ::testing::WithParamInterface<std::pair<int, bool>>
{
  protected:
    ~RestrictedRunMode() override { mrl::settings::setRunMode(0); }

    /// Whether the dialog of the button "New" offers actions of the user's own.
    bool offersUserDefined()
    {
        bool offered = false;
        open("actionmanager", [&](QWidget* dialog) {
            answers.then([&](QWidget* add) {
                for (auto* choice : add->findChildren<QRadioButton*>()) {
                    offered = offered || choice->text().remove('&') == QStringLiteral("User defined action");
                }
                qobject_cast<QDialog*>(add)->reject();
            });
            press(dialog, QStringLiteral("New"));
            pressCancel(dialog);
        });
        return offered;
    }
};

TEST_P(RestrictedRunMode, OffersNoUserDefinedAction)
{
    mrl::settings::setRunMode(GetParam().first);
    EXPECT_EQ(offersUserDefined(), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Bits, RestrictedRunMode,
                         ::testing::Values(std::pair{0, true}, std::pair{8, false}, std::pair{16, false},
                                           std::pair{24, false}, std::pair{7 + 32, true}));

TEST_F(PluginTest, ActionManagerGeneratesTheEchoOfTheActions)
{
    EXPECT_EQ(call("actionmanager", MRL_H_FUNCTION_GENERATE), 1);
    ASSERT_NE(parameter.lines, nullptr);
    EXPECT_EQ(parameter.lines->name().text(), QStringLiteral("Actions of the bridge"));
    QStringList lines;
    for (int i = 0; i < parameter.lines->count(); ++i) {
        lines << parameter.lines->at(i);
    }
    const int module = lines.indexOf(QRegularExpression(QStringLiteral(".*TEMPLATE.*")));
    const int echo = lines.indexOf(QStringLiteral("ECHO ACT"));
    EXPECT_GE(module, 0);
    EXPECT_GT(echo, module);
    EXPECT_GT(lines.size() - 1, echo) << "the module is closed behind it";
    EXPECT_TRUE(lines.join('\n').contains(QStringLiteral("Marlavon Action Manager")));
}

TEST_F(PluginTest, LastLineOfTheHeadIsLeftOut)
{
    MRL_T_Liste head(task.getName());
    head.Append(mrl_h_generateAutomatic(QStringLiteral("Marlavon Action Manager")));
    ASSERT_GT(head.count(), 0);
    call("actionmanager", MRL_H_FUNCTION_GENERATE);
    for (int i = 0; i + 1 < head.count(); ++i) {
        EXPECT_EQ(parameter.lines->at(i), head.at(i));
    }
    MRL_T_Liste module(task.getName());
    module.Append(mrl_h_generatePROG(&parameter, QStringLiteral("TEMPLATE"), QString(),
                                     QStringLiteral("Actions"), mrl::settings::generatorOption(), 0));
    EXPECT_EQ(parameter.lines->at(head.count() - 1), module.at(0));
}

TEST_F(PluginTest, LoadCaseManagerGeneratesNothing)
{
    MRL_H_Plugin base(MRL_H_TASK_ACTIONS);
    EXPECT_EQ(call("lcmanager", MRL_H_FUNCTION_GENERATE), base.function(MRL_H_FUNCTION_GENERATE, &parameter));
    EXPECT_EQ(parameter.lines, nullptr);
}

} // namespace mrl::test
