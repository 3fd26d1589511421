#include "hostlib/data/cdb/sqlite/new_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/file_format.h"
#include "hostlib/data/cdb/sqlite/files.h"
#include "hostlib/data/cdb/sqlite/network.h"
#include "hostlib/data/cdb/sqlite/opening.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"

namespace mrl::cdb {

namespace {

constexpr int TRIES = 100; // names that others took first

/// A descriptor that is closed at its end.
class Handle
{
  public:
    explicit Handle(int number) : m_number(number) {}
    ~Handle()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    int number() const { return m_number; }

  private:
    int m_number;
};

std::string someLetters()
{
    static std::random_device random;
    std::string text;
    for (int i = 0; i < 6; ++i) {
        text += static_cast<char>('a' + random() % 26);
    }
    return text;
}

/// Does a descriptor still stand for a file with a name?
bool hasName(int handle)
{
    struct stat info = {};
    return fstat(handle, &info) == 0 && info.st_nlink > 0;
}

/// Names a file without replacing another one. @return 0 or the reason
int renameToFree(const std::string& from, const std::string& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    // A file system that can't promise it in one step: a link never replaces a file either.
    if (link(from.c_str(), to.c_str()) != 0) {
        return errno;
    }
    unlink(from.c_str());
    return 0;
}

int syncFolder(const std::string& folder)
{
    const Handle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.number() < 0 || fsync(handle.number()) != 0) {
        return errno == EINVAL ? 0 : errno; // a file system whose folders need none
    }
    return 0;
}

} // namespace

NewFile::NewFile(const std::string& path)
    : m_name(path), m_folder(folderOf(path)),
      m_prefix(path.substr(path.rfind('/') == std::string::npos ? 0 : path.rfind('/') + 1) + ".new-")
{
    struct stat info = {};
    if (path.empty()) {
        m_state = failure(Code::NoFile, "\"\"", "a file needs a name");
    } else if (lstat(path.c_str(), &info) == 0) {
        m_state = failureToMake(EEXIST, path);
    } else if (Result here = onThisMachine(path, m_folder); !here) {
        m_state = std::move(here);
    } else {
        removeDead();
        const int number = makeBeside();
        m_state = number == 0 ? Result{} : failureToMake(number, path);
    }
}

NewFile::~NewFile()
{
    if (!m_building.empty()) {
        removeFile(m_building);
    }
    forget();
}

void NewFile::forget()
{
    if (m_handle >= 0) {
        ::close(m_handle);
    }
    m_handle = -1;
    m_building.clear();
}

int NewFile::makeBeside()
{
    for (int i = 0; i < TRIES; ++i) {
        const std::string name = m_folder + "/" + m_prefix + someLetters();
        m_handle = ::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
        if (m_handle < 0 && errno != EEXIST) {
            return errno;
        }
        // Another process may have taken it for a leftover before it was locked.
        if (m_handle >= 0 && flock(m_handle, LOCK_EX | LOCK_NB) == 0 && hasName(m_handle)) {
            m_building = name;
            return 0;
        }
        forget();
    }
    return EEXIST;
}

void NewFile::removeDead() const
{
    std::error_code error;
    for (std::filesystem::directory_iterator entry(m_folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.size() != m_prefix.size() + 6 || name.compare(0, m_prefix.size(), m_prefix) != 0 ||
            !entry->is_regular_file(error) || entry->is_symlink(error)) {
            continue;
        }
        const Handle handle(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
        if (handle.number() >= 0 && flock(handle.number(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(entry->path().c_str());
        }
    }
}

OpenedStore NewFile::makeStore()
{
    Place place;
    if (Result found = findPlace(m_building, place); !found) {
        return {std::move(found), nullptr};
    }
    Connection connection;
    int status = connectToBuild(place.path, connection);
    if (status == SQLITE_OK) {
        status = makeTables(connection.get());
    }
    if (status != SQLITE_OK) {
        return {failureOf(status, connection.get(), m_name), nullptr};
    }
    return {{},
            std::make_unique<Store>(std::move(connection), m_name, Access::ReadWrite, FORMAT_VERSION,
                                    std::move(place))};
}

Result NewFile::publish()
{
    int number = fsync(m_handle) == 0 ? 0 : errno;
    if (number == 0) {
        number = renameToFree(m_building, m_name);
    }
    if (number != 0) {
        return failureToMake(number, m_name);
    }
    forget(); // before the file is opened again: closing a descriptor later would give up its locks
    number = syncFolder(m_folder);
    return number == 0 ? Result{} : failure(Code::InputOutput, m_name, std::strerror(number));
}

} // namespace mrl::cdb
