#include <map>
#include <random>

#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;
using testing::HasSubstr;

namespace {

constexpr int COUNT = 200;

/// A project that a program left in the middle of a commit, with its journal beside it.
class Journals : public ::testing::Test
{
  protected:
    Journals()
    {
        setenv("TMPDIR", folder.name().c_str(), 1); // in memory, for the copies
        fill(file, 'o');
        crashInTheMiddle(file, crashed,
                         "UPDATE record SET bytes=zeroblob(100);UPDATE summary SET version=version+1");
        half = contentOf(crashed);
        whole = contentOf(journal);
    }
    ~Journals() override { unsetenv("TMPDIR"); }
    static void fill(const std::string& name, char letter)
    {
        const int db = std::filesystem::exists(name) ? mrl::cdb::open(name).db : mrl::cdb::create(name).db;
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= COUNT; ++i) {
            putText(db, 12, i, std::string(100, letter));
        }
        EXPECT_TRUE(transaction.commit());
        mrl::cdb::close(db);
    }
    /// What opening says, for writing and for reading; both leave file and journal as they are.
    std::string refusal()
    {
        const std::string fileBefore = contentOf(crashed);
        const std::string journalBefore = contentOf(journal);
        const auto writing = mrl::cdb::open(crashed);
        const auto reading = mrl::cdb::openReadOnly(crashed);
        mrl::cdb::close(writing.db);
        mrl::cdb::close(reading.db);
        EXPECT_EQ(writing.result.code, Code::Corrupt);
        EXPECT_EQ(writing.result.text, reading.result.text);
        EXPECT_TRUE(contentOf(crashed) == fileBefore);
        EXPECT_TRUE(contentOf(journal) == journalBefore);
        return writing.result.text;
    }
    /// The letter that all records hold; '-' when the file is refused, '?' when they hold several.
    char letter() const
    {
        const auto opened = mrl::cdb::openReadOnly(crashed);
        if (!opened) {
            return '-';
        }
        char found = 0;
        for (int i = 1; i <= COUNT; ++i) {
            const std::string text = getText(opened.db, 12, i);
            const char here = text == std::string(100, text.front()) ? text.front() : '?';
            found = found == 0 || found == here ? here : '?';
        }
        mrl::cdb::close(opened.db);
        return found;
    }

    Folder folder;
    std::string file = folder / "a.cdb";
    std::string crashed = folder / "b.cdb";
    std::string journal = crashed + "-journal";
    std::string half;
    std::string whole;
};

TEST_F(Journals, WholeOneIsTakenBack)
{
    EXPECT_EQ(letter(), 'o');
    EXPECT_FALSE(std::filesystem::exists(journal));
    EXPECT_TRUE(contentOf(crashed) == contentOf(file));
}

TEST_F(Journals, DamagedOneIsToldAndNothingIsChanged)
{
    for (const std::size_t at : {std::size_t{1}, std::size_t{11}, std::size_t{22}, whole.find("ooooo")}) {
        std::string bad = whole;
        bad[at] = static_cast<char>(bad[at] ^ 0x10);
        write(journal, bad);
        const std::string text = refusal();
        EXPECT_THAT(text, HasSubstr(journal + ", which a crashed program left, is damaged")) << at;
        EXPECT_THAT(text, HasSubstr("Nothing was changed. The file by itself is not whole")) << at;
    }
}

TEST_F(Journals, CutOneIsToldAndNothingIsChanged)
{
    for (const std::size_t size :
         {std::size_t{20}, std::size_t{512}, whole.size() / 2, whole.size() * 3 / 4}) {
        write(journal, whole.substr(0, size));
        EXPECT_THAT(refusal(), HasSubstr("is damaged (")) << size;
    }
}

TEST_F(Journals, MissingOneIsTold)
{
    std::filesystem::remove(journal);
    const auto opened = mrl::cdb::open(crashed);
    EXPECT_FALSE(opened);
    EXPECT_THAT(opened.result.text, HasSubstr(journal + " is missing; put it back, or go on with a backup"));
    EXPECT_TRUE(contentOf(crashed) == half);
}

