#include <gtest/gtest.h>

#include "host/mrl_framework.h"
#include "host/mrl_textlist.h"

namespace {

TEST(Plugin, TheBaseHandlesEveryCodeByDoingNothing)
{
    MRL_H_Plugin plugin(MRL_H_TASK_ACTIONS);
    MRL_H_PluginParameter parameter;
    EXPECT_EQ(plugin.task(), 93);
    EXPECT_EQ(plugin.function(MRL_H_FUNCTION_LOAD, &parameter), 0);
    EXPECT_EQ(plugin.function(static_cast<SupportedFunctions>(4711), &parameter), 0);
    EXPECT_EQ(parameter.lines, nullptr);
}

TEST(PluginParameter, IsEmptyAtFirstAndOwnsItsLines)
{
    MRL_H_PluginParameter parameter;
    EXPECT_EQ(parameter.taskWord, 0);
    EXPECT_EQ(parameter.projectTask, nullptr);
    EXPECT_EQ(parameter.parentWidget, nullptr);
    EXPECT_EQ(parameter.document, nullptr);
    parameter.lines = std::make_unique<MRL_T_Liste>(QString("task"));
}

TEST(ProjectTask, GivesTheNameThatItWasMadeWith)
{
    const MRL_H_ProjectTask task("Actions");
    EXPECT_EQ(task.getName(), "Actions");
}

TEST(CDBDoc, IsBoundByAttach)
{
    MRL_H_CDBDoc document;
    EXPECT_EQ(document.index(), -1);
    document.attach(3);
    EXPECT_EQ(document.index(), 3);
}

} // namespace
