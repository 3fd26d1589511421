#include "workbench/document.h"

#include <QGuiApplication>

#include "hostlib/ui/framework/failure_text.h"
#include "hostlib/ui/framework/project_document.h"
#include "lcdata/values/keys.h"
#include "workbench/design_code_failure.h"
#include "workbench/document_history.h"
#include "workbench/managers.h"

namespace mrl::workbench {

namespace {

/// Large projects take their time, and another program may hold the file for seconds before a write gives up.
struct WaitCursor
{
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

Document::Document(Managers& managers, QObject* parent)
    : QObject(parent), m_managers(managers), m_history(new DocumentHistory(this))
{
    connect(m_history, &DocumentHistory::documentChanged, this, &Document::changed);
}

Document::~Document() { m_shadow.host().close(); }

QString Document::open(const QString& file)
{
    const WaitCursor cursor;
    auto& host = m_shadow.host();
    if (const auto opened = host.open(file); !opened) {
        return ui::failureText(opened);
    }
    if (m_managers.isLoaded()) {
        m_managers.load(m_shadow);
    }
    const auto refreshed = host.refreshFailure();
    if (!refreshed) {
        close();
        return ui::failureText(refreshed);
    }
    m_history->begin(database());
    emit replaced();
    return QString();
}

void Document::close()
{
    m_shadow.host().close();
    m_history->begin(-1);
    emit replaced();
}

void Document::runStep(const QString& name, const std::function<void()>& command)
{
    m_history->record(name, command);
}

bool Document::isOpen() const { return database() >= 0; }

bool Document::isReadOnly() const { return m_shadow.host().isReadOnly(); }

QString Document::readOnlyReason() const { return ui::failureText(m_shadow.host().whyReadOnly()); }

QString Document::file() const { return m_shadow.host().path(); }

bool Document::isModified() const { return isOpen() && m_shadow.host().hasChanges(); }

int Document::database() const { return m_shadow.index(); }

int Document::fileDatabase() const { return m_shadow.host().file(); }

QString Document::designCodeFailure() const { return mrl::workbench::designCodeFailure(database()); }

void Document::markAll()
{
    m_managers.markForSaving(m_shadow);
    // The current load case belongs to no manager: the functions that other modules call move it.
    m_shadow.addSaveKwh(LC_KWH_CURRENT, LC_KWL_CURRENT, LC_KWL_CURRENT);
}

void Document::markSystem() { m_shadow.addSaveKwh(LC_KWH_SYSTEM, 0, 0); }

Document::Result Document::save(bool overwrite)
{
    const WaitCursor cursor;
    markAll();
    const auto saved = m_shadow.host().save(overwrite ? ui::OnConflict::Overwrite : ui::OnConflict::Report);
    emit changed();
    switch (saved.outcome) {
    case ui::SaveOutcome::Saved:
        return {};
    case ui::SaveOutcome::Conflict:
        return {Outcome::Conflict, QString()};
    case ui::SaveOutcome::Failed:
        break;
    }
    return {Outcome::Failed, ui::failureText(saved.failure)};
}

QString Document::reload()
{
    const WaitCursor cursor;
    const auto reloaded = m_shadow.host().reload();
    return reloaded ? QString() : ui::failureText(reloaded);
}

Document::Result Document::saveAs(const QString& file)
{
    const WaitCursor cursor;
    markAll();
    const auto saved = m_shadow.host().saveAs(file);
    emit changed();
    if (saved) {
        return {};
    }
    return {Outcome::Failed, ui::failureText(saved)};
}

} // namespace mrl::workbench
