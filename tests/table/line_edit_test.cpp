#include "table/fixture.h"

namespace tabletest {

TEST(LineEdit, ShowsAndReadsANumber)
{
    MRL_H_LineEdit edit(nullptr, description(-3, -1), "m_pFac", "", "", true);
    EXPECT_EQ(edit.objectName(), "m_pFac");
    edit.setVal(1.0);
    EXPECT_EQ(edit.text(), "1");
    edit.setText("0,5");
    bool ok = false;
    EXPECT_EQ(edit.getVal(&ok), 0.5);
    EXPECT_TRUE(ok);
}

TEST(LineEdit, GivesTheLastNumberForAnImpossibleInput)
{
    MRL_H_LineEdit edit(nullptr, bounded(0.0, 9.0), "", "", "", true);
    edit.setVal(2.0);
    bool ok = true;
    for (const char* text : {"", "abc", "9.1", "-0.1"}) {
        edit.setText(text);
        EXPECT_EQ(edit.getVal(&ok), 2.0) << text;
        EXPECT_FALSE(ok) << text;
    }
    edit.setText("9");
    EXPECT_EQ(edit.getVal(nullptr), 9.0);
}

TEST(LineEdit, PutsTheLastNumberBackWhenTheEditingEnds)
{
    MRL_H_LineEdit edit(nullptr, bounded(0.0, 9.0), "", "", "", true);
    edit.setVal(2.0);
    edit.show();
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(edit.text(), "2.00");
}

TEST(LineEdit, ShowsTheTextOfItsDescriptionForItsValue)
{
    MRL_H_LineEdit edit(nullptr, description(-3, 2), "", "", "", true);
    StrLineEdit copy = edit.getStrLineEdit();
    copy.text = "Use from Action";
    copy.value = -99999.0;
    edit.updateVal(copy);
    EXPECT_EQ(edit.text(), "Use from Action");
    bool ok = false;
    EXPECT_EQ(edit.getVal(&ok), -99999.0);
    EXPECT_TRUE(ok);
    edit.setVal(1.35);
    EXPECT_EQ(edit.text(), "1.35");
}

TEST(LineEdit, HandsOutItsDescriptionForChange)
{
    MRL_H_LineEdit edit(nullptr, description(-3, 2), "", "", "", true);
    edit.getStrLineEdit().thirdBound = 0.0;
    EXPECT_EQ(edit.getStrLineEdit().thirdBound, 0.0);
}

TEST(LineEdit, OfATextKeepsIt)
{
    StrLineEdit description = MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(-15);
    description.text = "dead load ";
    MRL_H_LineEdit edit(nullptr, description, "", "", "", true);
    EXPECT_EQ(edit.text(), "dead load ");
}

} // namespace tabletest
