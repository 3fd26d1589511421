#pragma once

/// The project behind the document that plug-ins work in: its file, whether it holds changes, and its saving.

#include <QString>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/mrl_export.h"
#include "host/mrl_framework.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/ui/framework/sync_state.h"

namespace mrl::ui {

enum class SaveOutcome {
    Saved,    ///< the project file holds the marked ranges of the document
    Conflict, ///< another program has changed marked ranges since they were read; nothing was written
    Failed    ///< nothing was written; the result says why
};

struct [[nodiscard]] SaveResult
{
    SaveOutcome outcome = SaveOutcome::Saved;
    mrl::cdb::Result failure;                ///< why it failed
    std::vector<mrl::cdb::KeyRange> changed; ///< the ranges of a conflict
};

/// What saving does with ranges that another program has changed since.
enum class OnConflict { Report, Overwrite };

/// What refreshing does with a range of the document that holds unsaved changes.
enum class UnsavedChanges { Keep, Discard };

} // namespace mrl::ui

/// A project that is open: its file, and a private copy of it in memory, the document, which it binds to the
/// shadow database. Where the copy differs from what was read or saved last, it holds unsaved changes; where
/// the file does, another program has written.
class MRL_HOST_API MRL_H_ProjectDocument
{
  public:
    explicit MRL_H_ProjectDocument(MRL_H_ShadowDatabase& document);
    ~MRL_H_ProjectDocument();
    MRL_H_ProjectDocument(const MRL_H_ProjectDocument&) = delete;
    MRL_H_ProjectDocument& operator=(const MRL_H_ProjectDocument&) = delete;

    /// Opens a project file; the former document is closed only when that has succeeded. A file that can't be
    /// written, or lies on a network folder, is opened for reading.
    mrl::cdb::Result open(const QString& path);

    /// Begins an empty document without a file; saveAs gives it one.
    mrl::cdb::Result create();

    /// Closes the document and its file. Unsaved changes are lost.
    void close();

    bool hasFile() const { return m_file >= 0; }
    bool isReadOnly() const;
    /// Why the file is open for reading only; Code::Ok when it isn't.
    const mrl::cdb::Result& whyReadOnly() const { return m_whyReadOnly; }
    /// The index of the project's file, which stays open as long as the document; -1 while there is none.
    int file() const { return m_file; }
    /// The file of the project, empty while there is none.
    QString path() const { return m_path; }

    /// True if the document differs from what was read or saved last, or can't be read.
    bool hasChanges() const;

    /// What the plug-ins and the workbench have marked for saving.
    const std::vector<mrl::cdb::KeyRange>& marks() const { return m_marks; }

    /// Makes the marked ranges of the file equal to the document's in one transaction; keys that the document
    /// no longer has are deleted. So are the facts about the project that the document has changed.
    mrl::ui::SaveResult save(mrl::ui::OnConflict onConflict = mrl::ui::OnConflict::Report);

    /// Makes the whole document equal to its file. Unsaved changes are lost; on failure it stays as it was.
    mrl::cdb::Result reload();

    /// Writes the whole document to another file, in one transaction, and goes on with that file. A project
    /// that the file holds already is replaced; a file that is no project is refused. On failure the document
    /// stays with its former file.
    mrl::cdb::Result saveAs(const QString& path);

    /// The first failure of a refreshing since the document was opened.
    const mrl::cdb::Result& refreshFailure() const { return m_refreshFailure; }

    /// Reads a range of the document anew from the file. Does nothing without a file.
    void refresh(const mrl::cdb::KeyRange& range, mrl::ui::UnsavedChanges unsaved);
    /// Marks a range for saving, once.
    void mark(const mrl::cdb::KeyRange& range);

  private:
    void adopt(int file, int copy, const QString& path, mrl::ui::SyncState state);
    mrl::cdb::Result followFile();
    mrl::cdb::Result refreshNow(const mrl::cdb::KeyRange& range, mrl::ui::UnsavedChanges unsaved);
    mrl::cdb::Result checkForConflicts(std::vector<mrl::cdb::KeyRange>& changed);
    mrl::cdb::Result checkFacts(bool& conflict);
    mrl::cdb::Result writeMarks(int& written);
    mrl::cdb::Result writeFacts(int& written);
    void noteSaved(const std::optional<mrl::cdb::Version>& before, int written);

    MRL_H_ShadowDatabase& m_document;
    int m_file = -1; ///< the project's file, open as long as the document
    int m_copy = -1; ///< the document
    /// Versions at which file and document hold nothing but what is common; none: to be found out.
    std::optional<mrl::cdb::Version> m_fileInCommon;
    mutable std::optional<mrl::cdb::Version> m_copyInCommon;
    QString m_path;
    quint64 m_device = 0;
    quint64 m_inode = 0;
    std::map<std::string, std::string> m_facts; ///< of the project, as they were read or saved last
    mrl::ui::SyncState m_state;
    std::vector<mrl::cdb::KeyRange> m_marks;
    mrl::cdb::Result m_refreshFailure;
    mrl::cdb::Result m_whyReadOnly;
};
