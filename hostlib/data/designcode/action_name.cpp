#include "hostlib/data/designcode/action_name.h"

#include <algorithm>

#include "lcdata/values/action_code.h"

namespace mrl::designcode {

namespace {

bool isPrintableAscii(char c) { return c > 0x20 && c < 0x7F; }

} // namespace

std::optional<std::string> setName(std::string_view joined, tagCDB_LC_ACT& record)
{
    if (!std::all_of(joined.begin(), joined.end(), isPrintableAscii)) {
        return "the name of an action holds printable ASCII characters only, and no blank";
    }
    const auto cut = joined.find('_');
    const std::string_view first = joined.substr(0, cut);
    if (first.empty() || first.size() > 4) {
        return "the first part of an action's name has 1 to 4 characters";
    }
    std::int32_t suffixWord = 0;
    if (cut != std::string_view::npos) {
        const std::string_view suffix = joined.substr(cut + 1);
        if (suffix.empty() || suffix.size() > 4 || suffix.find('_') != std::string_view::npos) {
            return "the suffix of an action's name has 1 to 4 characters and no further '_'";
        }
        if (first.size() == 4) {
            return "only a first part of at most 3 characters can carry a suffix";
        }
        suffixWord = lcm_pack_bytes(suffix);
    }
    lcm_word_to_chars(lcm_pack_bytes(first), record.name);
    record.suffix = suffixWord;
    return std::nullopt;
}

} // namespace mrl::designcode
