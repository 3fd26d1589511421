#include "hostlib/ui/framework/project_document.h"

#include <QFile>

#include <algorithm>
#include <set>

#include <sys/stat.h>

namespace cdb = mrl::cdb;

namespace {

std::string utf8(const QString& path) { return path.toUtf8().toStdString(); }

struct FileId
{
    quint64 device = 0;
    quint64 inode = 0;
};

bool operator==(const FileId& a, const FileId& b) { return a.device == b.device && a.inode == b.inode; }

/// @return zeros for a file that is not there
FileId fileId(const QString& path)
{
    struct stat info
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) {
        return {};
    }
    return {info.st_dev, info.st_ino};
}

bool sameRange(const cdb::KeyRange& a, const cdb::KeyRange& b)
{
    return a.kwh == b.kwh && a.first == b.first && a.last == b.last;
}

/// Unless claimed, closes a database at its end, and removes the file that was made for it.
class Unclaimed
{
  public:
    Unclaimed(int db, QString newFile) : m_db(db), m_newFile(std::move(newFile)) {}
    ~Unclaimed()
    {
        if (m_db < 0) {
            return;
        }
        cdb::close(m_db);
        if (!m_newFile.isEmpty()) {
            cdb::removeFile(utf8(m_newFile));
        }
    }
    Unclaimed(const Unclaimed&) = delete;
    Unclaimed& operator=(const Unclaimed&) = delete;
    void claim() { m_db = -1; }

  private:
    int m_db;
    QString m_newFile;
};

cdb::Result replaceAll(int from, int to)
{
    std::set<int> groups;
    if (auto result = cdb::groups(from, groups); !result) {
        return result;
    }
    if (auto result = cdb::groups(to, groups); !result) {
        return result;
    }
    for (const int kwh : groups) {
        if (auto result = cdb::replaceRange(from, to, {kwh}); !result) {
            return result;
        }
    }
    return cdb::replaceFacts(from, to);
}

} // namespace

MRL_H_ProjectDocument::MRL_H_ProjectDocument(MRL_H_ShadowDatabase& document) : m_document(document) {}

MRL_H_ProjectDocument::~MRL_H_ProjectDocument() { close(); }

cdb::Result MRL_H_ProjectDocument::open(const QString& path)
{
    auto file = cdb::open(utf8(path));
    const cdb::Result writable = file.result;
    if (writable.code == cdb::Code::ReadOnly || writable.code == cdb::Code::Shared) {
        file = cdb::openReadOnly(utf8(path));
    }
    if (!file) {
        return file.result;
    }
    Unclaimed fileGuard(file.db, QString());
    const auto copy = cdb::copyOf(file.db);
    if (!copy) {
        return copy.result;
    }
    Unclaimed copyGuard(copy.db, QString());
    // Of the copy and not of the file, which another program may have changed since.
    mrl::ui::SyncState state;
    if (auto result = state.reset(copy.db); !result) {
        return result;
    }
    std::map<std::string, std::string> facts;
    if (auto result = cdb::facts(copy.db, facts); !result) {
        return result;
    }
    copyGuard.claim();
    fileGuard.claim();
    adopt(file.db, copy.db, path, std::move(state));
    m_facts = std::move(facts);
    // The copy carries the version that the file had when it was made.
    m_copyInCommon = m_fileInCommon = cdb::versionOf(copy.db);
    m_whyReadOnly = writable;
    return {};
}

cdb::Result MRL_H_ProjectDocument::create()
{
    const auto copy = cdb::openMemory();
    if (copy) {
        adopt(-1, copy.db, QString(), {});
    }
    return copy.result;
}

/// Takes over a file, -1 for none, and its document.
void MRL_H_ProjectDocument::adopt(int file, int copy, const QString& path, mrl::ui::SyncState state)
{
    close();
    m_file = file;
    m_copy = copy;
    m_path = path;
    const auto id = fileId(path);
    m_device = id.device;
    m_inode = id.inode;
    m_state = std::move(state);
    m_document.attach(copy);
}

void MRL_H_ProjectDocument::close()
{
    if (m_copy >= 0 && m_document.index() == m_copy) {
        m_document.attach(-1);
    }
    for (int* db : {&m_copy, &m_file}) {
        if (*db >= 0) {
            cdb::close(*db);
        }
        *db = -1;
    }
    m_path.clear();
    m_facts.clear();
    m_marks.clear();
    m_refreshFailure = {};
    m_whyReadOnly = {};
    m_fileInCommon.reset();
    m_copyInCommon.reset();
}

