/// Files that were changed behind the library's back: bytes, sectors, pages that are older or belong elsewhere, cut
/// files, and the same with the journal of a crashed program. Each is refused and left alone, or reads as a state
/// that was reported as saved. A program of its own for long runs:
///
///     test_changed_files [COUNT [SEED]]
///
/// It tells how often each kind was refused, and ends with 1 at the first file that is silently wrong.

#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>

#include "cdb/fixture.h"
#include "cdb/raw_files.h"

namespace {

using Content = std::map<std::pair<int, int>, std::vector<std::string>>;
using Random = std::mt19937;

constexpr std::size_t PAGE = 4096;
constexpr std::size_t SECTOR = 512;
constexpr int COUNT = 220;

/// A file and its journal, empty for none.
struct Pair
{
    std::string file;
    std::string journal;
};

/// The states of one project: saved ones in their order, each a save later, and the same with a crash on the way to
/// the next.
struct States
{
    std::vector<std::string> saved;
    std::vector<Content> contents;
    std::vector<Pair> crashed; ///< crashed[i] goes back to saved[i]
};

bool readAll(int db, Content& out)
{
    int kwh = INT_MIN;
    int kwl = INT_MIN;
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1) == 0) {
        out[{kwh, kwl}] = allRecords(db, kwh, kwl);
    }
    out[{INT_MAX, INT_MAX}] = {mrl::cdb::fact(db, "designcode")};
    return static_cast<bool>(mrl::cdb::stickyError(db));
}

/// Equal edits of equally long records, as a program that renumbers or retitles makes them.
void save(int db, int round)
{
    mrl::cdb::Transaction transaction(db);
    for (int i = 1; i <= COUNT; ++i) {
        putText(db, 12, i, std::to_string(round) + std::string(187, static_cast<char>('a' + i % 20)));
    }
    putText(db, 14, 0x20202051, "action " + std::to_string(round));
    static_cast<void>(mrl::cdb::setFact(db, "designcode", "code" + std::to_string(round) + ".ini"));
    if (!transaction.commit()) {
        std::abort();
    }
}

States makeStates(const Folder& folder)
{
    States states;
    const std::string file = folder / "made.cdb";
    const std::string crash = folder / "crash.cdb";
    int db = mrl::cdb::create(file).db;
    for (int round = 1; round <= 4; ++round) {
        save(db, round);
        mrl::cdb::close(db);
        states.saved.push_back(contentOf(file));
        const char* work =
            round % 2 == 0 ? "UPDATE record SET bytes=zeroblob(100)" : "DELETE FROM record WHERE kwl>100";
        crashInTheMiddle(file, crash, std::string("UPDATE summary SET version=version+1;") + work);
        states.crashed.push_back({contentOf(crash), contentOf(crash + "-journal")});
        db = mrl::cdb::openReadOnly(file).db;
        states.contents.emplace_back();
        readAll(db, states.contents.back());
        mrl::cdb::close(db);
        db = mrl::cdb::open(file).db;
    }
    mrl::cdb::close(db);
    return states;
}

std::size_t any(Random& random, std::size_t below) { return random() % below; }

void flip(std::string& bytes, Random& random)
{
    for (std::size_t i = 0; i <= any(random, 3); ++i) {
        char& byte = bytes[any(random, bytes.size())];
        byte = static_cast<char>(byte ^ (1 + random() % 255));
    }
}

void spoilSector(std::string& bytes, Random& random)
{
    const std::size_t at = any(random, bytes.size()) / SECTOR * SECTOR;
    const std::size_t size = std::min(SECTOR, bytes.size() - at);
    std::string sector(size, '\0');
    if (random() % 2 == 0) {
        for (char& byte : sector) {
            byte = static_cast<char>(random());
        }
    }
    bytes.replace(at, size, sector);
}

/// Takes pieces from another state of the same project.
void takeFrom(std::string& bytes, const std::string& other, std::size_t piece, Random& random)
{
    const std::size_t shared = std::min(bytes.size(), other.size()) / piece;
    for (std::size_t i = 0; shared > 0 && i <= any(random, 6); ++i) {
        const std::size_t at = any(random, shared) * piece;
        bytes.replace(at, piece, other, at, piece);
    }
}

void swapPieces(std::string& bytes, std::size_t piece, Random& random)
{
    const std::size_t count = bytes.size() / piece;
    if (count < 2) {
        return;
    }
    const std::size_t a = any(random, count) * piece;
    const std::size_t b = any(random, count) * piece;
    const std::string first = bytes.substr(a, piece);
    bytes.replace(a, piece, bytes.substr(b, piece));
    if (random() % 2 == 0) {
        bytes.replace(b, piece, first);
    }
}

void cut(std::string& bytes, Random& random) { bytes.resize(any(random, bytes.size() + 1)); }

/// One way to change a file. Which states may be read afterwards, besides a refusal?
struct Change
{
    const char* name;
    /// @param round the state that was saved last. @return the states that may be read
    std::vector<std::size_t> (*make)(Pair& pair, const States& states, Random& random);
};

std::vector<std::size_t> inFile(Pair& pair, const States& states, Random& random,
                                void (*spoil)(std::string&, Random&))
{
    const std::size_t round = any(random, states.saved.size());
    pair.file = states.saved[round];
    spoil(pair.file, random);
    return {round};
}

