#pragma once

/// Reads situations from the text of a design-code file: the entries of its sections `[SITUATION name]` and
/// `[SITUATION name / expression]`. Pure: how the sections are gathered and inherited is the caller's.

#include <string>
#include <utility>
#include <vector>

#include "lcdata/values/situation.h"

/// One entry of a section, without its comment.
struct LCM_TextEntry
{
    std::string key;
    std::string value;
    int place = 0; ///< where it stands, as the caller counts; kept in what is made of it
};

/// One section: what stands behind the word SITUATION, and the entries in their order.
struct LCM_SituationSection
{
    std::string name;
    std::vector<LCM_TextEntry> entries;
    int place = 0; ///< where it begins
};

/// What is wrong with a section or an entry.
struct LCM_SituationFinding
{
    int section = 0;     ///< its place in what was read
    int entry = -1;      ///< the place of the entry in its section; -1: the section as a whole
    std::string message; ///< what is wrong
    std::string cure;    ///< what to write instead
};

struct LCM_SituationsRead
{
    std::vector<LCM_Situation>
        situations; ///< in the order of their first sections; those without a finding are whole
    std::vector<LCM_SituationFinding> findings;
};

/// Reads all sections and tells every error, not just the first one.
/// @param constants the names of the code's section `[COMBINATIONS]`, KFI and XSI among them
LCM_SituationsRead lcm_read_situations(const std::vector<LCM_SituationSection>& sections,
                                       const std::vector<std::string>& constants);
