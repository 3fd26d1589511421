#pragma once

/// The design code of the tests as text; a test changes lines of it and chooses among its actions.

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <string>

namespace mrl::test {

/// A sound code that knows every factor, each Psi up to 1, with actions of every category.
inline const std::string SAMPLE_CODE = R"([DESIGN CODE]
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
Psi1s = 1
[COMBINATIONS]
KFI = 1.1
XSI = 0.85
[ACTIONS]
TXT_GAMU = gU
TXT_GAMF = gF
TXT_GAMA = gA
TXT_PSI0 = p0
TXT_PSI1 = p1
TXT_PSI2 = p2
TXT_PSI1S = p1s
[ACTION G]
title = Permanent load
category = G
superposition = PERM
old = 2, 4
Gamu = 1.35
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
Psi1s = 1.0
[ACTION P]
title = Prestress
category = P
superposition = PERM
Gamu = 1.0
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
Psi1s = 1.0
[ACTION Q]
title = Variable load
category = Q
superposition = EXCL
old = 7, 12
Gamu = 1.5
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
Psi1s = 0.8
[ACTION Q_1]
title = Offices
category = Q
group = 1
superposition = COND
Gamu = 1.5
Gama = 1.0
Psi0 = 0.7
Psi1 = 0.5
Psi2 = 0.3
Psi1s = 0.6
[ACTION Q_2]
title = Storage
category = Q
group = 2
superposition = COND
Gamu = 1.5
Gama = 1.0
Psi0 = 1.0
Psi1 = 0.9
Psi2 = 0.8
Psi1s = 0.9
[ACTION W]
title = Wind
category = Q
superposition = EXCL
Gamu = 1.5
Gama = 1.0
Psi0 = 0.6
Psi1 = 0.2
Psi1s = 0.6
[ACTION W_1]
title = Wind from the left
category = Q
superposition = EXCL
Gamu = 1.5
Gama = 1.0
Psi0 = 0.6
Psi1 = 0.2
Psi1s = 0.6
[ACTION W_2]
title = Wind from the right
category = Q
superposition = EXCL
Gamu = 1.5
Gama = 1.0
Psi0 = 0.6
Psi1 = 0.2
Psi1s = 0.6
[ACTION A]
title = Impact
category = A
superposition = EXEX
Gamu = 1.0
Gamf = 1.0
Gama = 1.0
Psi0 = 1.0
Psi1 = 1.0
Psi2 = 1.0
Psi1s = 1.0
[ACTION E]
title = Earthquake
category = E
superposition = EXCL
Gamu = 1.0
Gama = 1.0
)";

/// A text with the first occurrence of a part replaced.
inline std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t place = text.find(from);
    if (place == std::string::npos) {
        throw std::invalid_argument("the text has no " + from);
    }
    return text.replace(place, from.size(), to);
}

/// A text without the lines that begin with a word.
inline std::string withoutLines(const std::string& text, const std::string& word)
{
    std::string result;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
        end = text.find('\n', at) + 1;
        if (text.compare(at, word.size(), word) != 0) {
            result.append(text, at, end - at);
        }
    }
    return result;
}

/// The sample with these of its actions alone, in its own order.
inline std::string sampleCodeOf(std::initializer_list<const char*> names)
{
    const std::string begin = "[ACTION ";
    std::size_t at = SAMPLE_CODE.find(begin);
    std::string text = SAMPLE_CODE.substr(0, at);
    while (at < SAMPLE_CODE.size()) {
        const std::size_t end = std::min(SAMPLE_CODE.find(begin, at + 1), SAMPLE_CODE.size());
        for (const char* name : names) {
            const std::string section = begin + name + "]";
            if (SAMPLE_CODE.compare(at, section.size(), section) == 0) {
                text.append(SAMPLE_CODE, at, end - at);
            }
        }
        at = end;
    }
    return text;
}

} // namespace mrl::test
