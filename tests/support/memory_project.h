#pragma once

/// A project in memory with a design code of the test's own.

#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"
#include "tests/support/sample_code.h"

namespace mrl::test {

/// A database in memory that is closed with its end. What the database refuses ends the test.
class MemoryProject
{
  public:
    /// A project without a design code.
    MemoryProject() : m_opened(mrl::cdb::openMemory()) { check(m_opened.result); }
    /// @param designCode the text of a design-code file
    explicit MemoryProject(const std::string& designCode) : MemoryProject() { useCode(designCode); }
    ~MemoryProject() { mrl::cdb::close(m_opened.db); }
    MemoryProject(const MemoryProject&) = delete;
    MemoryProject& operator=(const MemoryProject&) = delete;

    int db() const { return m_opened.db; }

    /// Names the design code. @param code a path, or the name of a shipped one
    void setDesignCode(const std::string& code) const { check(mrl::cdb::setFact(db(), "designcode", code)); }
    /// Gives the project another design code. @param text what its file holds
    void useCode(const std::string& text)
    {
        const QString name = QStringLiteral("code%1.ini").arg(++m_codes);
        const std::string file = m_folder.filePath(name).toStdString();
        std::ofstream(file) << text;
        setDesignCode(file);
    }
    /// @param rawClass 0 spatial, 1 to 19 plane, 20 to 39 plate
    /// @param gravity  1 to 3 along the axis, negative against it
    void setSystem(int rawClass, int gravity) const
    {
        std::array<int, 88> record{rawClass, gravity};
        put(LC_KWH_SYSTEM, 0, record);
    }

    template <class Record>
    void put(int kwh, int kwl, const Record& record) const
    {
        const int length = sizeof record;
        if (mrl_cdb_put(db(), kwh, kwl, &record, &length, 0) != CD_OK) {
            throw std::runtime_error("cannot write a record of a test");
        }
    }
    template <class Record>
    void append(int kwh, int kwl, const Record& record) const
    {
        check(mrl::cdb::append(db(), kwh, kwl, &record, sizeof record));
    }
    void putAction(const tagCDB_LC_ACT& record) const { putAction(lcm_action_code(record), record); }
    void putAction(int key, const tagCDB_LC_ACT& record) const { put(LC_KWH_ACTIONS, key, record); }
    void putLoadCase(int number, const tagCDB_LC_CTRL& record) const { put(LC_KWH_CASES, number, record); }
    /// Superposition data, of which a change of actions warns.
    void putSuperposition() const { put(LC_KWH_ACTIONS, 5, std::array<int, 28>{1}); }

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
        return read<tagCDB_LC_ACT>(LC_KWH_ACTIONS, lcm_pack_word(name));
    }
    /// The stored actions by the four characters of their code; what a record lacks is 0.
    std::map<std::string, tagCDB_LC_ACT> storedActions() const
    {
        std::map<std::string, tagCDB_LC_ACT> actions;
        for (const int code : elementsOf(LC_KWH_ACTIONS)) {
            char text[5] = {};
            lcm_word_to_chars(code, text);
            const std::vector<unsigned char> found = bytes(LC_KWH_ACTIONS, code);
            std::memcpy(&actions[text], found.data(), std::min(found.size(), sizeof(tagCDB_LC_ACT)));
        }
        return actions;
    }
    tagCDB_LC_CTRL storedLoadCase(int number) const { return read<tagCDB_LC_CTRL>(LC_KWH_CASES, number); }
    std::vector<int> storedNumbers() const { return elementsOf(LC_KWH_CASES); }
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
    /// The elements of a group above 0, ascending.
    std::vector<int> elementsOf(int group) const
    {
        std::vector<mrl::cdb::Key> keys;
        check(mrl::cdb::keys(db(), keys));
        std::vector<int> elements;
        for (const mrl::cdb::Key& key : keys) {
            if (key.kwh == group && key.kwl > 0) {
                elements.push_back(key.kwl);
            }
        }
        return elements;
    }

    mrl::cdb::Opened m_opened;
    QTemporaryDir m_folder; ///< holds the design codes
    int m_codes = 0;
};

} // namespace mrl::test
