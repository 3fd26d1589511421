#pragma once

#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"

/// A folder of its own for each test, gone with it. In memory where the system has such a place: the many
/// waits for a disk would say nothing about us.
class Folder
{
  public:
    Folder()
    {
        const bool memory = access("/dev/shm", W_OK) == 0;
        const auto parent =
            memory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
        std::string name = (parent / "mrl-cdb-XXXXXX").string();
        if (mkdtemp(name.data()) != nullptr) {
            folder = name;
        }
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(const std::string& name) const { return (folder / name).string(); }
    std::string name() const { return folder.string(); }
    /// The names of what is in it, in order.
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

  private:
    std::filesystem::path folder;
};

inline cd_error_t putText(int db, int kwh, int kwl, const std::string& text, int position = 0)
{
    const int length = static_cast<int>(text.size());
    return mrl_cdb_put(db, kwh, kwl, text.data(), &length, position);
}

inline mrl::cdb::Result appendText(int db, int kwh, int kwl, const std::string& text)
{
    return mrl::cdb::append(db, kwh, kwl, text.data(), static_cast<int>(text.size()));
}

/// A record as text; the result's number in angle brackets when there is none.
inline std::string getText(int db, int kwh, int kwl, int position = 0, int room = 4096)
{
    std::string buffer(static_cast<std::size_t>(room), '#');
    int length = room;
    const int result = mrl_cdb_get(db, kwh, kwl, buffer.data(), &length, position);
    if (result > 1) {
        return "<" + std::to_string(result) + ">";
    }
    return buffer.substr(0, static_cast<std::size_t>(length));
}

/// All records of a key, by a reader that passes 1 each time.
inline std::vector<std::string> allRecords(int db, int kwh, int kwl)
{
    std::vector<std::string> records;
    for (std::string text = getText(db, kwh, kwl); text != "<2>" && text != "<3>";
         text = getText(db, kwh, kwl, 1)) {
        records.push_back(text);
    }
    return records;
}

/// The elements of a group, by a walk that starts behind `from`.
inline std::vector<int> walkUp(int db, int group, int from)
{
    std::vector<int> found;
    int kwh = group;
    int kwl = from;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
    while (kwh == group) {
        found.push_back(kwl);
        mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
    }
    return found;
}

class MemoryProject : public ::testing::Test
{
  protected:
    ~MemoryProject() override { mrl::cdb::close(db); }
    int db = mrl::cdb::openMemory().db;
};

class FileProject : public ::testing::Test
{
  protected:
    ~FileProject() override { mrl::cdb::close(db); }
    Folder folder;
    std::string file = folder / "a.cdb";
    int db = mrl::cdb::create(file).db;
};
