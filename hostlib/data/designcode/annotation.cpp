#include "hostlib/data/designcode/annotation.h"

#include <algorithm>
#include <iterator>

namespace mrl::designcode {

namespace {

struct StateWord
{
    std::string_view word;
    State state;
};

constexpr StateWord STATE_WORDS[] = {{"unverified", State::Unverified},
                                     {"one source", State::OneSource},
                                     {"verified", State::Verified},
                                     {"own choice", State::OwnChoice}};

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

void takeSource(std::string_view source, Source& out)
{
    const auto comma = source.rfind(',');
    const auto last = trimmed(comma == std::string_view::npos ? source : source.substr(comma + 1));
    const auto state = stateOf(last);
    out.state = state.value_or(State::Unverified);
    if (!state) {
        out.clause = trimmed(source);
    } else if (comma != std::string_view::npos) {
        out.clause = trimmed(source.substr(0, comma));
    }
}

} // namespace

std::string_view wordOf(State state)
{
    const auto* it = std::find_if(std::begin(STATE_WORDS), std::end(STATE_WORDS),
                                  [&](const StateWord& entry) { return entry.state == state; });
    return it->word;
}

std::optional<State> stateOf(std::string_view word)
{
    const auto* it = std::find_if(std::begin(STATE_WORDS), std::end(STATE_WORDS),
                                  [&](const StateWord& entry) { return entry.word == word; });
    return it == std::end(STATE_WORDS) ? std::nullopt : std::optional(it->state);
}

std::optional<Annotated> annotated(std::string_view text)
{
    Annotated out;
    const auto open = text.find('{');
    out.value = trimmed(text.substr(0, open));
    if (open == std::string_view::npos) {
        return out;
    }
    const auto close = text.find('}', open);
    if (close == std::string_view::npos) {
        return std::nullopt;
    }
    takeSource(trimmed(text.substr(open + 1, close - open - 1)), out.source);
    out.source.note = trimmed(text.substr(close + 1));
    return out;
}

} // namespace mrl::designcode
