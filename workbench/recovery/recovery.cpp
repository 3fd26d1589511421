#include "workbench/recovery/recovery.h"

#include <QCoreApplication>
#include <QDir>
#include <QUuid>

#include "workbench/document.h"
#include "workbench/managers.h"
#include "workbench/state_folder.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

// A few milliseconds each.
constexpr int ROWS_AT_ONCE = 200;
constexpr int KEYS_AT_ONCE = 5000;

const auto SUFFIX = QStringLiteral(".snapshot");

QString folder() { return stateFolder() + QStringLiteral("/recovery"); }

std::unique_ptr<QLockFile> lockOf(const QString& file)
{
    auto lock = std::make_unique<QLockFile>(file + QStringLiteral(".lock"));
    lock->setStaleLockTime(0); // a lock is as old as its run; only one of a run that has ended is stale
    return lock;
}

bool sameState(const FileState& a, const FileState& b)
{
    return a.project == b.project && a.number == b.number;
}

} // namespace

Recovery::Recovery(Document& document, Managers& managers, QObject* parent)
    : QObject(parent), m_document(document), m_managers(managers),
      m_file(folder() + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces) + SUFFIX),
      m_image(std::make_shared<cdb::RecordImage>()), m_rows(std::make_shared<MRL_LC_OpenRows>())
{
    m_pool.setMaxThreadCount(1);
    m_timer.setInterval(INTERVAL);
    connect(&m_timer, &QTimer::timeout, this, &Recovery::look);
    connect(&m_readTimer, &QTimer::timeout, this, &Recovery::look);
    connect(&m_document, &Document::replaced, this, &Recovery::reset);
    m_timer.start();
}

Recovery::~Recovery() { reset(); }

/// Another document, or none: what was given up with the former one is nothing to recover.
void Recovery::reset()
{
    m_pool.waitForDone();
    m_readTimer.stop();
    m_seen.reset();
    m_comparison.reset();
    m_image = std::make_shared<cdb::RecordImage>();
    m_rows = std::make_shared<MRL_LC_OpenRows>();
    m_reading = {};
    m_isNew = false;
    if (m_lock) {
        QFile::remove(m_file);
        m_lock.reset();
    }
}

QStringList Recovery::abandoned()
{
    QStringList files;
    const QDir where(folder());
    for (const QString& name : where.entryList({QLatin1Char('*') + SUFFIX}, QDir::Files, QDir::Time)) {
        const QString file = where.filePath(name);
        if (lockOf(file)->tryLock(0)) {
            files << file;
        }
    }
    return files;
}

void Recovery::adopt(const QString& file)
{
    reset();
    m_file = file;
    lock();
    m_isNew = true; // the next look replaces the file, or removes it where nothing is unsaved any more
}

bool Recovery::lock()
{
    if (!m_lock) {
        QDir().mkpath(folder());
        m_lock = lockOf(m_file);
        if (!m_lock->tryLock(0)) {
            m_lock.reset();
        }
    }
    return m_lock != nullptr;
}

void Recovery::look()
{
    m_readTimer.stop();
    if (m_writing || !m_document.isOpen() || !wantsExtras()) {
        return;
    }
    if (!readDocument() || !readRows()) {
        return;
    }
    if (m_isNew) {
        write();
    }
}

/// @return false while there is more to compare, and while a transaction runs, when nothing can be told
bool Recovery::readDocument()
{
    const auto version = cdb::versionOf(m_document.database());
    if (!version) {
        return false;
    }
    const FileState file = fileStateOf(m_document.fileDatabase(), m_document.file());
    if (version == m_seen && sameState(file, m_fileState)) {
        return true;
    }
    cdb::RecordImage image;
    if (m_document.isModified()) {
        if (!m_comparison || m_comparison->version != *version || !sameState(m_comparison->file, file)) {
            m_comparison.emplace(
                Comparison{*version, file, {m_document.database(), m_document.fileDatabase()}});
        }
        if (!m_comparison->scan.advance(KEYS_AT_ONCE)) {
            m_comparison.reset();
            return false;
        }
        if (!m_comparison->scan.isDone()) {
            m_readTimer.start(0);
            return false;
        }
        image = m_comparison->scan.takeImage();
    }
    m_comparison.reset();
    m_isNew = m_isNew || !image.isEmpty() || !m_image->isEmpty();
    m_image = std::make_shared<cdb::RecordImage>(std::move(image));
    m_seen = version;
    m_fileState = file;
    return true;
}

/// @return false while there is more to read
bool Recovery::readRows()
{
    const int read = m_managers.readRows(m_reading, 0);
    if (read == MRL_LC_ROWS_NONE) {
        m_isNew = m_isNew || m_rows->state != 0;
        m_rows = std::make_shared<MRL_LC_OpenRows>();
        m_reading = {};
        return true;
    }
    if (m_reading.state == m_rows->state) {
        return true;
    }
    if (m_managers.readRows(m_reading, ROWS_AT_ONCE) == MRL_LC_ROWS_MORE) {
        m_readTimer.start(0);
        return false;
    }
    m_rows = std::make_shared<MRL_LC_OpenRows>(std::move(m_reading));
    m_reading = {};
    m_reading.state = m_rows->state;
    m_isNew = true;
    return true;
}

void Recovery::write()
{
    m_isNew = false;
    if (m_image->isEmpty() && m_rows->state == 0) {
        QFile::remove(m_file);
        return;
    }
    if (!lock()) {
        return;
    }
    m_writing = true;
    const auto job = [this, file = m_file, project = m_document.file(), state = m_fileState, image = m_image,
                      rows = m_rows] {
        const bool fine = writeSnapshot(file, {project, state, QDateTime::currentDateTime(), *image, *rows});
        QMetaObject::invokeMethod(this, [this, fine] {
            m_writing = false;
            emit written(fine);
        });
    };
    m_pool.start(job);
}

} // namespace mrl::workbench
