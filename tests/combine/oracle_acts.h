#pragma once

/// How the oracle sees a model: actions with all selections of their load cases that their codes allow.

#include <array>
#include <string>
#include <vector>

#include "combine/model.h"

namespace oracle {

/// What a load case does: '0' nothing, 'u' and 'f' the unfavourable and the favourable factor, 'c' and 'd' the first
/// and the other component; capitals with the other sign.
using Selection = std::string;

struct Act
{
    std::string name;
    std::string first; // part of the name, without the suffix
    mrl::combine::Category category = mrl::combine::Category::Variable;
    mrl::combine::Superposition code = LC_SUPERPOSITION_COND;
    int group = 0;
    bool isImperfection = false;
    bool isExex = false; // excludes the other suffixes of its first part, also where it acts always
    std::array<double, 7> factors{};
    std::vector<std::size_t> cases; // in Model::loadCases
    std::string block;              // variable actions with the same one act as one
    std::vector<Selection> selections;

    bool isVariable() const { return category == mrl::combine::Category::Variable && !isImperfection; }
};

/// The first part of an action's name.
std::string first(const std::string& name);

/// How many letters of a word are among some.
long occurrences(const Selection& word, const std::string& of);

/// The actions that have load cases.
std::vector<Act> actsOf(const mrl::combine::Model& model, const LCM_Situation& situation);

} // namespace oracle
