#pragma once

/// Lists of words that stand for numbers. An entry of such a list has an `id` and a `word`.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

/// The id that a word stands for; nothing when the list hasn't the word. Upper and lower case differ.
template <class List>
std::optional<int> lcm_id_of_word(const List& list, std::string_view word)
{
    const auto at =
        std::find_if(std::begin(list), std::end(list), [&](const auto& entry) { return entry.word == word; });
    return at == std::end(list) ? std::nullopt : std::optional<int>(at->id);
}

/// The word of an id; the id in digits when the list hasn't the id.
template <class List>
std::string lcm_word_of_id(const List& list, int id)
{
    const auto at =
        std::find_if(std::begin(list), std::end(list), [&](const auto& entry) { return entry.id == id; });
    return at == std::end(list) ? std::to_string(id) : std::string(at->word);
}

/// All words of a list with a comma between them.
template <class List>
std::string lcm_joined_words(const List& list)
{
    std::string words;
    for (const auto& entry : list) {
        words.append(words.empty() ? "" : ", ").append(entry.word);
    }
    return words;
}
