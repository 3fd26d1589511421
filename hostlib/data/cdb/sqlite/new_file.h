#pragma once

#include <string>

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// A project file in the making: built beside its name, and given the name when it is whole. Until then it holds
/// a lock, by which others tell it from the leftover of a process that ended.
class NewFile
{
  public:
    /// Makes an empty file beside the name and removes what dead processes left there; state() tells.
    explicit NewFile(const std::string& path);
    /// Removes what was not published.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const Result& state() const { return m_state; }

    /// An empty project in the file. It has to be closed before the file is published.
    OpenedStore makeStore();

    /// Gives the file its name, unless a file of that name exists by now, and waits until both are on the disk.
    Result publish();

  private:
    int makeBeside();
    void removeDead() const;
    void forget();

    std::string m_name; ///< as the caller wrote it
    std::string m_folder;
    std::string m_prefix; ///< of the names beside it, without the folder
    std::string m_building;
    int m_handle = -1;
    Result m_state;
};

} // namespace mrl::cdb
