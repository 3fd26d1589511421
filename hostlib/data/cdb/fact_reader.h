#pragma once

#include <map>
#include <string>

#include "hostlib/data/cdb/failures.h"
#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// Reads the project's facts and keeps them until the next commit of any program.
class FactReader
{
  public:
    FactReader(Store& store, Failures& failures) : m_store(store), m_failures(failures) {}

    /// @return empty when the fact isn't set or can't be read
    std::string fact(const std::string& name);
    /// All facts by name. @param out [out] those read so far on failure
    Result facts(std::map<std::string, std::string>& out);

    /// A fact is being written, or the content is another one.
    void drop() { m_known.clear(); }

  private:
    Result check(const Fact& fact);

    Store& m_store;
    Failures& m_failures;
    std::map<std::string, std::string> m_known; ///< read since the mark; without damaged ones
    ChangeMark m_mark;
};

} // namespace mrl::cdb
