#pragma once

/// A value with what vouches for it: "0.7 {Table A1.1, verified} snow: 0.6 beside leading storage".

#include <optional>
#include <string>
#include <string_view>

#include "host/mrl_export.h"

namespace mrl::designcode {

/// How far a value can be trusted.
enum class State {
    Unverified, ///< nobody vouches for it; the state of a value without a clause
    OneSource,  ///< one public transcription of the standard
    Verified,   ///< two independent transcriptions or more; never a look into the printed standard
    OwnChoice   ///< the standard leaves it open or states it otherwise; the file's author chose
};

/// The word of a state in a file and for people: "verified", "one source", "unverified", "own choice".
MRL_HOST_API std::string_view wordOf(State state);

/// The state of a word, nothing for any other one.
std::optional<State> stateOf(std::string_view word);

/// What vouches for a value.
struct Source
{
    std::string clause; ///< clause and table of the standard; empty when none is stated
    State state = State::Unverified;
    std::string note; ///< what one factor can't say
};

/// An entry's value taken apart.
struct Annotated
{
    std::string value; ///< what stands ahead of the brace
    Source source;
};

/// Takes "VALUE {CLAUSE, STATE} NOTE" apart. Without a brace the whole text is the value. Without a state word
/// behind the last comma the brace holds the clause alone, and the value is unverified.
/// @return nothing when a brace is not closed
std::optional<Annotated> annotated(std::string_view text);

} // namespace mrl::designcode
