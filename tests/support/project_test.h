#pragma once

#include <gtest/gtest.h>

#include "tests/support/action_builder.h"
#include "tests/support/design_code_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/memory_project.h"

namespace mrl::test {

/// The actions of the design code of ProjectTest; 2 and 7 are the old numbers of G and Q.
inline std::string smallCode() { return sampleCodeOf({"G", "P", "Q", "Q_1", "W", "A", "E"}); }

/// Tests on a project whose design code is smallCode(). Another project is open and current: calls must leave
/// it so.
class ProjectTest : public ::testing::Test
{
  protected:
    ProjectTest() { mrl_cdb_use(other.db(), 0); }

    void useCode(const std::string& text) { project.useCode(text); }
    bool otherIsCurrent() const { return mrl_cdb_status(-1) == other.db(); }

    QTemporaryDir folder;
    MemoryProject other;
    MemoryProject project{smallCode()};
    const int db = project.db();
};

} // namespace mrl::test
