#include "cli/arguments.h"
#include "exchange/raw_records.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <charconv>
#include <cmath>

#include "lcdata/values/action_code.h"
#include "rules/load_case_numbers.h"

namespace mrl::cli {

namespace {

constexpr int MAX_TITLE_UNITS = 33;

std::optional<float> floatOf(const std::string& text)
{
    float value = 0.0f;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    return error == std::errc() && end == last && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<int> wholeNumber(const std::string& text)
{
    int value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    return error == std::errc() && end == last ? std::optional(value) : std::nullopt;
}

std::string checkWhole(const std::string& text)
{
    return wholeNumber(text) ? std::string() : "'" + text + "' is no whole number of 32 bits in decimals";
}

std::string checkLoadCaseNumber(const std::string& text)
{
    const int number = wholeNumber(text).value_or(0);
    return number >= 1 && number <= LC_MAX_NUMBER ? std::string()
                                                  : "'" + text + "' is no load-case number, 1 to " +
                                                        std::to_string(LC_MAX_NUMBER) + " in decimals";
}

std::string checkFloat(const std::string& text)
{
    return floatOf(text) ? std::string() : "'" + text + "' is no finite number in decimals with a point";
}

std::string checkTitle(const std::string& text)
{
    const QString title = QString::fromStdString(text);
    if (title.toStdString() != text) {
        return "the title is not UTF-8";
    }
    return title.size() <= MAX_TITLE_UNITS
               ? std::string()
               : "the title has " + std::to_string(title.size()) + " units, at most 33 fit into a record";
}

std::string checkElement(const std::string& text)
{
    const bool isNumber =
        !text.empty() && (std::isdigit(static_cast<unsigned char>(text.front())) != 0 || text.front() == '-');
    return isNumber && !wholeNumber(text) ? "'" + text + "' is no whole number of 32 bits" : std::string();
}

std::string checkHex(const std::string& text)
{
    std::string bytes;
    return exchange::fromHex(text, bytes) && !bytes.empty()
               ? std::string()
               : "the record is no even number of hexadecimal digits";
}

} // namespace

void Arguments::file(std::string& value)
{
    m_app.add_option("FILE", value, "The project, NAME.cdb")->required();
}

void Arguments::number(int& value, Need need)
{
    const auto take = [&value](const std::string& text) { value = wholeNumber(text).value_or(0); };
    m_app.add_option_function<std::string>("NR", take, "Load-case number, 1 to 999999")
        ->check(CLI::Validator(checkLoadCaseNumber, "NUMBER"))
        ->required(need == Need::Required);
}

void Arguments::key(int& kwh, int& kwl)
{
    const auto take = [&kwl](const std::string& text) {
        kwl = wholeNumber(text).value_or(lcm_pack_word(QString::fromStdString(text)));
    };
    const auto takeGroup = [&kwh](const std::string& text) { kwh = wholeNumber(text).value_or(0); };
    m_app.add_option_function<std::string>("KWH", takeGroup, "Group of the key")
        ->check(CLI::Validator(checkWhole, "NUMBER"))
        ->required();
    m_app
        .add_option_function<std::string>("KWL", take,
                                          "Element of the key: a number, or the name of an action")
        ->check(CLI::Validator(checkElement, "NUMBER|NAME"))
        ->required();
}

void Arguments::hex(std::string& digits)
{
    m_app.add_option("HEX", digits, "The record's bytes, two hexadecimal digits each")
        ->check(CLI::Validator(checkHex, "HEX"))
        ->required();
}

void Arguments::positional(const std::string& name, std::string& value, const std::string& help)
{
    m_app.add_option(name, value, help)->required();
}

void Arguments::json(bool& value) { m_app.add_flag("--json", value, "Print JSON with stable field names"); }

void Arguments::title(std::optional<std::string>& value)
{
    m_app.add_option("--title", value, "Title, at most 33 UTF-16 units")
        ->check(CLI::Validator(checkTitle, "TEXT"));
}

void Arguments::flag(const std::string& option, bool& value, const std::string& help)
{
    m_app.add_flag(option, value, help);
}

void Arguments::text(const std::string& option, std::optional<std::string>& value, Need need,
                     const std::string& help)
{
    m_app.add_option(option, value, help)->required(need == Need::Required);
}

void Arguments::texts(const std::string& name, std::vector<std::string>& values, Need need,
                      const std::string& help)
{
    m_app.add_option(name, values, help)->required(need == Need::Required);
}

void Arguments::integer(const std::string& option, std::optional<int>& value, const std::string& help)
{
    const auto take = [&value](const std::string& text) { value = wholeNumber(text); };
    m_app.add_option_function<std::string>(option, take, help)->check(CLI::Validator(checkWhole, "NUMBER"));
}

void Arguments::real(const std::string& option, std::optional<float>& value, const std::string& help)
{
    const auto take = [&value](const std::string& text) { value = floatOf(text); };
    m_app.add_option_function<std::string>(option, take, help)->check(CLI::Validator(checkFloat, "X"));
}

void Arguments::choiceOf(const std::string& option, std::optional<int>& value,
                         const std::map<std::string, int>& ids, const std::string& help)
{
    std::vector<std::string> words;
    for (const auto& [word, id] : ids) {
        words.push_back(word);
    }
    const auto take = [&value, ids](const std::string& word) { value = ids.at(word); };
    m_app.add_option_function<std::string>(option, take, help)->check(CLI::IsMember(words));
}

void Arguments::factors(FactorOptions& values)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const auto take = [&value = values[factor.id], &factor](const std::string& text) {
            value = lcm_factor_to_store(factor, floatOf(text).value_or(0.0f));
        };
        m_app
            .add_option_function<std::string>(lcm_factor_option(factor), take,
                                              std::string(factor.key) + ", " + factor.description)
            ->check(CLI::Validator(checkFloat, "X"));
    }
}

void Arguments::needsAnOption()
{
    m_app.parse_complete_callback([&parser = m_app] {
        const auto options = parser.get_options(
            [](const CLI::Option* option) { return option->nonpositional() && option->count() > 0; });
        if (options.empty()) {
            throw CLI::RequiredError("An option that says what to change");
        }
    });
}

void Arguments::needsEither(const std::string& option, const std::string& other)
{
    m_app.parse_complete_callback([&parser = m_app, option, other] {
        if (parser.count(option) + parser.count(other) == 0) {
            throw CLI::RequiredError(option + " or " + other);
        }
    });
}

void Arguments::need(const std::string& option, const std::vector<std::string>& dependents)
{
    for (const std::string& dependent : dependents) {
        m_app.get_option(dependent)->needs(m_app.get_option(option));
    }
}

void Arguments::needForFactors(const std::string& option)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        need(option, {lcm_factor_option(factor)});
    }
}

void Arguments::exclude(const std::string& option, const std::string& other)
{
    m_app.get_option(option)->excludes(m_app.get_option(other));
}

} // namespace mrl::cli
