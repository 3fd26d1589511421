#include "cli/words.h"

#include "cli/output.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

std::string actionName(int code) { return printable(lcm_code_name(code)); }

std::string actionWordText(int word)
{
    switch (word) {
    case LC_ACTION_NONE:
        return {};
    case LC_ACTION_IMPERFECTION:
        return "IMP";
    default:
        return printable(lcm_word_name(word));
    }
}

} // namespace mrl::cli
