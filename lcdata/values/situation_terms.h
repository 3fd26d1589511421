#pragma once

/// Reads the right-hand side of an entry of a situation: products, pairs with a bar, sums with brackets.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lcdata/values/situation.h"

/// What is wrong with a text, and what to write instead.
struct LCM_TermError
{
    std::string message;
    std::string cure;
};

/// A factor as it is written: `KFI*Gamu | Gamf`, `none`.
struct LCM_TermPair
{
    std::optional<LCM_Term> unfavourable; ///< nothing: `none`
    std::optional<LCM_Term> favourable;   ///< nothing: there is no bar
};

/// Reads terms, knowing the constants that they may name.
class LCM_TermReader
{
  public:
    explicit LCM_TermReader(std::vector<std::string> constants);

    /// @return nothing when the text can't be read; error() tells why
    std::optional<LCM_TermPair> pair(const std::string& text);
    std::optional<std::vector<LCM_Bracket>> sum(const std::string& text);
    /// One number from 0 up, or several that stand behind each other with commas.
    std::optional<std::vector<double>> numbers(const std::string& text);

    const LCM_TermError& error() const { return m_error; }

  private:
    struct Word
    {
        char kind; ///< 'n' a name, '0' a number, else the sign itself; 0 behind the last word
        std::string text;
        double number;
    };

    bool split(const std::string& text);
    bool number(const std::string& text, std::size_t& at);
    bool name(const std::string& text, std::size_t& at);
    bool take(char kind);
    bool fail(std::string message, std::string cure);
    bool unknown(const std::string& word);
    bool product(LCM_Term& term, std::string* action);
    bool part(LCM_Term& term, std::string* action);
    bool bracket(LCM_Bracket& bracket);
    bool end();

    std::vector<std::string> m_constants;
    std::vector<Word> m_words;
    std::size_t m_at = 0;
    LCM_TermError m_error;
};

/// The word of a list that is nearest to a misspelt one; empty when none is near.
std::string lcm_nearest_word(const std::string& word, const std::vector<std::string>& words);
