#pragma once

#include <QLockFile>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>

#include "workbench/recovery/snapshot.h"

namespace mrl::workbench {

class Document;
class Managers;

/// Keeps a snapshot of what isn't saved in the user's state folder, so that a crash loses seconds at most: what the
/// document holds beyond its file, and the rows of an open manager. Looks every few seconds; reads rows in small
/// bits while nothing else is to be done, and writes in a thread of its own. The file goes when nothing is unsaved.
class Recovery : public QObject
{
    Q_OBJECT
  public:
    static constexpr int INTERVAL = 3000; ///< milliseconds

    /// @param document, managers outlive this
    Recovery(Document& document, Managers& managers, QObject* parent);
    /// The program ends as it should: nothing is left behind.
    ~Recovery() override;

    /// The snapshots of runs that have ended without taking them away, the latest first.
    static QStringList abandoned();
    /// Goes on with the file of such a run in place of one of its own: until the next snapshot is written it keeps
    /// what was recovered from it.
    void adopt(const QString& file);
    /// Where this run keeps its snapshot; it may not exist.
    const QString& file() const { return m_file; }

  public slots:
    /// Takes a snapshot where something has changed since the last one.
    void look();

  signals:
    /// A snapshot was written, or can't be.
    void written(bool fine);

  private:
    bool lock();
    void reset();
    bool readDocument();
    bool readRows();
    void write();

    Document& m_document;
    Managers& m_managers;
    QString m_file;
    std::unique_ptr<QLockFile> m_lock; ///< tells other runs that this one lives
    QTimer m_timer;
    QTimer m_readTimer; ///< reads on as soon as nothing else is to be done
    QThreadPool m_pool;
    bool m_writing = false;
    bool m_isNew = false; ///< what was read last isn't written yet

    std::optional<cdb::Version> m_seen; ///< of the document, when it was compared last
    FileState m_fileState;
    /// A comparison of document and file that goes on, and of which state.
    struct Comparison
    {
        cdb::Version version;
        FileState file;
        cdb::DifferenceScan scan;
    };
    std::optional<Comparison> m_comparison;
    std::shared_ptr<const cdb::RecordImage> m_image;
    MRL_LC_OpenRows m_reading;
    std::shared_ptr<const MRL_LC_OpenRows> m_rows; ///< read whole
};

} // namespace mrl::workbench
