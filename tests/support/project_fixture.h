#pragma once

/// Projects for tests: a database in memory with a small design code of its own.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"
#include "tests/support/action_builder.h"
#include "tests/support/design_code_file.h"
#include "tests/support/load_case_builder.h"

namespace mrl::test {

/// A database in memory that is closed with its end.
class MemoryProject
{
  public:
    MemoryProject() : m_opened(mrl::cdb::openMemory())
    {
        if (!m_opened) {
            throw std::runtime_error(m_opened.result.text);
        }
    }
    ~MemoryProject() { mrl::cdb::close(m_opened.db); }
    MemoryProject(const MemoryProject&) = delete;
    MemoryProject& operator=(const MemoryProject&) = delete;

    int db() const { return m_opened.db; }

    void setDesignCode(const std::string& path) const { check(mrl::cdb::setFact(db(), "designcode", path)); }

    template <class Record>
    void put(int kwh, int kwl, const Record& record) const
    {
        const int length = sizeof record;
        if (mrl_cdb_put(db(), kwh, kwl, &record, &length, 0) != CD_OK) {
            throw std::runtime_error("cannot write a record of a test");
        }
    }
    void putAction(const tagCDB_LC_ACT& record) const
    {
        put(LC_KWH_ACTIONS, lcm_action_code(record), record);
    }
    void putAction(int key, const tagCDB_LC_ACT& record) const { put(LC_KWH_ACTIONS, key, record); }
    void putLoadcase(int number, const tagCDB_LC_CTRL& record) const { put(LC_KWH_CASES, number, record); }
    template <class Record>
    void append(int kwh, int kwl, const Record& record) const
    {
        check(mrl::cdb::append(db(), kwh, kwl, &record, sizeof record));
    }

    /// The first record of a key, empty when there is none.
    std::vector<unsigned char> bytes(int kwh, int kwl) const
    {
        std::vector<unsigned char> buffer(4096);
        int length = static_cast<int>(buffer.size());
        const bool found = mrl_cdb_get(db(), kwh, kwl, buffer.data(), &length, 0) < CD_END;
        mrl_cdb_free_ex(db(), kwh, kwl);
        buffer.resize(found ? static_cast<std::size_t>(length) : 0);
        return buffer;
    }
    template <class Record>
    Record read(int kwh, int kwl) const
    {
        const std::vector<unsigned char> found = bytes(kwh, kwl);
        if (found.size() < sizeof(Record)) {
            throw std::runtime_error("a record of a test is missing or too short");
        }
        Record record;
        std::memcpy(&record, found.data(), sizeof record);
        return record;
    }
    tagCDB_LC_ACT storedAction(const QString& name) const
    {
        return read<tagCDB_LC_ACT>(LC_KWH_ACTIONS, lcm_normalise_code(name));
    }
    tagCDB_LC_CTRL storedLoadcase(int number) const { return read<tagCDB_LC_CTRL>(LC_KWH_CASES, number); }
    bool hasKey(int kwh, int kwl) const { return !bytes(kwh, kwl).empty(); }

    /// What the whole database holds, for "nothing was written".
    mrl::cdb::Fingerprint fingerprint() const
    {
        std::vector<mrl::cdb::Key> keys;
        check(mrl::cdb::keys(db(), keys));
        mrl::cdb::Fingerprint sum;
        for (const mrl::cdb::Key& key : keys) {
            mrl::cdb::Fingerprint one;
            check(mrl::cdb::fingerprint(db(), {key.kwh, key.kwl, key.kwl}, one));
            sum.count += one.count;
            sum.sum += one.sum;
        }
        return sum;
    }

  private:
    static void check(const mrl::cdb::Result& result)
    {
        if (!result) {
            throw std::runtime_error(result.text);
        }
    }

    mrl::cdb::Opened m_opened;
};

/// A design code with G, P, Q, Q_1, W, A and E and all factors; 2 and 7 are the old numbers of G and Q.
inline DesignCodeFile smallDesignCode()
{
    return DesignCodeFile()
        .marks(limits())
        .add(action("G").partition(0x10).gamu(1.35f).gamf(1.0f).title("Permanent"), {2, 4})
        .add(action("P").partition(0x20).gamu(1.0f).gamf(1.0f).title("Prestress"))
        .add(action("Q").partition(0x32).gamu(1.5f).gamf(0.0f).title("Variable"), {7, 12})
        .add(action("Q_1").partition(0x132).gamu(1.5f).gamf(0.0f).title("Group 1"))
        .add(action("W").partition(0x32).gamu(1.5f).gamf(0.0f).psi2(0.0f).title("Wind"))
        .add(action("A").partition(0x42).gamu(1.0f).gamf(0.0f).title("Accidental"))
        .add(action("E").partition(0x52).gamu(1.0f).gamf(0.0f).title("Earthquake"));
}

/// Tests on a project whose design code is smallDesignCode(). Another project is open and current: calls must
/// leave it so.
class ProjectTest : public ::testing::Test
{
  protected:
    ProjectTest()
    {
        useCode(smallDesignCode());
        mrl_cdb_use(other.db(), 0);
    }

    /// Gives the project another design code.
    void useCode(const DesignCodeFile& code)
    {
        project.setDesignCode(code.write(folder, QStringLiteral("code%1.ini").arg(++m_codes)));
    }
    bool otherIsCurrent() const { return mrl_cdb_status(-1) == other.db(); }

    QTemporaryDir folder;
    MemoryProject other;
    MemoryProject project;
    const int db = project.db();

  private:
    int m_codes = 0;
};

inline int codeOf(const char* name) { return lcm_normalise_code(QString::fromUtf8(name)); }

} // namespace mrl::test
