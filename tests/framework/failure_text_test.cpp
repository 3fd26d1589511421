// What a person reads of a failure of the data layer.
#include <gtest/gtest.h>

#include "hostlib/ui/framework/failure_text.h"

namespace {

using mrl::cdb::Code;
using mrl::ui::failureText;

TEST(FailureText, DamageIsASentenceWithTheFileAndTheReasonBelow)
{
    EXPECT_EQ(
        failureText({Code::Checksum, "/p/tower.cdb: record 12/2 does not fit its checksum"}),
        QStringLiteral("The project is damaged.\n\n/p/tower.cdb: record 12/2 does not fit its checksum"));
}

TEST(FailureText, AReasonThatOnlyRepeatsTheSentenceIsLeftOut)
{
    EXPECT_EQ(failureText({Code::NotAProject, "/p/letter.cdb: this is no project file"}),
              QStringLiteral("The file is no project.\n\n/p/letter.cdb"));
    EXPECT_EQ(failureText({Code::NoFile, "/p/a: b/tower.cdb: No such file or directory"}),
              QStringLiteral("There is no such file or folder.\n\n/p/a: b/tower.cdb"));
}

TEST(FailureText, EveryFailureOfAFileHasASentence)
{
    for (int code = static_cast<int>(Code::NoFile); code <= static_cast<int>(Code::Shared); ++code) {
        const QString text = failureText({static_cast<Code>(code), "/p/tower.cdb: reason"});
        EXPECT_TRUE(text.contains(QLatin1String(".\n\n/p/tower.cdb"))) << code << text.toStdString();
    }
}

TEST(FailureText, WhatWentWellIsNotToldOf) { EXPECT_EQ(failureText({}), QString()); }

TEST(FailureText, AFailureOfTheCallIsToldAsItIs)
{
    EXPECT_EQ(failureText({Code::BadArgument, "a fact needs a name"}), QStringLiteral("a fact needs a name"));
}

} // namespace
