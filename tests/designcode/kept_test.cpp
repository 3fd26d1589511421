// The design code that a project keeps.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "designcode/reader_sample.h"
#include "host/mrl_dlib.h"
#include "host/mrl_lib.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/kept.h"
#include "tests/support/own_folder.h"

using mrl::designcode::KeptState;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class KeptCode : public testing::Test
{
  protected:
    KeptCode()
    {
        write("base", mrl::test::READER_SAMPLE);
        write("own", "[DESIGN CODE]\nbase = base\nlabel = Own\n[ACTION Q]\nPsi0 = 0.6\n");
        EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", folder + "own.ini"));
        EXPECT_TRUE(mrl::designcode::keep(
            db, std::get<mrl::designcode::DesignCode>(mrl::designcode::read(folder + "own.ini"))));
    }
    ~KeptCode() override
    {
        mrl::cdb::close(db);
        for (const char* name : {"base", "own"}) {
            std::filesystem::remove(folder + name + ".ini");
        }
    }

    void write(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder + name + ".ini") << text;
    }
    /// Psi0 of the action Q, as a caller of the library gets it.
    float psi0() const
    {
        EXPECT_EQ(mrl_dlib_ini_switch(db), 0);
        tagCDB_LC_ACT record{};
        EXPECT_EQ(mrl_dlib_lcact_info(7, &record), 0);
        return record.psi0;
    }
    /// Entry of the section ACTIONS, as a reader by file name gets it.
    std::string label(const char* key) const
    {
        char file[1024] = "";
        EXPECT_TRUE(mrl_lib_designcode_file(db, file, sizeof file));
        char text[64] = "";
        mrl_lib_profile_read(file, "ACTIONS", key, 1, nullptr, text, sizeof text, 0);
        return text;
    }

    const std::string folder = mrl::test::ownFolder();
    const int db = mrl::cdb::openMemory().db;
};

} // namespace

TEST_F(KeptCode, SameFileIsNothingToTell)
{
    EXPECT_EQ(mrl::designcode::keptReport(db).state, KeptState::Same);
    EXPECT_EQ(mrl::designcode::keptReport(db).text, "");
    EXPECT_EQ(psi0(), 0.6f);
}

TEST_F(KeptCode, RelativeNameCountsFromTheFolderOfTheProject)
{
    const std::string project = folder + "p.cdb";
    const int other = mrl::cdb::create(project).db;
    EXPECT_TRUE(mrl::cdb::setFact(other, "designcode", "./own.ini"));
    EXPECT_TRUE(mrl::designcode::keep(other, *mrl::designcode::ofDatabase(other).code));
    EXPECT_EQ(mrl::designcode::keptReport(other).state, KeptState::Same);
    mrl::cdb::close(other);
    std::filesystem::remove(project);
}

TEST_F(KeptCode, HoldsWhereTheFileOrItsBaseSaysSomethingElse)
{
    write("base", mrl::test::sampleWith("Psi1 = 0.5", "Psi1 = 0.4"));
    write("own", "[DESIGN CODE]\nbase = base\nlabel = Own\n[ACTION Q]\nPsi0 = 0.9\n");
    EXPECT_EQ(psi0(), 0.6f);
    const auto report = mrl::designcode::keptReport(db);
    EXPECT_EQ(report.state, KeptState::Differs);
    EXPECT_THAT(report.text, HasSubstr("action Q Psi0: 0.9, was 0.6"));
    EXPECT_EQ(report.differences.size(), 2u);
}

TEST_F(KeptCode, OpensWhereThereIsNoFile)
{
    std::filesystem::remove(folder + "own.ini");
    std::filesystem::remove(folder + "base.ini");
    EXPECT_EQ(psi0(), 0.6f);
    EXPECT_EQ(mrl::designcode::keptReport(db).state, KeptState::FileAbsent);
    EXPECT_EQ(label("TXT_GAMU"), "γG,sup") << "from a flat file in the cache";
}

TEST_F(KeptCode, ReadersByFileNameGetWhatABaseStates)
{
    EXPECT_EQ(label("TXT_GAMU"), "γG,sup") << "the file itself has no section ACTIONS";
}

TEST_F(KeptCode, NameOfAnotherCodeWins)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "en1990"));
    EXPECT_EQ(psi0(), 1.0f);
    EXPECT_EQ(mrl::designcode::keptReport(db).state, KeptState::OtherName);
}

TEST_F(KeptCode, WhatDoesNotFitItsFingerprintDoesNotHold)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode-kept-fingerprint", "0"));
    write("own", "[DESIGN CODE]\nbase = base\nlabel = Own\n[ACTION Q]\nPsi0 = 0.9\n");
    EXPECT_EQ(psi0(), 0.9f);
    EXPECT_EQ(mrl::designcode::keptReport(db).state, KeptState::Broken);
}

TEST_F(KeptCode, NameWithAFolderInTheCopyIsRefused)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode-kept-files",
                                  R"([{"name": "../own", "text": "[DESIGN CODE]\nlabel = X\n"}])"));
    EXPECT_FALSE(mrl::designcode::keptCode(db).has_value());
}

TEST_F(KeptCode, ProjectsWithoutACopyTellNothing)
{
    const int old = mrl::cdb::openMemory().db;
    EXPECT_TRUE(mrl::cdb::setFact(old, "designcode", "en1990"));
    EXPECT_EQ(mrl::designcode::keptReport(old).state, KeptState::None);
    EXPECT_EQ(mrl::designcode::keptReport(old).text, "");
    mrl::cdb::close(old);
}
