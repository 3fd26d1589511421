#include "cli/command_project.h"

#include <utility>

#include "cli/failure.h"
#include "host/mrl_dlib.h"

namespace mrl::cli {

namespace {

void throwUnless(const cdb::Result& result)
{
    if (!result) {
        throw Failure{result.code == cdb::Code::Exists ? ExitCode::Refused : ExitCode::File, result.text};
    }
}

} // namespace

Project::Project(const cdb::Opened& opened, std::string file, Access access)
    : m_handle(opened.db), m_name(std::move(file))
{
    throwUnless(opened.result);
    // A project without a design code is still a project; those who need one ask for it.
    mrl_dlib_ini_switch(db());
    if (access == Access::Write) {
        m_transaction = std::make_unique<cdb::Transaction>(db());
        throwUnless(m_transaction->state());
    }
}

void Project::create(const std::string& file, const std::function<void(Project&)>& fill)
{
    const cdb::Opened made = cdb::create(file, [&](int db) {
        Project project({{}, db}, file, Access::Write);
        fill(project);
        return cdb::Result{};
    });
    throwUnless(made.result);
    cdb::close(made.db);
}

std::map<std::string, std::string> Project::facts() const
{
    std::map<std::string, std::string> facts;
    throwUnless(cdb::facts(db(), facts));
    return facts;
}

void Project::commit() { throwUnless(m_transaction->commit()); }

void Project::refuse(const std::string& reason) const
{
    throwOnError();
    throw Failure{ExitCode::Refused, m_name + ": " + reason};
}

void Project::throwOnError() const { throwUnless(cdb::stickyError(db())); }

} // namespace mrl::cli
