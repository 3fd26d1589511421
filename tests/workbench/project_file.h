#pragma once

/// A project file in a folder of its own, and what is in it.

#include <QTemporaryDir>

#include <string>

#include "hostlib/data/cdb/project.h"
#include "tests/support/project_test.h"
#include "workbench/new_project.h"

namespace mrl::test {

/// Opens a project file for a moment, as another program does.
class OtherProgram
{
  public:
    explicit OtherProgram(const QString& file) : m_opened(cdb::open(file.toStdString()))
    {
        if (!m_opened) {
            throw std::runtime_error(m_opened.result.text);
        }
    }
    ~OtherProgram() { cdb::close(m_opened.db); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    int db() const { return m_opened.db; }
    template <class Record>
    void put(int kwh, int kwl, const Record& record) const
    {
        const int length = sizeof record;
        if (mrl_cdb_put(db(), kwh, kwl, &record, &length, 0) != CD_OK) {
            throw std::runtime_error("cannot write a record of a test");
        }
        mrl_cdb_free_ex(db(), kwh, kwl);
    }
    bool has(int kwh, int kwl) const
    {
        char buffer[4096];
        int length = sizeof buffer;
        const bool found = mrl_cdb_get(db(), kwh, kwl, buffer, &length, 0) < CD_END;
        mrl_cdb_free_ex(db(), kwh, kwl);
        return found;
    }
    tagCDB_LC_CTRL storedLoadCase(int number) const
    {
        tagCDB_LC_CTRL record{};
        int length = sizeof record;
        mrl_cdb_get(db(), LC_KWH_CASES, number, &record, &length, 0);
        mrl_cdb_free_ex(db(), LC_KWH_CASES, number);
        return record;
    }

  private:
    cdb::Opened m_opened;
};

class ProjectFile
{
  public:
    explicit ProjectFile(const QString& designCode = QStringLiteral("en1990"),
                         bool withDefaultActions = false)
    {
        workbench::NewProject wish;
        wish.file = path();
        wish.designCode = designCode;
        wish.withDefaultActions = withDefaultActions;
        const QString reason = workbench::createProject(wish);
        if (!reason.isEmpty()) {
            throw std::runtime_error(reason.toStdString());
        }
    }

    QString path(const QString& name = QStringLiteral("tower.cdb")) const { return m_folder.filePath(name); }

  private:
    QTemporaryDir m_folder;
};

} // namespace mrl::test