bool MRL_H_ProjectDocument::isReadOnly() const { return m_file >= 0 && cdb::isReadOnly(m_file); }

bool MRL_H_ProjectDocument::hasChanges() const
{
    if (m_copy < 0) {
        return false;
    }
    const auto version = cdb::versionOf(m_copy);
    if (version && version == m_copyInCommon) {
        return false;
    }
    bool different = true;
    std::map<std::string, std::string> facts;
    if (!m_state.differs(m_copy, different) || different || !cdb::facts(m_copy, facts) || facts != m_facts) {
        return true;
    }
    m_copyInCommon = version;
    return false;
}

void MRL_H_ProjectDocument::mark(const cdb::KeyRange& range)
{
    const bool known = std::any_of(m_marks.begin(), m_marks.end(),
                                   [&](const cdb::KeyRange& other) { return sameRange(other, range); });
    if (!known) {
        m_marks.push_back(range);
    }
}

void MRL_H_ProjectDocument::refresh(const cdb::KeyRange& range, mrl::ui::UnsavedChanges unsaved)
{
    if (m_file < 0) {
        return;
    }
    const auto refreshed = refreshNow(range, unsaved);
    if (!refreshed && m_refreshFailure) {
        m_refreshFailure = refreshed;
    }
}

cdb::Result MRL_H_ProjectDocument::refreshNow(const cdb::KeyRange& range, mrl::ui::UnsavedChanges unsaved)
{
    if (auto result = followFile(); !result) {
        return result;
    }
    if (auto result = m_state.cut(range, m_copy, m_file); !result) {
        return result;
    }
    bool edited = false;
    if (auto result = m_state.differs(m_copy, range, edited); !result) {
        return result;
    }
    if (unsaved == mrl::ui::UnsavedChanges::Keep && edited) {
        return {};
    }
    if (auto result = cdb::replaceRange(m_file, m_copy, range); !result) {
        return result;
    }
    return m_state.note(m_copy, range);
}

/// When another file has taken the place of the one that is open, goes over to that.
cdb::Result MRL_H_ProjectDocument::followFile()
{
    const auto now = fileId(m_path);
    if (now == FileId{m_device, m_inode}) {
        return {};
    }
    auto file = cdb::open(utf8(m_path));
    if (!file) {
        return file.result;
    }
    cdb::close(m_file);
    m_file = file.db;
    m_device = now.device;
    m_inode = now.inode;
    m_fileInCommon.reset();
    return {};
}

cdb::Result MRL_H_ProjectDocument::checkForConflicts(std::vector<cdb::KeyRange>& changed)
{
    const auto version = cdb::versionOf(m_file);
    const bool untouched = version && version == m_fileInCommon;
    for (const auto& range : m_marks) {
        if (auto result = m_state.cut(range, m_copy, m_file); !result) {
            return result;
        }
        if (untouched) {
            continue;
        }
        bool different = false;
        if (auto result = m_state.differs(m_file, range, different); !result) {
            return result;
        }
        if (different) {
            changed.push_back(range);
        }
    }
    return {};
}

/// @param conflict [out] whether document and file have both changed a fact, and not alike
cdb::Result MRL_H_ProjectDocument::checkFacts(bool& conflict)
{
    std::map<std::string, std::string> mine;
    std::map<std::string, std::string> theirs;
    for (const auto& [db, facts] : {std::pair(m_copy, &mine), std::pair(m_file, &theirs)}) {
        if (auto result = cdb::facts(db, *facts); !result) {
            return result;
        }
    }
    conflict = mine != m_facts && theirs != m_facts && mine != theirs;
    return {};
}

/// Writes the facts that the document has changed; those that other programs have changed stay.
cdb::Result MRL_H_ProjectDocument::writeFacts(int& written)
{
    std::map<std::string, std::string> mine;
    if (auto result = cdb::facts(m_copy, mine); !result) {
        return result;
    }
    std::map<std::string, std::string> changed;
    for (const auto& [name, value] : m_facts) {
        if (mine.count(name) == 0) {
            changed[name] = std::string();
        }
    }
    for (const auto& [name, value] : mine) {
        const auto before = m_facts.find(name);
        if (before == m_facts.end() || before->second != value) {
            changed[name] = value;
        }
    }
    for (const auto& [name, value] : changed) {
        if (auto result = cdb::setFact(m_file, name, value); !result) {
            return result;
        }
        ++written;
    }
    return {};
}

