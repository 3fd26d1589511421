#include <gtest/gtest.h>

#include "host/mrl_framework.h"
#include "host/mrl_textlist.h"

namespace {

constexpr int PLAIN = 0;
constexpr int COMPACT = 1;

TEST(Generators, TheHeadEndsWithALineThatMayBeDeleted)
{
    MRL_T_Liste list(QString("t"));
    list.Append(mrl_h_generateAutomatic("Marlavon Action Manager"));
    EXPECT_EQ(list.at(0), "# Marlavon Action Manager");
    EXPECT_EQ(list.at(list.GetLast()), "#");
    list.Delete(list.GetLast());
    for (int i = 0; i < list.count(); ++i) {
        EXPECT_GT(list.at(i).size(), 2);
    }
    EXPECT_EQ(list.count(), 2);
}

TEST(Generators, AModuleOpensWithItsNameAndTitle)
{
    EXPECT_EQ(mrl_h_generatePROG(nullptr, "TEMPLATE", "", "Actions", PLAIN, 0),
              "MODULE TEMPLATE\nTITLE \"Actions\"\n");
    EXPECT_EQ(mrl_h_generatePROG(nullptr, "TEMPLATE", "part 1", "Actions", PLAIN, 0),
              "MODULE TEMPLATE \"part 1\"\nTITLE \"Actions\"\n");
}

TEST(Generators, ATitleStaysOnItsLineWhateverIsInIt)
{
    EXPECT_EQ(mrl_h_generatePROG(nullptr, "TEMPLATE", "", "a \"b\"\nEND", PLAIN, 0),
              "MODULE TEMPLATE\nTITLE \"a \"\"b\"\" END\"\n");
}

TEST(Generators, TheCompactFormHasNoTitleAndNoBlankLine)
{
    EXPECT_EQ(mrl_h_generatePROG(nullptr, "TEMPLATE", "", "Actions", COMPACT, 0), "MODULE TEMPLATE\n");
    EXPECT_EQ(mrl_h_generateENDE(COMPACT), "END\n");
    EXPECT_EQ(mrl_h_generateENDE(PLAIN), "END\n\n");
}

} // namespace
