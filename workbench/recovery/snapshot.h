#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

#include "hostlib/data/cdb/record_image.h"
#include "manager/open_rows.h"

namespace mrl::workbench {

/// A moment in the life of a project's file.
struct FileState
{
    qint64 project = 0; ///< drawn by lot when the project was made; 0 where the file doesn't tell
    qint64 number = 0;  ///< rises with each write: the version, or the time of the last change
};

/// @param db the open file, -1 for none. @param path of it
FileState fileStateOf(int db, const QString& path);

/// What would be lost if the program ended now.
struct Snapshot
{
    QString project; ///< path of the project's file
    FileState file;  ///< when the snapshot was taken
    QDateTime when;
    mrl::cdb::RecordImage document; ///< the document's, wherever it differs from the file
    MRL_LC_OpenRows rows;           ///< of the open manager; state 0: none

    bool isEmpty() const { return document.isEmpty() && rows.state == 0; }
};

/// Writes a snapshot in the place of the former one: the file holds either whole. May run in any thread.
/// @return whether it is written
bool writeSnapshot(const QString& file, const Snapshot& snapshot);
/// @return nothing when the file is damaged or none of ours
std::optional<Snapshot> readSnapshot(const QString& file);

/// Puts what a snapshot holds into the document of its project. @return why not
mrl::cdb::Result applySnapshot(int db, const Snapshot& snapshot);

} // namespace mrl::workbench
