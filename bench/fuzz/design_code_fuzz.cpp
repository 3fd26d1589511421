#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <variant>

#include "hostlib/data/designcode/designcode.h"

// An input is either a piece of text that replaces a part of a sound design code (first byte even; then two
// bytes for the place and one for the length of the part) or a whole file (first byte odd). Neither may
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
)";

std::string textOf(const std::uint8_t* data, std::size_t size)
{
    const std::string rest(reinterpret_cast<const char*>(data) + std::min<std::size_t>(size, 4),
                           size - std::min<std::size_t>(size, 4));
    if (size < 4 || data[0] % 2 != 0) {
        return std::string(reinterpret_cast<const char*>(data), size);
    }
    std::string text = SOUND;
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
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = textOf(data, size);
    const auto result = mrl::designcode::parse(text, "fuzz.ini");
    if (const auto* errors = std::get_if<mrl::designcode::Errors>(&result)) {
        const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
        require(!errors->empty());
        for (const mrl::designcode::Error& error : *errors) {
            require(!error.reason.empty() && error.line >= 0 && error.line <= lines);
        }
    } else {
        checkRead(std::get<mrl::designcode::DesignCode>(result));
    }
    return 0;
}
