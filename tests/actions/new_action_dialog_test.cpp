#include "tests/actions/actions_fixture.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>

#include "actions/new_action_dialog.h"
#include "host/mrl_table.h"

using mrl::test::ACTIONS_CODE;
using mrl::test::ActionsProject;
using mrl::test::codeOf;
using mrl::test::soundAction;

namespace {

/// The dialog as a person sees it.
class Shown
{
  public:
    explicit Shown(LCM_DataClass& model, const QStringList& usedNames = {}, int option = 0)
        : dialog(option, &model, usedNames, nullptr, "new action"),
          combos(dialog.findChildren<MRL_QT4_ComboBox*>()), radios(dialog.findChildren<QRadioButton*>()),
          info(*dialog.findChild<MRL_QT_InfoText*>()), buttons(*dialog.findChild<MRL_QT_Ok*>()),
          ok(*buttons.cmdOk())
    {
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }

    MRL_QT4_ComboBox& actionCombo() { return *combos.at(0); }
    MRL_QT4_ComboBox& categoryCombo() { return *combos.at(1); }
    MRL_H_LineEdit& edit(const char* name) { return *dialog.findChild<MRL_H_LineEdit*>(QLatin1String(name)); }
    MRL_H_LineEdit& userAction() { return edit("line_user_action"); }
    MRL_H_LineEdit& userCategory() { return edit("line_user_category"); }
    MRL_H_LineEdit& userDescription() { return edit("line_user_desc"); }
    MRL_H_LineEdit& description() { return edit("line_pre_desc"); }

    QStringList offered() const
    {
        QStringList list;
        for (int i = 0; i < combos.at(0)->count(); ++i) {
            list << combos.at(0)->itemText(i);
        }
        return list;
    }
    QStringList categories() const
    {
        QStringList list;
        for (int i = 0; i < combos.at(1)->count(); ++i) {
            list << combos.at(1)->itemText(i);
        }
        return list;
    }
    /// Chooses an entry with the keyboard, as a person does.
    static void choose(QComboBox& combo, const QString& begin)
    {
        combo.setFocus();
        for (int i = 0; i < combo.count() && !combo.currentText().startsWith(begin); ++i) {
            QTest::keyClick(&combo, Qt::Key_Down);
        }
        for (int i = 0; i < combo.count() && !combo.currentText().startsWith(begin); ++i) {
            QTest::keyClick(&combo, Qt::Key_Up);
        }
        EXPECT_TRUE(combo.currentText().startsWith(begin)) << begin.toStdString();
    }
    void clickRadio(int id)
    {
        QTest::mouseClick(radios.at(id), Qt::LeftButton, {}, QPoint(8, radios.at(id)->height() / 2));
    }
    void type(MRL_H_LineEdit& line, const QString& text)
    {
        line.setFocus();
        line.selectAll();
        if (text.isEmpty()) {
            QTest::keyClick(&line, Qt::Key_Delete);
        } else {
            QTest::keyClicks(&line, text);
        }
    }
    void typeAction(const QString& text)
    {
        if (!radios.at(1)->isChecked()) {
            clickRadio(1);
        }
        type(userAction(), text);
    }
    std::string message() const { return info.isVisible() ? info.text().toStdString() : std::string(); }

    MRL_LC_AddNewActionDialog dialog;
    QList<MRL_QT4_ComboBox*> combos;
    QList<QRadioButton*> radios;
    MRL_QT_InfoText& info;
    MRL_QT_Ok& buttons;
    QPushButton& ok;
};

class NewActionDialog : public ::testing::Test
{
  protected:
    /// Only G is part of the project.
    NewActionDialog() { project.putAction(soundAction("G")); }
    ~NewActionDialog() override
    {
        if (m_model != nullptr) {
            m_model->release();
        }
    }

    LCM_DataClass& model()
    {
        if (m_model == nullptr) {
            m_model = new LCM_DataClass(project.db());
        }
        return *m_model;
    }
    void storeAllOfTheCode()
    {
        for (const char* name : {"G", "Q", "Q_1", "Q_2", "W_1", "W_2", "A"}) {
            project.putAction(soundAction(name));
        }
    }
    LCM_ActionEntry& entry(const QString& name)
    {
        for (LCM_ActionEntry* parent : model().actions) {
            if (parent->code == codeOf(name)) {
                return *parent;
            }
        }
        ADD_FAILURE() << name.toStdString();
        return *model().actions.front();
    }

