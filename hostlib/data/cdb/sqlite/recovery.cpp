#include "hostlib/data/cdb/sqlite/recovery.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <vector>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/content_check.h"
#include "hostlib/data/cdb/sqlite/opening.h"
#include "hostlib/data/cdb/sqlite/raw_file.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"

namespace mrl::cdb {

namespace {

constexpr std::array<unsigned char, 8> MAGIC{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};
constexpr int HEADER_SIZE = 28;
const std::string COPY = "copy";                  // its name for messages
constexpr std::uint32_t TO_THE_END = 0xFFFFFFFFU; // of a program that syncs nothing

std::map<std::string, Refusal>& refusals()
{
    static std::map<std::string, Refusal> reasons;
    return reasons;
}

/// Checks a journal record by record. SQLite ends its reading silently at the first one that doesn't fit.
class JournalCheck
{
  public:
    explicit JournalCheck(RawFile& journal) : m_journal(journal) {}

    /// @return what is wrong with it; empty when it is whole
    std::string flaw()
    {
        m_status = m_journal.size(m_size);
        std::string wrong;
        while (m_status == SQLITE_OK && wrong.empty() && !m_over) {
            wrong = part();
        }
        return wrong;
    }
    /// A code of SQLite: whether it could be read at all.
    int status() const { return m_status; }

  private:
    /// @return false behind the end, or when reading fails
    bool read(void* to, std::size_t size)
    {
        const int status = m_journal.read(to, static_cast<int>(size), m_at);
        m_status = status == SQLITE_IOERR_SHORT_READ ? SQLITE_OK : status;
        return status == SQLITE_OK;
    }
    /// One header and the records behind it.
    std::string part()
    {
        std::array<unsigned char, HEADER_SIZE> header{};
        const bool first = m_at == 0;
        if (!read(header.data(), HEADER_SIZE) ||
            std::memcmp(header.data(), MAGIC.data(), MAGIC.size()) != 0) {
            m_over = true;
            return first ? "its header can't be read" : "";
        }
        const std::uint32_t count = bigEndian(&header[8]);
        m_nonce = bigEndian(&header[12]);
        if (first) {
            m_sector = bigEndian(&header[20]);
            m_page = bigEndian(&header[24]);
        }
        if (!isSize(m_sector, 32) || !isSize(m_page, 512) || count == 0) {
            return "its header makes no sense";
        }
        m_at += m_sector;
        m_over = count == TO_THE_END;
        return count == TO_THE_END ? "" : records(count);
    }
    static bool isSize(std::uint32_t size, std::uint32_t least)
    {
        return size >= least && size <= 65536 && (size & (size - 1)) == 0;
    }
    std::string records(std::uint32_t count)
    {
        std::vector<unsigned char> record(m_page + 8);
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::string name = "record " + std::to_string(i + 1) + " of " + std::to_string(count);
            if (!read(record.data(), record.size())) {
                return name + " is missing";
            }
            std::uint32_t sum = m_nonce;
            for (std::uint32_t at = m_page - 200; at < m_page && at > 0; at -= 200) {
                sum += record[4 + at];
            }
            if (sum != bigEndian(&record[4 + m_page])) {
                return name + " does not fit its checksum";
            }
            m_at += static_cast<sqlite3_int64>(record.size());
        }
        m_at = (m_at + m_sector - 1) / m_sector * m_sector;
        m_over = m_at + HEADER_SIZE > m_size;
        return {};
    }

    RawFile& m_journal;
    int m_status = SQLITE_OK;
    sqlite3_int64 m_size = 0;
    sqlite3_int64 m_at = 0;
    std::uint32_t m_nonce = 0;
    std::uint32_t m_sector = 0;
    std::uint32_t m_page = 0;
    bool m_over = false;
};

/// A folder for copies, gone with its end.
class Copies
{
  public:
    Copies()
    {
        std::error_code error;
        std::string name = (std::filesystem::temp_directory_path(error) / "mrl-recovery-XXXXXX").string();
        if (!error && mkdtemp(name.data()) != nullptr) {
            m_folder = name;
        }
    }
    ~Copies()
    {
        std::error_code ignored;
        if (!m_folder.empty()) {
            std::filesystem::remove_all(m_folder, ignored);
        }
    }
    Copies(const Copies&) = delete;
    Copies& operator=(const Copies&) = delete;

    std::string file() const { return m_folder + "/" + COPY; }

    /// @param ending of the copy's name
    /// @return a code of SQLite: SQLITE_FULL when there is no room, else whether it could be read
    int add(RawFile& from, const char* ending) const
    {
        sqlite3_int64 size = 0;
        if (const int status = from.size(size); status != SQLITE_OK) {
            return status;
        }
        std::ofstream out(file() + ending, std::ios::binary);
        std::vector<char> block(1U << 16U);
        for (sqlite3_int64 at = 0; at < size && out; at += static_cast<sqlite3_int64>(block.size())) {
            const auto part = std::min<sqlite3_int64>(size - at, static_cast<sqlite3_int64>(block.size()));
            if (const int status = from.read(block.data(), static_cast<int>(part), at); status != SQLITE_OK) {
                return status;
            }
            out.write(block.data(), part);
        }
        out.close();
        return out ? SQLITE_OK : SQLITE_FULL;
    }

