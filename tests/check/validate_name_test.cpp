#include <gtest/gtest.h>

#include "check/validate_name.h"

namespace {

const QStringList USED{QStringLiteral("G   "), QStringLiteral("Q_1 "), QStringLiteral("ABCD")};

/// The refusal of a changed action text, empty when the name is good.
std::string actionFault(const QString& action, const QString& category = QString())
{
    QString message;
    const bool valid = validateName(action, category, USED, true, message);
    EXPECT_EQ(valid, message.isEmpty());
    return message.toStdString();
}

/// The refusal of a changed category text.
std::string categoryFault(const QString& category, const QString& action = QStringLiteral("X"))
{
    QString message;
    const bool valid = validateName(action, category, USED, false, message);
    EXPECT_EQ(valid, message.isEmpty());
    return message.toStdString();
}

} // namespace

TEST(ActionNames, LettersAndDigitsAreGood)
{
    for (const char* name : {"Q", "Q1", "ABC", "W2X9", "q"}) {
        EXPECT_EQ(actionFault(QLatin1String(name)), "") << name;
    }
}

TEST(ActionNames, EmptyActionHasNoFault) { EXPECT_EQ(actionFault(QString()), ""); }

TEST(ActionNames, EmptyActionIsGoodBesideARowOfNothingButBlanks)
{
    const QStringList used{QStringLiteral("    "), QStringLiteral("_1  ")};
    QString message;
    EXPECT_TRUE(validateName(QString(), QString(), used, true, message));
    EXPECT_TRUE(validateName(QString(), QString(), used, false, message)); // the category was emptied
    EXPECT_TRUE(validateName(QString(), "1", used, true, message));
    EXPECT_EQ(message, QString());
    EXPECT_FALSE(validateName(QString(), "1", used, false, message)); // here the category is what is judged
    EXPECT_EQ(message, QStringLiteral("Name already used!"));
}

TEST(ActionNames, CategoryOfTwoCharactersIsRefused)
{
    EXPECT_EQ(categoryFault("12"), "Max. 1 character for category!");
}

TEST(ActionNames, ActionOfFiveCharactersIsRefused) { EXPECT_EQ(actionFault("ABCDE"), "Max. 4 characters!"); }

TEST(ActionNames, CategoryLengthIsTestedBeforeTheNameLength)
{
    EXPECT_EQ(categoryFault("ABCDE"), "Max. 1 character for category!");
}

TEST(ActionNames, BlankIsRefusedAheadOfSpecialCharacters)
{
    EXPECT_EQ(actionFault("A B"), "Spaces are not allowed!");
    EXPECT_EQ(actionFault("_ B"), "Spaces are not allowed!");
    EXPECT_EQ(categoryFault(" "), "Spaces are not allowed!");
}

TEST(ActionNames, UnderscoreAndLettersOutsideAsciiAreSpecial)
{
    EXPECT_EQ(actionFault("A_B"), "Special characters are not allowed!");
    EXPECT_EQ(actionFault(QString(QChar(0xC4))), "Special characters are not allowed!"); // A umlaut
    EXPECT_EQ(actionFault(QString(QChar(0x0663))),
              "Special characters are not allowed!"); // Arabic digit three
    EXPECT_EQ(actionFault("A\tB"), "Special characters are not allowed!");
    EXPECT_EQ(categoryFault("-"), "Special characters are not allowed!");
}

TEST(ActionNames, ActionMayNotBeginWithADigit)
{
    EXPECT_EQ(actionFault("1AB"), "No digit at beginning!");
    EXPECT_EQ(actionFault("A1B"), "");
}

TEST(ActionNames, CategoryMayBeADigit) { EXPECT_EQ(categoryFault("1"), ""); }

TEST(ActionNames, ImperfectionIsNotAName)
{
    for (const char* name : {"IMP", "imp", "Imp"}) {
        EXPECT_EQ(actionFault(QLatin1String(name)), "Action 'IMP' is not allowed!");
    }
    EXPECT_EQ(actionFault("IMP1"), "");
}

TEST(ActionNames, NamesBeginningWithYAreReserved)
{
    for (const char* name : {"Y", "y1", "Y1"}) {
        EXPECT_EQ(actionFault(QLatin1String(name)), "Action beginning with 'Y' is not allowed!");
    }
    EXPECT_EQ(categoryFault("Y"), "Action beginning with 'Y' is not allowed!");
    EXPECT_EQ(actionFault("AY"), "");
}

TEST(ActionNames, UsedNameIsRefusedWithoutItsBlanks)
{
    EXPECT_EQ(actionFault("G"), "Name already used!");
    EXPECT_EQ(actionFault("ABCD"), "Name already used!");
}

TEST(ActionNames, UsedNamesAreComparedWithTheirCase) { EXPECT_EQ(actionFault("g"), ""); }

TEST(ActionNames, CategoryCanMakeAUsedName)
{
    EXPECT_EQ(actionFault("Q"), "");
    EXPECT_EQ(categoryFault("1", "Q"), "Name already used!");
    EXPECT_EQ(actionFault("Q", "1"), "Name already used!");
    EXPECT_EQ(categoryFault("A", "Q1"), "");
}

TEST(ActionNames, ChangedCategoryDoesNotTestTheActionAgain)
{
    EXPECT_EQ(categoryFault("1", "A_B"), "");
    EXPECT_EQ(categoryFault(QString(), "Y1"), "");
    EXPECT_EQ(categoryFault("1", "IMP"), "");
}

TEST(ActionNames, PercentSignsInTheUntestedActionAreNoPlaces)
{
    QString message;
    EXPECT_FALSE(validateName("%2", "1", {QStringLiteral("%2_1")}, false, message));
    EXPECT_EQ(message, QStringLiteral("Name already used!"));
}

TEST(ActionNames, GoodNameLeavesTheMessageAlone)
{
    QString message = QStringLiteral("as it was");
    EXPECT_TRUE(validateName("Q", QString(), USED, true, message));
    EXPECT_EQ(message, QStringLiteral("as it was"));
}
