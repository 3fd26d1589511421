#include "cli/key_text.h"

#include <cstring>

#include "cli/words.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

std::string keyText(int kwh, int kwl)
{
    const bool isAction = kwh == LC_KWH_ACTIONS && kwl >= LC_BLANK_WORD;
    return std::to_string(kwh) + "/" + (isAction ? actionName(kwl) : std::to_string(kwl));
}

int kindOf(const std::string& record)
{
    int kind = 0;
    if (record.size() >= sizeof kind) {
        std::memcpy(&kind, record.data(), sizeof kind);
    }
    return kind;
}

} // namespace mrl::cli