  private:
    std::string m_folder;
};

/// What a copy of the file holds.
struct Content
{
    Result sound;
    int format = 0;
    sqlite3_int64 project = 0;
    sqlite3_int64 version = 0;
};

Content contentOf(const std::string& copy)
{
    Content content;
    Connection connection;
    int status = connectToCopy(copy, connection);
    if (status == SQLITE_OK) {
        status = readFormat(connection.get(), content.format);
    }
    content.sound = status == SQLITE_OK ? checkContent(connection.get(), COPY, content.format, Depth::Quick)
                                        : failureOf(status, connection.get(), COPY);
    if (content.sound && content.format > 1) {
        Statement text("SELECT project,version FROM summary");
        Run run(text, connection.get());
        if (run.step() == SQLITE_ROW) {
            content.project = run.wide(0);
            content.version = run.wide(1);
        }
    }
    return content;
}

/// Without the name of the copy.
std::string reasonOf(const Result& failure) { return failure.text.substr(COPY.size() + 2); }

/// A transaction raises the version by one, so taking one back lowers it by one, or by nothing where no page of it
/// had reached the file.
bool belongsTogether(const Content& standing, const Content& back)
{
    if (!standing.sound || standing.format == 1 || back.format == 1) {
        return true;
    }
    const auto steps = standing.version - back.version;
    return standing.project == back.project && (steps == 0 || steps == 1);
}

std::string howToGoOn(const Content& standing)
{
    return standing.sound ? ". Nothing was changed. The file by itself is whole; to go on with it as it is, "
                            "remove the journal"
                          : ". Nothing was changed. The file by itself is not whole, since the change was "
                            "under way; put the right journal back, or go on with a backup";
}

bool isDamage(const Result& result) { return result.code == Code::Corrupt || result.code == Code::Checksum; }

/// One look at a file and its journal before they are brought together.
class Rehearsal
{
  public:
    Rehearsal(sqlite3_vfs* files, const std::string& database)
        : m_begin(database + "-journal, which a crashed program left, "),
          m_file(files, database, SQLITE_OPEN_MAIN_DB),
          m_journal(files, database + "-journal", SQLITE_OPEN_MAIN_JOURNAL)
    {
    }

    /// @param reason [out] why the change must not be taken back; empty when it may, or could not be looked at
    /// @return a code of SQLite: whether it could be looked at
    int run(std::string& reason)
    {
        int status = m_copies.add(m_file, "");
        if (status != SQLITE_OK) {
            return status;
        }
        m_standing = contentOf(m_copies.file());
        JournalCheck check(m_journal);
        if (const std::string flaw = check.flaw(); !flaw.empty()) {
            reason = m_begin + "is damaged (" + flaw + ")" + howToGoOn(m_standing);
        }
        status = check.status();
        if (status == SQLITE_OK && reason.empty()) {
            status = m_copies.add(m_journal, "-journal");
        }
        return status == SQLITE_OK && reason.empty() ? together(reason) : status;
    }

  private:
    int together(std::string& reason)
    {
        const Content back = contentOf(m_copies.file());
        if (!back.sound && !isDamage(back.sound)) {
            return back.sound.code == Code::OutOfMemory ? SQLITE_NOMEM : SQLITE_IOERR_READ;
        }
        if (!back.sound) {
            reason = m_begin + "is damaged or of another file (" + reasonOf(back.sound) + ")" +
                     howToGoOn(m_standing);
        } else if (!belongsTogether(m_standing, back)) {
            reason = m_begin + "is of another state, version " + std::to_string(back.version) +
                     " where the file has version " + std::to_string(m_standing.version) +
                     howToGoOn(m_standing);
        }
        return SQLITE_OK;
    }

    std::string m_begin; ///< of the reason
    RawFile m_file;
    RawFile m_journal;
    Copies m_copies;
    Content m_standing;
};

bool isThere(const std::string& path)
{
    struct stat info = {};
    return stat(path.c_str(), &info) == 0 && info.st_size > 0;
}

bool lostItsFirstByte(const std::string& journal)
{
    std::array<char, 8> begin{};
    std::ifstream in(journal, std::ios::binary);
    in.read(begin.data(), begin.size());
    return in && begin[0] == 0 &&
           std::any_of(begin.begin(), begin.end(), [](char byte) { return byte != 0; });
}

} // namespace

int mayRecover(sqlite3_vfs* files, const std::string& database)
{
    static bool rehearsing = false; // the copy is opened through the same layer
    if (rehearsing) {
        return SQLITE_OK;
    }
    struct Guard
    {
        Guard() { rehearsing = true; }
        ~Guard() { rehearsing = false; }
    };
    const Guard guard;
    refusals().erase(database);
    Refusal refusal;
    const int status = Rehearsal(files, database).run(refusal.reason);
    if (status == SQLITE_FULL) {
        refusal = {Code::DiskFull,
                   "a crashed program left an unfinished change, and the folder for temporary files "
                   "has no room to look at it"};
    }
    if (status != SQLITE_OK && status != SQLITE_FULL) {
        return status;
    }
    if (refusal.reason.empty()) {
        return SQLITE_OK;
    }
    refusals()[database] = std::move(refusal);
    return SQLITE_CANTOPEN;
}

Refusal refusedRecovery(const std::string& database)
{
    const auto found = refusals().find(database);
    return found != refusals().end() ? found->second : Refusal();
}

Result checkDormantJournal(const std::string& file, const std::string& path)
{
    const std::string journal = path + "-journal";
    if (!lostItsFirstByte(journal)) {
        return {};
    }
    // Another program may be writing just these bytes.
    usleep(20000);
    return lostItsFirstByte(journal)
               ? failure(Code::Corrupt, file,
                         journal + ", which a crashed program left, is damaged (its header can't be read). "
                                   "Nothing was changed. To go on with the file as it is, remove the journal")
               : Result{};
}

std::string adviceForDamage(const std::string& path)
{
    const std::string journal = path + "-journal";
    return isThere(journal) ? ". " + journal + " does not help"
                            : ". If a program crashed while it was writing, " + journal +
                                  " is missing; put it back, or go on with a backup";
}

} // namespace mrl::cdb
