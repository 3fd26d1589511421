#pragma once

/// A small design code as text, whose lines a test of the reader replaces: it leaves out what SAMPLE_CODE of the other
/// tests states, a title and a mark among it.

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "hostlib/data/designcode/designcode.h"

namespace mrl::test {

/// A sound code with the actions G, Q and Q_A and no warning.
inline const std::string READER_SAMPLE = R"([DESIGN CODE]
label = Sample
ntcode = 0
idcode = 2
country = 0
year = 2002
[AVAILABILITY]
Gamu = 1
Gamf = 1
Gama = 1
Psi0 = 1
Psi1 = 1
Psi2 = 1
[COMBINATIONS]
KFI = 1.1
XSI = 0.85
[ACTIONS]
TXT_GAMU = γG,sup
TXT_GAMF = γG,inf
[ACTION G]
title = Permanent load
category = G
superposition = PERM
old = 2, 3
Gamu = 1.35
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
[ACTION Q]
title = Variable load
category = Q
superposition = COND
old = 7
Gamu = 1.5
Gamf = 0
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
[ACTION Q_A]
category = Q
group = 1
superposition = EXCL
Gamu = 1.5
Gamf = 0
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
)";

/// The sample with the first occurrence of a text replaced by another.
inline std::string sampleWith(const std::string& from, const std::string& to,
                              const std::string& sample = READER_SAMPLE)
{
    std::string text = sample;
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << "the sample has no " << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

inline designcode::DesignCode parsed(const std::string& text)
{
    auto result = designcode::parse(text, "sample.ini");
    if (const auto* errors = std::get_if<designcode::Errors>(&result)) {
        ADD_FAILURE() << errors->front().text();
        return {};
    }
    return std::get<designcode::DesignCode>(std::move(result));
}

/// The errors of a text that must not be readable, a line each.
inline std::string errorOf(const std::string& text)
{
    const auto result = designcode::parse(text, "bad.ini");
    const auto* errors = std::get_if<designcode::Errors>(&result);
    if (errors == nullptr) {
        return "readable";
    }
    std::string all;
    for (const designcode::Error& error : *errors) {
        all += (all.empty() ? "" : "\n") + error.text();
    }
    return all;
}

} // namespace mrl::test
