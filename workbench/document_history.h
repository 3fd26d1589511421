#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "hostlib/data/cdb/image_log.h"

namespace mrl::workbench {

/// The steps that changed the open document, from its opening to its closing: each acceptance, deletion, import or
/// reload is one, by whatever part of the program. A step holds the records as they were before it; what takes more
/// than some memory lies in the user's state folder. Saving does not end the history.
class DocumentHistory : public QObject
{
    Q_OBJECT
  public:
    using Keys = std::set<std::pair<int, int>>; ///< KWH and KWL
    struct Step
    {
        QString name;
        QDateTime when;
        std::size_t keys = 0;       ///< how many records or facts it changed
        std::optional<Keys> edited; ///< records that somebody edited; nothing where that isn't known
    };
    /// A key or a fact that a step changed.
    struct Change
    {
        mrl::cdb::Key key;
        QString fact; ///< its name; empty for a key
        std::vector<std::string> before;
        std::vector<std::string> after;
    };

    explicit DocumentHistory(QObject* parent);
    ~DocumentHistory() override;

    /// A document is open: it begins without a step. @param db its database, -1 for none
    void begin(int db);

    /// Runs a command, and keeps what it changed in the document as one step after those that are done; steps that
    /// were undone are dropped. A command that changes nothing makes no step. Not within a transaction.
    /// @param name as the panel lists it
    void record(const QString& name, const std::function<void()>& command);

    /// All steps, the oldest first: those that are done, then those that were undone.
    const std::vector<Step>& steps() const { return m_steps; }
    /// How many of the steps are done.
    int doneCount() const { return m_done; }
    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < static_cast<int>(m_steps.size()); }
    /// Takes the last step back, or does the next one again. Does nothing where there is none.
    /// @return empty, or why the document stays as it is
    QString undo() { return goTo(m_done - 1); }
    QString redo() { return goTo(m_done + 1); }
    /// Undoes or does again until this many steps are done. @return as undo; the steps before the failure are taken
    QString goTo(int done);

    /// What a step that is done changed, from what stood there before to what it left.
    /// @return as much as could be read
    std::vector<Change> changesOf(int step);
    /// The changes from one image to another one of the same keys.
    static std::vector<Change> changesOf(const mrl::cdb::RecordImage& before,
                                         const mrl::cdb::RecordImage& after);
    /// Notes for the last step which records somebody edited. Other records that it changed were rewritten by it.
    void noteEdited(Keys edited);

  signals:
    /// Other steps, or another number of them is done.
    void changed();
    /// A step has changed the document, or was undone or done again.
    void documentChanged();
    /// Steps were lost: the text says why.
    void dropped(const QString& reason);

  private:
    void keep(const QString& name, mrl::cdb::RecordImage image);
    void forgetIfChangedElsewhere();
    void noteVersion();

    int m_db = -1;
    std::vector<Step> m_steps;
    int m_done = 0;
    mrl::cdb::ImageLog m_images; ///< one for each step: before it where it is done, else after it
    std::optional<mrl::cdb::Version> m_version; ///< of the document, as the last step left it
};

} // namespace mrl::workbench