TEST_F(Journals, DamagedOneOfTheFileBehindALinkIsTold)
{
    const Folder links;
    std::filesystem::create_symlink(crashed, links / "link.cdb");
    write(journal, whole.substr(0, whole.size() / 2));
    for (const auto& opened :
         {mrl::cdb::open(links / "link.cdb"), mrl::cdb::openReadOnly(links / "link.cdb")}) {
        EXPECT_FALSE(opened);
        EXPECT_THAT(opened.result.text, HasSubstr(journal + ", which a crashed program left, is damaged"));
    }
    EXPECT_TRUE(contentOf(crashed) == half);
}

/// A journal whose first byte is zero counts as never completed.
TEST_F(Journals, OneThatLostItsFirstByteIsTold)
{
    std::string bad = whole;
    bad[0] = 0;
    write(journal, bad);
    EXPECT_THAT(refusal(), HasSubstr("is damaged (its header can't be read)"));
}

/// SQLite alone would play it back, and the newer state that somebody put there would be gone without a word.
TEST_F(Journals, OneOfAnOlderStateIsToldAndTheNewerFileStays)
{
    for (const char letter : {'p', 'q', 'r'}) {
        fill(file, letter);
    }
    std::filesystem::copy_file(file, crashed, std::filesystem::copy_options::overwrite_existing);
    const std::string text = refusal();
    EXPECT_THAT(text, HasSubstr("is of another state"));
    EXPECT_THAT(text,
                HasSubstr("The file by itself is whole; to go on with it as it is, remove the journal"));
    std::filesystem::remove(journal);
    EXPECT_EQ(letter(), 'r');
}

TEST_F(Journals, OneOfAnotherProjectIsTold)
{
    const std::string other = folder / "other.cdb";
    fill(other, 'x');
    std::filesystem::copy_file(other, crashed, std::filesystem::copy_options::overwrite_existing);
    refusal();
    std::filesystem::remove(journal);
    EXPECT_EQ(letter(), 'x');
}

TEST_F(Journals, OneThatIsDamagedWhileTheProjectIsOpenIsToldByTheNextRead)
{
    const int db = mrl::cdb::open(file).db;
    EXPECT_EQ(getText(db, 12, 1), std::string(100, 'o'));
    std::string bad = whole;
    char& letter = bad[bad.find("ooooo")];
    letter = static_cast<char>(letter ^ 1);
    write(file, half);
    write(file + "-journal", bad);
    EXPECT_EQ(getText(db, 12, 2), "<3>");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Corrupt);
    EXPECT_THAT(mrl::cdb::stickyError(db).text, HasSubstr("is damaged"));
    EXPECT_TRUE(contentOf(file) == half);
    EXPECT_TRUE(contentOf(file + "-journal") == bad);
    mrl::cdb::close(db);
}

/// In every state that a crash may leave the file in: from nothing written to all of it.
TEST_F(Journals, FlippedByteNeverShowsAnotherState)
{
    fill(file, 'n');
    const std::string after = contentOf(file); // one version further than the journal's state
    std::mt19937 random(3);
    std::map<char, int> seen;
    for (int round = 0; round < 160; ++round) {
        std::string bad = whole;
        const std::size_t at = round < 60 ? static_cast<std::size_t>(round) : random() % bad.size();
        bad[at] = static_cast<char>(bad[at] ^ (1 + random() % 255));
        write(crashed, round % 2 == 0 ? after : half);
        write(journal, bad);
        const std::string before = contentOf(crashed);
        const char found = letter();
        ++seen[found];
        ASSERT_TRUE(found == 'o' || found == '-') << "byte " << at << " gave " << found;
        if (found == '-') {
            ASSERT_TRUE(contentOf(crashed) == before) << "byte " << at;
            ASSERT_TRUE(contentOf(journal) == bad) << "byte " << at;
        }
    }
    EXPECT_GT(seen['-'], 60);
}

} // namespace
