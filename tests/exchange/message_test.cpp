#include "exchange/message.h"

#include <gtest/gtest.h>

using mrl::exchange::Message;

namespace {

TEST(Message, NothingIsToldByAnEmptyOne)
{
    EXPECT_TRUE(Message().empty());
    EXPECT_FALSE(Message("the file is empty").empty());
    EXPECT_EQ(Message().english(), "");
}

TEST(Message, ArgumentsComeIntoTheirPlaces)
{
    EXPECT_EQ(Message("%2 of %1", {"b", "a"}).english(), "a of b");
    EXPECT_EQ(Message("100 % of %1, %2", {"b"}).english(), "100 % of b, %2");
}

TEST(Message, ArgumentsThatLookLikePlacesStayAsTheyAre)
{
    EXPECT_EQ(Message("\"%1\" stands in line %2 already", {"%2 %1", "7"}).english(),
              "\"%2 %1\" stands in line 7 already");
    EXPECT_EQ(Message::verbatim("100 %1").english(), "100 %1");
}

TEST(Message, PlacesStandAheadOfWhatIsTheMatter)
{
    const Message inRow = Message::at({"row %1", {"4"}}, "it is empty");
    EXPECT_EQ(Message::at({"sheet \"%1\"", {"Lasten"}}, inRow).english(),
              "sheet \"Lasten\": row 4: it is empty");
}

} // namespace
