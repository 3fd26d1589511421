#include "lcdata/values/situation_terms.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <numeric>

namespace {

bool isNameStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0 || (c & 0x80) != 0; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isNamePart(char c) { return isNameStart(c) || isDigit(c) || c == '_'; }

std::size_t distance(const std::string& a, const std::string& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const bool same = std::tolower(static_cast<unsigned char>(a[i])) ==
                              std::tolower(static_cast<unsigned char>(b[j]));
            const std::size_t replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

} // namespace

std::string lcm_nearest_word(const std::string& word, const std::vector<std::string>& words)
{
    std::string best;
    std::size_t least = std::min<std::size_t>(3, word.size() / 2 + 1); // further away it is another word
    for (const std::string& candidate : words) {
        const std::size_t far = distance(word.substr(0, 40), candidate);
        if (far < least) {
            least = far;
            best = candidate;
        }
    }
    return best;
}

LCM_TermReader::LCM_TermReader(std::vector<std::string> constants) : m_constants(std::move(constants)) {}

bool LCM_TermReader::fail(std::string message, std::string cure)
{
    m_error = {std::move(message), std::move(cure)};
    return false;
}

bool LCM_TermReader::unknown(const std::string& word)
{
    std::vector<std::string> words;
    std::string factors;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        words.emplace_back(factor.key);
        factors += words.back() + ", ";
    }
    words.insert(words.end(), m_constants.begin(), m_constants.end());
    const std::string nearest = lcm_nearest_word(word, words);
    return fail("'" + word + "' is neither a factor nor a constant of [COMBINATIONS]",
                nearest.empty() ? "write a number or one of " + factors + "KFI, XSI" : "write " + nearest);
}

bool LCM_TermReader::number(const std::string& text, std::size_t& at)
{
    std::size_t end = at;
    while (end < text.size() && (isDigit(text[end]) || text[end] == '.' || text[end] == ',')) {
        // A comma ends a number unless digits follow at once: a list has a blank behind its commas.
        if (text[end] == ',' && (end + 1 == text.size() || !isDigit(text[end + 1]))) {
            break;
        }
        ++end;
    }
    const std::string digits = text.substr(at, end - at);
    if (digits.find(',') != std::string::npos) {
        return fail("'" + digits + "' is no number",
                    "write a point: a comma separates numbers and needs a blank behind it");
    }
    double value = 0;
    const auto [rest, code] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (code != std::errc{} || rest != digits.data() + digits.size() || !std::isfinite(value)) {
        return fail("'" + digits + "' is no number", "write digits with one point, such as 1.35");
    }
    if (end < text.size() && isNamePart(text[end])) {
        return fail("a sign is missing behind '" + digits + "'",
                    "write " + digits + "*" + text.substr(end, 1) + "...");
    }
    m_words.push_back({'0', digits, value});
    at = end;
    return true;
}

bool LCM_TermReader::name(const std::string& text, std::size_t& at)
{
    const std::size_t begin = at;
    while (at < text.size() && isNamePart(text[at])) {
        ++at;
    }
    m_words.push_back({'n', text.substr(begin, at - begin), 0});
    return true;
}

bool LCM_TermReader::split(const std::string& text)
{
    m_words.clear();
    m_at = 0;
    m_error = {};
    std::size_t at = 0;
    while (at < text.size()) {
        const char c = text[at];
        if (c == ' ' || c == '\t') {
            ++at;
        } else if (isDigit(c) || (c == '.' && at + 1 < text.size() && isDigit(text[at + 1]))) {
            if (!number(text, at)) {
                return false;
            }
        } else if (isNameStart(c)) {
            name(text, at);
        } else if (std::string_view("*|+(),").find(c) != std::string_view::npos) {
            m_words.push_back({c, std::string(1, c), 0});
            ++at;
        } else {
            return fail("'" + std::string(1, c) + "' has no meaning here",
                        "a term is a product of numbers and names, joined by *");
        }
    }
    m_words.push_back({0, "", 0});
    return true;
}

