/// Every save that was reported is there after a power loss at any moment, in every state of the disk. A program of
/// its own, since its layer stands in front of all databases of the process:
///
///     test_power_loss [STATES [SEED]]
///
/// looks at so many states for each kind of saving. It tells the number of states and ends with 1 at the first
/// one that is silently wrong.

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "cdb/fixture.h"
#include "cdb/power_loss.h"
#include "cdb/raw_files.h"
#include "cdb/sql_of_format1.h"

namespace {

/// The saves of one run and after how many notes each was reported.
struct Saves
{
    std::vector<std::size_t> reported;
    void report() { reported.push_back(power_loss::now()); }
};

/// How a state reads: the number of the save that it holds, from 0 for the beginning.
constexpr int REFUSED = -1;
constexpr int MIXED = -2;

constexpr int RECORDS = 60;

/// Save number n writes n into every record, in a text of some length.
void writeAll(int db, int n)
{
    for (int i = 1; i <= RECORDS; ++i) {
        putText(db, 12, i,
                std::to_string(n) + " " + std::string(static_cast<std::size_t>(100 + 40 * (n % 3)), 'x'));
    }
}

int saveIn(int db)
{
    int save = -1;
    for (int i = 1; i <= RECORDS; ++i) {
        const std::string text = getText(db, 12, i);
        const int here = text.front() == '<' ? 0 : std::atoi(text.c_str());
        if (save >= 0 && here != save) {
            return MIXED;
        }
        save = here;
    }
    return save;
}

int stateOf(const std::string& file, int (*read)(int db))
{
    const auto opened = mrl::cdb::open(file);
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.result.text.c_str());
        return REFUSED;
    }
    const int save = mrl::cdb::integrityCheck(opened.db) ? read(opened.db) : REFUSED;
    mrl::cdb::close(opened.db);
    return save;
}

/// The number in one record.
int putIn(int db)
{
    const std::string text = getText(db, 12, 1);
    return text.front() == '<' ? 0 : std::atoi(text.c_str());
}

/// Runs savings, cuts the power at random moments, and looks at what is there afterwards.
class Trial
{
  public:
    using Before = void (*)(const std::string& file);
    using Work = void (*)(const std::string& file, Saves& saves);

    /// @param before makes the file; null: the work does
    /// @param read tells which save a database holds
    Trial(const char* what, Before before, Work work, int (*read)(int db) = saveIn)
        : m_what(what), m_before(before), m_work(work), m_read(read)
    {
    }

    bool run(int states, unsigned seed) const
    {
        const Folder folder;
        const Folder left;
        const std::string file = folder / "a.cdb";
        if (m_before != nullptr) {
            m_before(file);
        }
        Saves saves;
        power_loss::start(folder.name());
        m_work(file, saves);
        const std::size_t notes = power_loss::stop();
        std::mt19937 random(seed);
        for (int state = 0; state < states; ++state) {
            const std::size_t cut = random() % (notes + 1);
            power_loss::leave(left.name(), cut, random);
            if (!judge(left / "a.cdb", cut, saves)) {
                std::fprintf(stderr, "%s: state %d of seed %u, after %zu of %zu notes\n", m_what, state, seed,
                             cut, notes);
                return false;
            }
        }
        std::printf("%s: %d states from %zu notes, every reported save of %zu is there\n", m_what, states,
                    notes, saves.reported.size());
        return saves.reported.size() > 1 && notes > 10;
    }

  private:
    bool judge(const std::string& file, std::size_t cut, const Saves& saves) const
    {
        int told = 0;
        for (const std::size_t reported : saves.reported) {
            told += reported <= cut ? 1 : 0;
        }
        const bool absent = m_before == nullptr && !std::filesystem::exists(file);
        const int found = absent ? 0 : stateOf(file, m_read);
        if (found == told || found == told + 1) {
            return true;
        }
        std::fprintf(stderr, "%d saves were reported, found %d\n", told, found);
        return false;
    }

    const char* m_what;
    Before m_before;
    Work m_work;
    int (*m_read)(int db);
};

void makeEmpty(const std::string& file) { mrl::cdb::close(mrl::cdb::create(file).db); }

void makeFormat1(const std::string& file) { tamper(file, sqlOfFormat1(0)); }

void transactions(const std::string& file, Saves& saves)
{
    const int db = mrl::cdb::open(file).db;
    for (int n = 1; n <= 6; ++n) {
        mrl::cdb::Transaction transaction(db);
        writeAll(db, n);
        if (transaction.commit()) {
            saves.report();
        }
    }
    mrl::cdb::close(db);
}

void conversion(const std::string& file, Saves& saves) { transactions(file, saves); }

void eachInItsOwnSession(const std::string& file, Saves& saves)
{
    for (int n = 1; n <= 4; ++n) {
        const int db = mrl::cdb::open(file).db;
        mrl::cdb::Transaction transaction(db);
        writeAll(db, n);
        const bool done = static_cast<bool>(transaction.commit());
        mrl::cdb::close(db);
        if (done) {
            saves.report();
        }
    }
}

void puts(const std::string& file, Saves& saves)
{
    const int db = mrl::cdb::open(file).db;
    for (int n = 1; n <= 8; ++n) {
        if (putText(db, 12, 1, std::to_string(n) + std::string(static_cast<std::size_t>(n) * 700, 'x')) ==
            CD_OK) {
            saves.report();
        }
    }
    mrl::cdb::close(db);
}

/// As `new` and "Save as" to a free name do it; then saves in that file.
void newFile(const std::string& file, Saves& saves)
{
    const auto made = mrl::cdb::create(file, [](int db) {
        mrl::cdb::Transaction transaction(db);
        writeAll(db, 1);
        return transaction.commit();
    });
    if (made) {
        saves.report();
    }
    mrl::cdb::Transaction transaction(made.db);
    writeAll(made.db, 2);
    if (transaction.commit()) {
        saves.report();
    }
    mrl::cdb::close(made.db);
}

/// As "Save as" onto an existing project does it.
void replacements(const std::string& file, Saves& saves)
{
    const int db = mrl::cdb::open(file).db;
    for (int n = 1; n <= 6; ++n) {
        const int from = mrl::cdb::openMemory().db;
        writeAll(from, n);
        if (mrl::cdb::replaceRange(from, db, {12})) {
            saves.report();
        }
        mrl::cdb::close(from);
    }
    mrl::cdb::close(db);
}

} // namespace

int main(int count, char** arguments)
{
    const int states = count > 1 ? std::atoi(arguments[1]) : 150;
    const unsigned seed = count > 2 ? static_cast<unsigned>(std::atoi(arguments[2])) : 1;
    power_loss::install();
    const std::vector<Trial> trials{
        {"puts", makeEmpty, puts, putIn},          {"new files", nullptr, newFile},
        {"transactions", makeEmpty, transactions}, {"sessions", makeEmpty, eachInItsOwnSession},
        {"replacements", makeEmpty, replacements}, {"conversion", makeFormat1, conversion}};
    for (const Trial& trial : trials) {
        if (!trial.run(states, seed)) {
            return 1;
        }
    }
    return 0;
}
