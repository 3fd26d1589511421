#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <variant>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/effective.h"

// An input is either a piece of text that replaces a part of a sound design code (first byte even; then two
// bytes for the place and one for the length of the part; from 128 on the sound code is an annex to one) or a whole
// file (first byte odd). Neither may
// crash; what is read keeps the promises that its users rely on, and an error names a line that is there.

namespace {

const std::string SOUND = R"([DESIGN CODE]
label = Sound
ntcode = 0
idcode = 2
country = 45
year = 2004
[AVAILABILITY]
Gamu = 1
Gama = 1
Psi1 = 1
Psi2 = 1
Psi1s = 1
[COMBINATIONS]
KFI = 1.1 ; comment
[ACTIONS]
TXT_GAMU = γG,sup
[ACTION G]
title = Permanent load
category = G
superposition = PERM
old = 2, 3
Gamu = 1.35
[ACTION Q_A]
category = Q
group = 1
superposition = EXCL
old = 7
Psi1 = 0.5
[SITUATION persistent]
kind = ultimate
G = KFI*Gamu | Gamf
P = 1
lead = KFI*Gamu
others = KFI*Gamu*Psi0
others Q_A when Q leads = 0.5
A = none
E = none
[SITUATION listed / 1]
sum = 1.6*Q + (0.5*Q_A or 0.3*G)
)";

const std::string ANNEX = R"([DESIGN CODE]
base = sound
label = Annex
[ACTION G]
Gamu = 1.2 {NA, one source} note
[ACTION Q_A]
remove = yes
[ACTION Q]
after = G
title[de] = Last
category = Q
superposition = COND
[SITUATION persistent]
state = verified
)";

/// Names lead to the sound code, to the text itself or nowhere.
mrl::designcode::BaseOf basesOf(const std::string& text)
{
    using Base = std::variant<mrl::designcode::FileText, std::string>;
    return [text](const std::string& name, const mrl::designcode::FileText& /*from*/) -> Base {
        if (name == "sound") {
            return mrl::designcode::FileText{"sound.ini", SOUND};
        }
        return name == "fuzz" ? Base(mrl::designcode::FileText{"fuzz.ini", text}) : Base(std::string("none"));
    };
}

std::string textOf(const std::uint8_t* data, std::size_t size)
{
    const std::string rest(reinterpret_cast<const char*>(data) + std::min<std::size_t>(size, 4),
                           size - std::min<std::size_t>(size, 4));
    if (size < 4 || data[0] % 2 != 0) {
        return std::string(reinterpret_cast<const char*>(data), size);
    }
    std::string text = data[3] < 128 ? SOUND : ANNEX;
    return text.replace((data[1] * 256u + data[2]) % text.size(), data[3] % 32u, rest);
}

void require(bool kept)
{
    if (!kept) {
        std::abort();
    }
}

void checkRead(const mrl::designcode::DesignCode& code)
{
    std::set<int> codes;
    std::set<int> oldNumbers;
    for (const auto& action : code.actions) {
        require(action.record.kind == 1 && action.code > 0x20202020 && codes.insert(action.code).second);
        require(action.record.title[LC_TITLE_WORDS - 1] >> 16 == 0);
        require(action.record.partition / 16 % 16 >= 1 && action.record.partition / 16 % 16 <= 5);
        for (const int number : action.oldNumbers) {
            require(number >= 1 && number <= 999 && oldNumbers.insert(number).second);
        }
    }
    require(code.actions.size() <= 999 && !code.label.empty());
    mrl::designcode::warnings(code);
    // What readers by file name get says the same.
    const auto flat = mrl::designcode::parse(code.flat, "flat.ini");
    require(std::holds_alternative<mrl::designcode::DesignCode>(flat));
    require(mrl::designcode::differences(code, std::get<mrl::designcode::DesignCode>(flat)).empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = textOf(data, size);
    const auto result = mrl::designcode::parse(mrl::designcode::FileText{"fuzz.ini", text}, basesOf(text));
    if (const auto* errors = std::get_if<mrl::designcode::Errors>(&result)) {
        const auto lines = std::max(std::count(text.begin(), text.end(), '\n'),
                                    std::count(SOUND.begin(), SOUND.end(), '\n')) +
                           1;
        require(!errors->empty());
        for (const mrl::designcode::Error& error : *errors) {
            require(!error.reason.empty() && error.line >= 0 && error.line <= lines);
        }
    } else {
        checkRead(std::get<mrl::designcode::DesignCode>(result));
    }
    return 0;
}