bool LCM_TermReader::take(char kind)
{
    if (m_words[m_at].kind != kind) {
        return false;
    }
    ++m_at;
    return true;
}

bool LCM_TermReader::end()
{
    return take(0) ||
           fail("'" + m_words[m_at].text + "' is too much here", "end the entry before it, or join it by *");
}

bool LCM_TermReader::part(LCM_Term& term, std::string* action)
{
    const Word word = m_words[m_at];
    if (take('0')) {
        term.number *= word.number;
        return true;
    }
    if (!take('n')) {
        return word.kind == 0 ? fail("the entry ends too early", "write a number or a name")
                              : fail("'" + word.text + "' stands where a number or a name is wanted",
                                     "write a number or a name");
    }
    const auto factor = std::find_if(LCM_FACTORS.begin(), LCM_FACTORS.end(),
                                     [&](const LCM_Factor& each) { return word.text == each.key; });
    if (factor != LCM_FACTORS.end()) {
        term.factors.push_back(factor->id);
    } else if (std::find(m_constants.begin(), m_constants.end(), word.text) != m_constants.end()) {
        term.constants.push_back(word.text);
    } else if (action != nullptr && action->empty()) {
        *action = word.text;
    } else {
        return unknown(word.text);
    }
    return true;
}

bool LCM_TermReader::product(LCM_Term& term, std::string* action)
{
    do {
        if (!part(term, action)) {
            return false;
        }
    } while (take('*'));
    std::sort(term.constants.begin(), term.constants.end());
    std::sort(term.factors.begin(), term.factors.end());
    if (action != nullptr && action->empty()) {
        return fail("a term of the sum names no action", "write the factor and the action, such as 1.6*L");
    }
    return true;
}

std::optional<LCM_TermPair> LCM_TermReader::pair(const std::string& text)
{
    if (!split(text)) {
        return std::nullopt;
    }
    LCM_TermPair result;
    if (m_words.size() == 2 && m_words[0].text == "none") {
        return result;
    }
    LCM_Term unfavourable;
    if (!product(unfavourable, nullptr)) {
        return std::nullopt;
    }
    result.unfavourable = unfavourable;
    if (take('|')) {
        LCM_Term favourable;
        if (!product(favourable, nullptr)) {
            return std::nullopt;
        }
        result.favourable = favourable;
    }
    return end() ? std::optional(result) : std::nullopt;
}

bool LCM_TermReader::bracket(LCM_Bracket& bracket)
{
    const bool isOpen = take('(');
    do {
        LCM_SumTerm alternative;
        if (!product(alternative.term, &alternative.action)) {
            return false;
        }
        bracket.push_back(alternative);
        if (!isOpen) {
            return m_words[m_at].text != "or" ||
                   fail("'or' stands outside a bracket", "put the alternatives between ( and )");
        }
    } while (m_words[m_at].text == "or" && take('n'));
    return take(')') ||
           fail("a bracket isn't closed", "join the alternatives by 'or' and close the bracket with )");
}

std::optional<std::vector<LCM_Bracket>> LCM_TermReader::sum(const std::string& text)
{
    if (!split(text)) {
        return std::nullopt;
    }
    std::vector<LCM_Bracket> brackets;
    if (m_words.size() == 2 && m_words[0].kind == '0' && m_words[0].number == 0) {
        return brackets;
    }
    do {
        brackets.emplace_back();
        if (!bracket(brackets.back())) {
            return std::nullopt;
        }
    } while (take('+'));
    return end() ? std::optional(brackets) : std::nullopt;
}

std::optional<std::vector<double>> LCM_TermReader::numbers(const std::string& text)
{
    if (!split(text)) {
        return std::nullopt;
    }
    std::vector<double> numbers;
    do {
        numbers.push_back(m_words[m_at].number);
        if (!take('0')) {
            fail("'" + text + "' is no number", "write digits with one point, such as 0.3");
            return std::nullopt;
        }
    } while (take(','));
    return end() ? std::optional(numbers) : std::nullopt;
}
