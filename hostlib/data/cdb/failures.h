#pragma once

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

/// The first error of a database since it was asked to forget, for callers that learn of a failure by a bare
/// result code.
class Failures
{
  public:
    /// Keeps an error unless there is an earlier one. @return the error
    Result keep(Result error)
    {
        if (m_first) {
            m_first = error;
        }
        return error;
    }
    const Result& first() const { return m_first; }
    void forget() { m_first = {}; }

  private:
    Result m_first;
};

} // namespace mrl::cdb