    ActionsProject project;

  private:
    LCM_DataClass* m_model = nullptr; ///< counted
};

} // namespace

TEST_F(NewActionDialog, OffersTheFreeActionsInTheOrderOfTheCode)
{
    Shown shown(model());
    EXPECT_EQ(shown.offered(), QStringList({"Q    Variable load", "W    Wind from the left", "A    Impact"}));
    EXPECT_EQ(shown.actionCombo().currentIndex(), 0);
    EXPECT_TRUE(shown.radios.at(0)->isChecked());
    EXPECT_TRUE(shown.ok.isEnabled());
    EXPECT_EQ(shown.dialog.windowTitle(), QStringLiteral("New action"));
}

TEST_F(NewActionDialog, FocusStartsAtTheActionAndFollowsTheEye)
{
    Shown shown(model());
    EXPECT_EQ(QApplication::focusWidget(), &shown.actionCombo());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &shown.categoryCombo());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &shown.description());
}

TEST_F(NewActionDialog, ParentOfStateFreeBeginsWithStandard)
{
    Shown shown(model());
    EXPECT_EQ(shown.categories(), QStringList({"Standard", "1    Offices", "2    Storage"}));
    EXPECT_EQ(shown.categoryCombo().currentText(), QStringLiteral("Standard"));
    EXPECT_TRUE(shown.categoryCombo().isEnabled());
    EXPECT_EQ(shown.description().text(), QStringLiteral("Variable load"));
    EXPECT_EQ(shown.dialog.categoryIndex, -1);
}

TEST_F(NewActionDialog, PlaceholderOffersItsChildrenWithoutStandard)
{
    Shown shown(model());
    Shown::choose(shown.actionCombo(), "W");
    EXPECT_EQ(shown.categories(), QStringList({"1    Wind from the left", "2    Wind from the right"}));
    EXPECT_EQ(shown.dialog.categoryIndex, 0);
    EXPECT_EQ(shown.description().text(), QStringLiteral("Wind from the left"));
}

TEST_F(NewActionDialog, ActiveParentWithAFreeChildHasNoStandard)
{
    project.putAction(soundAction("Q"));
    Shown shown(model());
    EXPECT_EQ(shown.offered().first(), QStringLiteral("Q    ")); // the stored Q has no title
    EXPECT_EQ(shown.categories(), QStringList({"1    Offices", "2    Storage"}));
}

TEST_F(NewActionDialog, FreeParentWithAllChildrenActiveOffersStandardAlone)
{
    project.putAction(soundAction("Q_1"));
    project.putAction(soundAction("Q_2"));
    Shown shown(model());
    EXPECT_EQ(shown.categories(), QStringList({"Standard"}));
    EXPECT_FALSE(shown.categoryCombo().isEnabled());
    EXPECT_FALSE(shown.categoryCombo().toolTip().isEmpty());
}

TEST_F(NewActionDialog, ActionWithoutCategoriesSaysWhyTheFieldIsDisabled)
{
    Shown shown(model());
    EXPECT_TRUE(shown.categoryCombo().toolTip().isEmpty());
    Shown::choose(shown.actionCombo(), "A");
    EXPECT_FALSE(shown.categoryCombo().isEnabled());
    EXPECT_FALSE(shown.categoryCombo().toolTip().isEmpty());
}

TEST_F(NewActionDialog, PlaceholderWithAllChildrenActiveIsNotOffered)
{
    project.putAction(soundAction("W_1"));
    project.putAction(soundAction("W_2"));
    Shown shown(model());
    EXPECT_EQ(shown.offered(), QStringList({"Q    Variable load", "A    Impact"}));
}

TEST_F(NewActionDialog, UserDefinedActionIsNotOffered)
{
    project.putAction(soundAction("U1"));
    LCM_DataClass& tree = model();
    tree.actions.back()->state = LCM_STATE_FREE;
    ASSERT_TRUE(tree.actions.back()->userDefined);
    Shown shown(tree);
    EXPECT_EQ(shown.offered().size(), 3);
}

