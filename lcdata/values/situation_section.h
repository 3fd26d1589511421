#pragma once

/// Reads the entries of one section of a situation; situation_text.cpp puts the sections together.

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "lcdata/values/situation.h"
#include "lcdata/values/situation_terms.h"
#include "lcdata/values/situation_text.h"

/// The roles as they are written.
struct LCM_RoleWord
{
    const char* word;
    LCM_Role role;
};
inline constexpr std::array<LCM_RoleWord, 8> LCM_ROLE_WORDS{{{"G", LCM_Role::Permanent},
                                                             {"P", LCM_Role::Prestress},
                                                             {"lead", LCM_Role::Lead},
                                                             {"others", LCM_Role::Others},
                                                             {"second", LCM_Role::Second},
                                                             {"A", LCM_Role::Accidental},
                                                             {"E", LCM_Role::Seismic},
                                                             {"I", LCM_Role::Imperfection}}};

/// A text without the blanks around it.
std::string lcm_trimmed(const std::string& text);

/// Reads the entries of one section into a situation and one of its expressions. What is handed in outlives it.
class LCM_SituationSectionReader
{
  public:
    LCM_SituationSectionReader(LCM_Situation& situation, LCM_Expression& expression, bool isExpression,
                               LCM_TermReader& terms, std::vector<LCM_SituationFinding>& findings,
                               int section)
        : m_situation(situation), m_expression(expression), m_isExpression(isExpression), m_terms(terms),
          m_findings(findings), m_section(section)
    {
    }

    void read(const std::vector<LCM_TextEntry>& entries);

  private:
    void entry(const std::string& key, const std::vector<std::string>& words, const std::string& value);
    bool common(const std::string& key, const std::string& value);
    bool whole(const std::string& key, const std::string& value);
    void components(const std::string& value);
    void atMost(const std::string& value);
    bool ofExpression(const std::string& key, const std::vector<std::string>& words,
                      const std::string& value);
    void role(LCM_Role role, const std::vector<std::string>& words, const std::string& value);
    bool subject(LCM_RoleEntry& entry, const std::vector<std::string>& words);
    void shortActions(const std::string& value);
    void unknown(const std::string& key);
    bool yes(const std::string& value);
    bool oneOf(const std::string& value, const std::vector<std::string>& words);
    void tell(std::string message, std::string cure);

    LCM_Situation& m_situation;
    LCM_Expression& m_expression;
    bool m_isExpression;
    LCM_TermReader& m_terms;
    std::vector<LCM_SituationFinding>& m_findings;
    int m_section;
    int m_entry = -1;
    int m_place = 0; ///< of the entry that is read
};