/// @param written [out] how many keys were written or deleted
cdb::Result MRL_H_ProjectDocument::writeMarks(int& written)
{
    written = 0;
    for (const auto& range : m_marks) {
        int changed = 0;
        if (auto result = cdb::replaceRange(m_copy, m_file, range, &changed); !result) {
            return result;
        }
        written += changed;
    }
    return {};
}

/// @param before the file's version when the lock was taken, which nobody else could change until the commit
void MRL_H_ProjectDocument::noteSaved(const std::optional<cdb::Version>& before, int written)
{
    // The project is saved. If this fails, the document only counts as changed.
    for (const auto& range : m_marks) {
        (void)m_state.note(m_copy, range);
    }
    std::map<std::string, std::string> facts;
    if (cdb::facts(m_copy, facts)) {
        m_facts = std::move(facts);
    }
    if (written == 0) {
        return;
    }
    const auto now = cdb::versionOf(m_file);
    const bool oursIsTheLast = before && now && now->number == before->number + 1;
    m_fileInCommon = oursIsTheLast && before == m_fileInCommon ? now : std::nullopt;
}

mrl::ui::SaveResult MRL_H_ProjectDocument::save(mrl::ui::OnConflict onConflict)
{
    using mrl::ui::SaveOutcome;
    if (m_file < 0) {
        return {SaveOutcome::Failed, {cdb::Code::NoFile, "The project has no file yet."}, {}};
    }
    if (auto result = followFile(); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    // The lock comes first, so that nobody changes the file between the comparison and the writing.
    cdb::Transaction transaction(m_file);
    if (auto result = transaction.state(); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    const auto before = cdb::versionOf(m_file);
    std::vector<cdb::KeyRange> changed;
    if (auto result = checkForConflicts(changed); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    bool factsConflict = false;
    if (auto result = checkFacts(factsConflict); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    if ((!changed.empty() || factsConflict) && onConflict == mrl::ui::OnConflict::Report) {
        return {SaveOutcome::Conflict, {}, changed};
    }
    int written = 0;
    if (auto result = writeMarks(written); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    if (auto result = writeFacts(written); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    if (auto result = transaction.commit(); !result) {
        return {SaveOutcome::Failed, result, {}};
    }
    noteSaved(before, written);
    return {};
}

cdb::Result MRL_H_ProjectDocument::reload()
{
    if (m_file < 0) {
        return {cdb::Code::NoFile, "The project has no file yet."};
    }
    if (auto result = followFile(); !result) {
        return result;
    }
    cdb::Transaction transaction(m_copy);
    if (auto result = replaceAll(m_file, m_copy); !result) {
        return result;
    }
    if (auto result = transaction.commit(); !result) {
        return result;
    }
    m_fileInCommon.reset();
    m_copyInCommon.reset();
    m_facts.clear();
    if (auto result = cdb::facts(m_copy, m_facts); !result) {
        return result;
    }
    return m_state.reset(m_copy);
}

cdb::Result MRL_H_ProjectDocument::saveAs(const QString& path)
{
    if (m_copy < 0) {
        return {cdb::Code::NotOpen, "There is no project to save."};
    }
    const auto there = fileId(path);
    const bool isNew = there == FileId{};
    const auto write = [this](int to) {
        cdb::Transaction transaction(to);
        if (auto result = transaction.state(); !result) {
            return result;
        }
        if (auto result = replaceAll(m_copy, to); !result) {
            return result;
        }
        return transaction.commit();
    };
    auto file = isNew ? cdb::create(utf8(path), write) : cdb::open(utf8(path));
    if (!file) {
        return file.result;
    }
    Unclaimed fileGuard(file.db, isNew ? path : QString());
    if (!isNew) {
        if (auto result = write(file.db); !result) {
            return result;
        }
    }
    mrl::ui::SyncState state;
    if (auto result = state.reset(m_copy); !result) {
        return result;
    }
    std::map<std::string, std::string> facts;
    if (auto result = cdb::facts(m_copy, facts); !result) {
        return result;
    }
    fileGuard.claim();
    auto marks = std::move(m_marks);
    adopt(file.db, std::exchange(m_copy, -1), path, std::move(state));
    m_marks = std::move(marks);
    m_facts = std::move(facts);
    return {};
}
