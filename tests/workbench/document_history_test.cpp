// The steps that changed the open document, and taking them back.
#include <QSignalSpy>

#include "lcdata/load_cases.h"
#include "tests/workbench/project_file.h"
#include "workbench/document.h"
#include "workbench/document_history.h"
#include "workbench/managers.h"

namespace mrl::test {

namespace {

using workbench::Document;
using workbench::DocumentHistory;
using workbench::Managers;

class HistoryOfDocument : public ::testing::Test
{
  protected:
    HistoryOfDocument() { EXPECT_EQ(document.open(project.path()), QString()); }

    DocumentHistory& history() { return document.history(); }
    int db() const { return document.database(); }
    void put(int number, const char* title) const
    {
        tagCDB_LC_CTRL record = following("G").title(title).record();
        mrl_lc_put(db(), number, record);
    }
    void step(const QString& name, int number, const char* title)
    {
        document.runStep(name, [=] { put(number, title); });
    }
    bool has(int number) const
    {
        tagCDB_LC_CTRL record{};
        return mrl_lc_get(db(), number, record);
    }
    QStringList names()
    {
        QStringList names;
        for (const DocumentHistory::Step& step : history().steps()) {
            names << step.name;
        }
        return names;
    }

    ProjectFile project;
    Managers managers;
    Document document{managers, nullptr};
};

TEST_F(HistoryOfDocument, EachChangeIsANamedStepWithItsTime)
{
    const QDateTime start = QDateTime::currentDateTime();
    step("first", 1, "One");
    step("second", 2, "Two");
    document.runStep("nothing", [] {});
    document.runStep("the same again", [this] { put(2, "Two"); });
    EXPECT_EQ(names(), QStringList({"first", "second"}));
    EXPECT_EQ(history().doneCount(), 2);
    EXPECT_GE(history().steps()[0].when, start);
    EXPECT_EQ(history().steps()[0].keys, 1u);
}

TEST_F(HistoryOfDocument, StepsAreUndoneAndDoneAgain)
{
    step("first", 1, "One");
    step("second", 2, "Two");
    EXPECT_EQ(history().undo(), QString());
    EXPECT_FALSE(has(2));
    EXPECT_EQ(history().undo(), QString());
    EXPECT_FALSE(has(1));
    EXPECT_FALSE(document.isModified());
    EXPECT_FALSE(history().canUndo());
    EXPECT_EQ(history().goTo(2), QString());
    EXPECT_TRUE(has(1) && has(2));
    EXPECT_FALSE(history().canRedo());
}

TEST_F(HistoryOfDocument, AStepAfterAnUndoDropsWhatWasUndone)
{
    step("first", 1, "One");
    step("second", 2, "Two");
    EXPECT_EQ(history().undo(), QString());
    step("third", 3, "Three");
    EXPECT_EQ(names(), QStringList({"first", "third"}));
    EXPECT_EQ(history().goTo(0), QString());
    EXPECT_FALSE(has(1) || has(3));
}

TEST_F(HistoryOfDocument, SavingDoesNotEndIt)
{
    step("first", 1, "One");
    ASSERT_EQ(document.save(false).outcome, Document::Outcome::Done);
    EXPECT_EQ(history().undo(), QString());
    EXPECT_FALSE(has(1));
    EXPECT_TRUE(document.isModified());
    ASSERT_EQ(document.saveAs(project.path("other.cdb")).outcome, Document::Outcome::Done);
    EXPECT_EQ(history().redo(), QString());
    EXPECT_TRUE(has(1));
}

TEST_F(HistoryOfDocument, AnotherProjectBeginsWithoutSteps)
{
    step("first", 1, "One");
    EXPECT_EQ(document.open(project.path()), QString());
    EXPECT_EQ(names(), QStringList());
    step("again", 1, "One");
    document.close();
    EXPECT_FALSE(history().canUndo());
}

TEST_F(HistoryOfDocument, ChangesTellWhatStoodThereAndWhatTheStepLeft)
{
    step("first", 1, "One");
    document.runStep("second", [this] {
        put(1, "Uno");
        put(2, "Due");
    });
    const auto titleOf = [](const std::vector<std::string>& records) {
        tagCDB_LC_CTRL record{};
        std::memcpy(&record, records.at(0).data(), sizeof record);
        return lcm_title_text(record.title);
    };
    const auto first = history().changesOf(0);
    ASSERT_EQ(first.size(), 1u);
    EXPECT_TRUE(first[0].before.empty());
    EXPECT_EQ(titleOf(first[0].after), "One") << "and not what the next step made of it";
    const auto second = history().changesOf(1);
    ASSERT_EQ(second.size(), 2u);
    EXPECT_EQ(titleOf(second[0].before), "One");
    EXPECT_EQ(titleOf(second[0].after), "Uno");
    EXPECT_TRUE(second[1].before.empty());
    EXPECT_TRUE(history().changesOf(2).empty());
}

TEST_F(HistoryOfDocument, FactsAreStepsToo)
{
    document.runStep("another code", [this] { (void)cdb::setFact(db(), "designcode", "din1054"); });
    ASSERT_EQ(history().changesOf(0).size(), 1u);
    EXPECT_EQ(history().changesOf(0)[0].fact, "designcode");
    EXPECT_EQ(history().changesOf(0)[0].after, std::vector<std::string>{"din1054"});
    EXPECT_EQ(history().undo(), QString());
    EXPECT_EQ(cdb::fact(db(), "designcode"), "en1990");
}

TEST_F(HistoryOfDocument, WhatNobodyRecordedEndsItAndIsTold)
{
    step("first", 1, "One");
    put(1, "Behind its back");
    QSignalSpy dropped(&history(), &DocumentHistory::dropped);
    EXPECT_EQ(history().undo(), QString());
    EXPECT_EQ(dropped.count(), 1);
    EXPECT_FALSE(history().canUndo());
    EXPECT_TRUE(has(1)) << "nothing is put back over it";
}

} // namespace

} // namespace mrl::test
