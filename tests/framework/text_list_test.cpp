#include <gtest/gtest.h>

#include <QStringList>

#include "host/mrl_textlist.h"

namespace {

QStringList linesOf(const MRL_T_Liste& list)
{
    QStringList lines;
    for (int i = 0; i < list.count(); ++i) {
        lines << list.at(i);
    }
    return lines;
}

TEST(TextList, HasTheNameThatItWasMadeWith)
{
    const MRL_T_Liste list(MRL_T_String("Actions"));
    EXPECT_EQ(list.name().text(), "Actions");
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.GetLast(), -1);
}

TEST(TextList, ALineFeedAtTheEndMakesNoFurtherLine)
{
    MRL_T_Liste list(QString("t"));
    list.Append("ECHO ACT\n");
    list.Append(QString("END"));
    EXPECT_EQ(linesOf(list), (QStringList{"ECHO ACT", "END"}));
}

TEST(TextList, ABlockAppendedAtOnceBecomesItsLines)
{
    MRL_T_Liste list(QString("t"));
    list.Append(QString("a\r\n\nb\n"));
    EXPECT_EQ(linesOf(list), (QStringList{"a", "", "b"}));
}

TEST(TextList, AnEmptyTextIsAnEmptyLine)
{
    MRL_T_Liste list(QString("t"));
    list.Append("");
    list.Append("\n");
    EXPECT_EQ(linesOf(list), (QStringList{"", ""}));
}

TEST(TextList, PlainTextIsReadAsUtf8)
{
    MRL_T_Liste list(QString("t"));
    list.Append("\xc3\xa4");
    EXPECT_EQ(list.at(0), QString(QChar(0xe4)));
}

TEST(TextList, ALineThatIsNotThereIsPassedOver)
{
    MRL_T_Liste list(QString("t"));
    list.Append("one\ntwo");
    list.Delete(5);
    list.Delete(-1);
    EXPECT_EQ(list.count(), 2);
    list.Delete(list.GetLast());
    EXPECT_EQ(linesOf(list), QStringList{"one"});
    EXPECT_EQ(list.at(1), QString());
}

} // namespace