TEST_F(NewActionDialog, NameInTheTableHidesAnActionWithoutCategories)
{
    Shown shown(model(), {"A   ", "W_1 ", "Q   "});
    // A stands in the table. Q does too, but is still the way to its categories; W_1 is taken among W's.
    EXPECT_EQ(shown.offered(), QStringList({"Q    Variable load", "W    Wind from the left"}));
    Shown::choose(shown.actionCombo(), "W");
    EXPECT_EQ(shown.categories(), QStringList({"2    Wind from the right"}));
}

TEST_F(NewActionDialog, UsedNamesHideAnActionOnlyWithTheirBlanks)
{
    Shown shown(model(), {"A"});
    EXPECT_TRUE(shown.offered().contains("A    Impact"));
}

TEST_F(NewActionDialog, ChosenCategoryBringsItsOwnTitle)
{
    Shown shown(model());
    Shown::choose(shown.categoryCombo(), "2");
    EXPECT_EQ(shown.description().text(), QStringLiteral("Storage"));
    EXPECT_EQ(shown.dialog.description, QStringLiteral("Storage"));
    EXPECT_EQ(shown.dialog.categoryIndex, 1);
}

TEST_F(NewActionDialog, EnterAcceptsTheChosenAction)
{
    Shown shown(model());
    Shown::choose(shown.categoryCombo(), "1");
    shown.type(shown.description(), "My offices");
    QTest::keyClick(&shown.description(), Qt::Key_Return);
    EXPECT_EQ(shown.dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(shown.dialog.isVisible());
    EXPECT_EQ(model().actions[static_cast<std::size_t>(shown.dialog.actionIndex)]->code, codeOf("Q"));
    EXPECT_EQ(shown.dialog.categoryIndex, 0);
    EXPECT_EQ(shown.dialog.description, QStringLiteral("My offices"));
    EXPECT_EQ(shown.dialog.actionName, QString());
    EXPECT_EQ(shown.dialog.categoryName, QString());
}

TEST_F(NewActionDialog, EscapeRejectsAndChangesNothing)
{
    Shown shown(model());
    QTest::keyClick(&shown.description(), Qt::Key_Escape);
    EXPECT_EQ(shown.dialog.result(), QDialog::Rejected);
    EXPECT_EQ(entry("Q").state, LCM_STATE_FREE);
}

TEST_F(NewActionDialog, CancelButtonRejects)
{
    Shown shown(model());
    QTest::mouseClick(shown.buttons.cmdCancel(), Qt::LeftButton);
    EXPECT_FALSE(shown.dialog.isVisible());
    EXPECT_EQ(shown.dialog.result(), QDialog::Rejected);
}

TEST_F(NewActionDialog, LowerWayDisablesTheUpperHalfAndWaitsForAName)
{
    Shown shown(model());
    EXPECT_FALSE(shown.userAction().isEnabled());
    shown.clickRadio(1);
    EXPECT_TRUE(shown.userAction().isEnabled());
    EXPECT_FALSE(shown.actionCombo().isEnabled());
    EXPECT_FALSE(shown.ok.isEnabled());
    EXPECT_EQ(shown.dialog.actionIndex, -1);
    shown.clickRadio(0);
    EXPECT_TRUE(shown.ok.isEnabled());
    EXPECT_EQ(shown.dialog.actionIndex, 1);
    EXPECT_EQ(shown.dialog.description, QStringLiteral("Variable load"));
}

TEST_F(NewActionDialog, TypedNameIsTakenInUpperCase)
{
    Shown shown(model());
    shown.typeAction("q1");
    EXPECT_EQ(shown.dialog.actionName, QStringLiteral("Q1"));
    EXPECT_TRUE(shown.ok.isEnabled());
    shown.type(shown.userCategory(), "a");
    shown.type(shown.userDescription(), "Crane");
    QTest::keyClick(&shown.userDescription(), Qt::Key_Return);
    EXPECT_EQ(shown.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(shown.dialog.actionName, QStringLiteral("Q1"));
    EXPECT_EQ(shown.dialog.categoryName, QStringLiteral("A"));
    EXPECT_EQ(shown.dialog.description, QStringLiteral("Crane"));
    EXPECT_EQ(shown.dialog.actionIndex, -1);
    EXPECT_EQ(shown.dialog.categoryIndex, -1);
}

TEST_F(NewActionDialog, ThreeCharactersDisableAndEmptyTheCategory)
{
    Shown shown(model());
    shown.typeAction("AB");
    shown.type(shown.userCategory(), "X");
    EXPECT_EQ(shown.userAction().text(), QStringLiteral("AB"));
    EXPECT_TRUE(shown.userCategory().toolTip().isEmpty());
    shown.typeAction("ABC");
    EXPECT_FALSE(shown.userCategory().isEnabled());
    EXPECT_EQ(shown.userCategory().text(), QString());
    EXPECT_FALSE(shown.userCategory().toolTip().isEmpty());
    EXPECT_EQ(shown.dialog.categoryName, QString());
    shown.typeAction("AB");
    EXPECT_TRUE(shown.userCategory().isEnabled());
}

TEST_F(NewActionDialog, FieldsTakeNoMoreThanTheirCharacters)
{
    Shown shown(model());
    shown.typeAction("ABCDE");
    EXPECT_EQ(shown.userAction().text(), QStringLiteral("ABCD"));
    shown.typeAction("AB");
    shown.type(shown.userCategory(), "12");
    EXPECT_EQ(shown.userCategory().text(), QStringLiteral("1"));
    shown.type(shown.userDescription(), QString(40, 'x'));
    EXPECT_EQ(shown.userDescription().text(), QString(32, 'x'));
}

TEST_F(NewActionDialog, RefusedNameIsToldAndHoldsOkBack)
{
    Shown shown(model(), {"G   "});
    const std::pair<const char*, const char*> refusals[] = {
        {"y1", "Action beginning with 'Y' is not allowed!"},
        {"IMP", "Action 'IMP' is not allowed!"},
        {"imp", "Action 'IMP' is not allowed!"},
        {"1AB", "No digit at beginning!"},
        {"A_B", "Special characters are not allowed!"},
        {"A B", "Spaces are not allowed!"},
        {"g", "Name already used!"}};
    for (const auto& [name, refusal] : refusals) {
        shown.typeAction(QLatin1String(name));
        EXPECT_EQ(shown.message(), refusal) << name;
        EXPECT_FALSE(shown.ok.isEnabled()) << name;
    }
    shown.typeAction("G1");
    EXPECT_EQ(shown.message(), "");
    EXPECT_TRUE(shown.ok.isEnabled());
}

TEST_F(NewActionDialog, CategoryIsRefusedInItsOwnWords)
{
    Shown shown(model(), {"Q_1 "});
    shown.typeAction("Q");
    EXPECT_EQ(shown.message(), "");
    shown.type(shown.userCategory(), "1");
    EXPECT_EQ(shown.message(), "Name already used!");
    EXPECT_FALSE(shown.ok.isEnabled());
    shown.type(shown.userCategory(), "Y");
    EXPECT_EQ(shown.message(), "Action beginning with 'Y' is not allowed!");
    shown.type(shown.userCategory(), "3");
    EXPECT_EQ(shown.message(), "");
    EXPECT_TRUE(shown.ok.isEnabled());
}

TEST_F(NewActionDialog, ValidCategoryHidesTheRefusalOfTheAction)
{
    Shown shown(model());
    shown.typeAction("1");
    EXPECT_EQ(shown.message(), "No digit at beginning!");
    shown.type(shown.userCategory(), "1");
    EXPECT_EQ(shown.message(), "");
    EXPECT_TRUE(shown.ok.isEnabled());
}

TEST_F(NewActionDialog, MessageKeepsItsPlaceWhileHidden)
{
    Shown shown(model());
    shown.clickRadio(1);
    const QRect before = shown.buttons.geometry();
    shown.typeAction("Y");
    ASSERT_TRUE(shown.info.isVisible());
    QApplication::processEvents();
    EXPECT_EQ(shown.buttons.geometry(), before);
}

TEST_F(NewActionDialog, RadioButtonsLeaveTheMessageAndEnableOk)
{
    Shown shown(model());
    shown.typeAction("Y1");
    ASSERT_FALSE(shown.ok.isEnabled());
    shown.clickRadio(0);
    EXPECT_TRUE(shown.ok.isEnabled());
    shown.clickRadio(1);
    EXPECT_EQ(shown.message(), "Action beginning with 'Y' is not allowed!");
    EXPECT_TRUE(shown.ok.isEnabled());
    QTest::mouseClick(&shown.ok, Qt::LeftButton);
    EXPECT_EQ(shown.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(shown.dialog.actionName, QStringLiteral("Y1"));
}

TEST_F(NewActionDialog, EmptiedNameLeavesOkEnabled)
{
    Shown shown(model());
    shown.typeAction("U");
    shown.typeAction("");
    EXPECT_TRUE(shown.ok.isEnabled());
    QTest::mouseClick(&shown.ok, Qt::LeftButton);
    EXPECT_EQ(shown.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(shown.dialog.actionName, QString());
    EXPECT_EQ(shown.dialog.actionIndex, -1);
}

TEST_F(NewActionDialog, EmptiedNameLeavesOkEnabledBesideARowOfNothingButBlanks)
{
    Shown shown(model(), {"    "});
    shown.typeAction("U");
    shown.typeAction("");
    EXPECT_EQ(shown.message(), "");
    EXPECT_TRUE(shown.ok.isEnabled());
    shown.type(shown.userCategory(), "1");
    shown.type(shown.userCategory(), "");
    EXPECT_EQ(shown.message(), "");
    EXPECT_TRUE(shown.ok.isEnabled());
}

TEST_F(NewActionDialog, LowerWayKeepsOkWhereANameStands)
{
    Shown shown(model());
    shown.typeAction("U1");
    shown.clickRadio(0);
    shown.clickRadio(1);
    EXPECT_TRUE(shown.ok.isEnabled());
    EXPECT_EQ(shown.dialog.actionName, QStringLiteral("U1"));
}

TEST_F(NewActionDialog, WithEveryActionActiveOnlyTheLowerWayIsOpen)
{
    storeAllOfTheCode();
    Shown shown(model());
    EXPECT_TRUE(shown.offered().isEmpty());
    EXPECT_FALSE(shown.radios.at(0)->isEnabled());
    EXPECT_TRUE(shown.radios.at(1)->isChecked());
    EXPECT_FALSE(shown.ok.isEnabled());
    shown.type(shown.userAction(), "U1");
    EXPECT_TRUE(shown.ok.isEnabled());
}

TEST_F(NewActionDialog, RestrictedDialogHasNoLowerHalf)
{
    Shown shown(model(), {}, 1);
    EXPECT_EQ(shown.radios.size(), 1);
    EXPECT_EQ(shown.dialog.findChild<QWidget*>("line_user_action"), nullptr);
    EXPECT_EQ(shown.dialog.actionIndex, 1);
}

TEST_F(NewActionDialog, RestrictedDialogWithNothingToOfferKeepsOkAndNamesNothing)
{
    storeAllOfTheCode();
    Shown shown(model(), {}, 1);
    EXPECT_FALSE(shown.radios.at(0)->isEnabled());
    EXPECT_TRUE(shown.ok.isEnabled());
    QTest::mouseClick(&shown.ok, Qt::LeftButton);
    EXPECT_EQ(shown.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(shown.dialog.actionIndex, -1);
    EXPECT_EQ(shown.dialog.actionName, QString());
}

TEST_F(NewActionDialog, OtherBitsOfTheOptionMeanNothing)
{
    Shown shown(model(), {}, 2);
    EXPECT_EQ(shown.radios.size(), 2);
}

TEST_F(NewActionDialog, EachLabelStandsBesideItsField)
{
    Shown shown(model());
    int labels = 0;
    for (QLabel* label : shown.dialog.findChildren<QLabel*>()) {
        if (label->buddy() == nullptr) {
            continue;
        }
        ++labels;
        EXPECT_EQ(label->geometry().center().y(), label->buddy()->geometry().center().y())
            << label->text().toStdString();
    }
    EXPECT_EQ(labels, 6);
}

TEST_F(NewActionDialog, SlotsStandInTheirOrder)
{
    const QMetaObject& meta = MRL_LC_AddNewActionDialog::staticMetaObject;
    QList<QByteArray> slotNames;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        slotNames << meta.method(i).methodSignature();
    }
    EXPECT_EQ(slotNames,
              QList<QByteArray>(
                  {"slot_selectionChangedAction(QString)", "slot_selectionChangedCategory(QString)",
                   "slot_userActionTextChanged(QString)", "slot_userCategoryTextChanged(QString)",
                   "slot_descriptionChanged(QString)", "slot_radioClicked(int)", "slot_okClicked()"}));
}

TEST_F(NewActionDialog, AsksForAModestSize)
{
    Shown shown(model());
    EXPECT_EQ(shown.dialog.sizeHint(), QSize(300, 100));
}
