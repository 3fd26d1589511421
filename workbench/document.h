#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

#include "host/mrl_framework.h"

namespace mrl::workbench {

class DocumentHistory;
class Managers;

/// The open project: a private copy of its file, in which the managers work until it is saved.
class Document : public QObject
{
    Q_OBJECT
  public:
    /// @param managers are told when the document opens and is saved; outlives this
    Document(Managers& managers, QObject* parent);
    ~Document() override;

    /// Opens a project in place of the present one, which is lost. @return empty, or why not; the present one
    /// stays then
    QString open(const QString& file);
    void close();

    bool isOpen() const;
    bool isReadOnly() const;
    /// Why the project can only be read; empty when it can be written.
    QString readOnlyReason() const;
    /// Path of the project's file; empty when none is open.
    QString file() const;
    /// Whether the document differs from its file. Found out by comparing, so it is right after a cancelled
    /// dialog too.
    bool isModified() const;
    /// The database of the document, -1 when none is open.
    int database() const;
    /// The database of the project's file, -1 when there is none.
    int fileDatabase() const;
    /// Why the design code of the project can't be loaded; empty when it can.
    QString designCodeFailure() const;

    /// The one way to change the document: runs a command and keeps what it changes as one step that can be undone.
    /// A command that changes nothing makes no step. Not within a transaction.
    /// @param name as the panel "History" lists it, such as "Import of loads.csv"
    void runStep(const QString& name, const std::function<void()>& command);
    DocumentHistory& history() { return *m_history; }

    enum class Outcome { Done, Conflict, Failed };
    struct Result
    {
        Outcome outcome = Outcome::Done;
        QString reason; ///< of a failure
    };
    /// Whether saving is to write the system record too, which belongs to no manager.
    void markSystem();
    /// Writes what the managers declare into the project's file.
    /// @param overwrite also what another program has changed meanwhile
    Result save(bool overwrite);
    /// Writes the whole project into another file and goes on with that.
    Result saveAs(const QString& file);

    /// Makes the document equal to its file as that is now; unsaved changes are lost. To be run as a step.
    /// @return empty, or why not; the document stays as it was then
    QString reload();

    MRL_H_ShadowDatabase& shadow() { return m_shadow; }

  signals:
    /// Another project is open, or none.
    void replaced();
    /// What the document holds, or whether that is saved, may have changed.
    void changed();

  private:
    void markAll();

    Managers& m_managers;
    DocumentHistory* m_history;
    mutable MRL_H_ShadowDatabase m_shadow; ///< its host side is asked through host(), which isn't const
};

} // namespace mrl::workbench