/// A change that took every page from another state has made that one.
std::vector<std::size_t> orTheOther(const Pair& pair, const States& states, std::size_t round)
{
    std::vector<std::size_t> allowed{round};
    for (std::size_t i = 0; i < states.saved.size(); ++i) {
        if (pair.file == states.saved[i]) {
            allowed.push_back(i);
        }
    }
    return allowed;
}

std::vector<std::size_t> mix(Pair& pair, const States& states, Random& random, std::size_t piece)
{
    const std::size_t round = any(random, states.saved.size());
    pair.file = states.saved[round];
    takeFrom(pair.file, states.saved[any(random, states.saved.size())], piece, random);
    return orTheOther(pair, states, round);
}

std::vector<std::size_t> inJournal(Pair& pair, const States& states, Random& random,
                                   void (*spoil)(std::string&, Random&))
{
    const std::size_t round = any(random, states.crashed.size());
    pair = states.crashed[round];
    spoil(pair.journal, random);
    return {round};
}

const std::vector<Change> CHANGES{
    {"bytes", [](Pair& p, const States& s, Random& r) { return inFile(p, s, r, flip); }},
    {"sectors", [](Pair& p, const States& s, Random& r) { return inFile(p, s, r, spoilSector); }},
    {"cut files", [](Pair& p, const States& s, Random& r) { return inFile(p, s, r, cut); }},
    {"stale sectors", [](Pair& p, const States& s, Random& r) { return mix(p, s, r, SECTOR); }},
    {"stale pages", [](Pair& p, const States& s, Random& r) { return mix(p, s, r, PAGE); }},
    {"swapped pages",
     [](Pair& p, const States& s, Random& r) {
         return inFile(p, s, r, [](std::string& bytes, Random& random) { swapPieces(bytes, PAGE, random); });
     }},
    {"bytes of a journal", [](Pair& p, const States& s, Random& r) { return inJournal(p, s, r, flip); }},
    {"sectors of a journal",
     [](Pair& p, const States& s, Random& r) { return inJournal(p, s, r, spoilSector); }},
    {"cut journals", [](Pair& p, const States& s, Random& r) { return inJournal(p, s, r, cut); }},
    {"swapped records of a journal",
     [](Pair& p, const States& s, Random& r) {
         return inJournal(p, s, r,
                          [](std::string& bytes, Random& random) { swapPieces(bytes, PAGE + 8, random); });
     }},
    {"damaged file with a whole journal",
     [](Pair& p, const States& s, Random& r) {
         const std::size_t round = any(r, s.crashed.size());
         p = s.crashed[round];
         flip(p.file, r);
         return std::vector<std::size_t>{round};
     }},
    // The file that somebody put there is the one that counts.
    {"journals of another state",
     [](Pair& p, const States& s, Random& r) {
         const std::size_t file = any(r, s.saved.size());
         p.file = s.saved[file];
         p.journal = s.crashed[any(r, s.crashed.size())].journal;
         // With the journal of the save before it looks as if that one were still under way.
         return file > 0 ? std::vector<std::size_t>{file, file - 1} : std::vector<std::size_t>{file};
     }},
};

enum class Verdict { Refused, Read, Silent };

class Judge
{
  public:
    explicit Judge(const States& states) : m_states(states) {}

    Verdict judge(const Pair& pair, const std::vector<std::size_t>& allowed, bool readOnly)
    {
        write(m_file, pair.file);
        std::filesystem::remove(m_file + "-journal");
        if (!pair.journal.empty()) {
            write(m_file + "-journal", pair.journal);
        }
        const auto opened = readOnly ? mrl::cdb::openReadOnly(m_file) : mrl::cdb::open(m_file);
        Content content;
        const bool told = !opened || !readAll(opened.db, content);
        mrl::cdb::close(opened.db);
        if (!opened) {
            const bool untouched = contentOf(m_file) == pair.file && journal() == pair.journal;
            return untouched ? Verdict::Refused : Verdict::Silent;
        }
        for (const std::size_t state : allowed) {
            if (content == m_states.contents[state]) {
                return Verdict::Read;
            }
        }
        return told ? Verdict::Refused : Verdict::Silent;
    }

  private:
    std::string journal() const { return contentOf(m_file + "-journal"); }

    const States& m_states;
    Folder m_folder;
    std::string m_file = m_folder / "a.cdb";
};

} // namespace

int main(int argc, char** arguments)
{
    const int count = argc > 1 ? std::atoi(arguments[1]) : 1200;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(arguments[2])) : 1;
    const Folder folder;
    setenv("TMPDIR", folder.name().c_str(), 1); // in memory, for the copies
    const States states = makeStates(folder);
    Judge judge(states);
    Random random(seed);
    std::vector<std::map<Verdict, int>> seen(CHANGES.size());
    for (int i = 0; i < count; ++i) {
        const std::size_t kind = static_cast<std::size_t>(i) % CHANGES.size();
        Pair pair;
        const auto allowed = CHANGES[kind].make(pair, states, random);
        const Verdict verdict = judge.judge(pair, allowed, random() % 2 == 0);
        ++seen[kind][verdict];
        if (verdict == Verdict::Silent) {
            std::fprintf(stderr, "%s: file %d of seed %u is silently wrong\n", CHANGES[kind].name, i, seed);
            return 1;
        }
    }
    for (std::size_t kind = 0; kind < CHANGES.size(); ++kind) {
        std::printf("%s: %d refused and left alone, %d read as saved, none silently wrong\n",
                    CHANGES[kind].name, seen[kind][Verdict::Refused], seen[kind][Verdict::Read]);
    }
    return 0;
}
