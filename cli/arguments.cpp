#include "cli/arguments.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <charconv>
#include <cmath>

#include "cli/raw_records.h"
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
    return fromHex(text, bytes) && !bytes.empty() ? std::string()
                                                  : "the record is no even number of hexadecimal digits";
}

} // namespace

void Arguments::file(std::string& value)
{
    app.add_option("FILE", value, "The project, NAME.cdb")->required();
}

void Arguments::number(int& value, Need need)
{
    app.add_option("NR", value, "Load-case number, 1 to 999999")
        ->check(CLI::Range(1, LC_MAX_NUMBER))
        ->required(need == Need::Required);
}

void Arguments::key(int& kwh, int& kwl)
{
    const auto take = [&kwl](const std::string& text) {
        kwl = wholeNumber(text).value_or(lcm_pack_word(QString::fromStdString(text)));
    };
    app.add_option("KWH", kwh, "Group of the key")->required();
    app.add_option_function<std::string>("KWL", take,
                                         "Element of the key: a number, or the name of an action")
        ->check(CLI::Validator(checkElement, "NUMBER|NAME"))
        ->required();
}

void Arguments::hex(std::string& digits)
{
    app.add_option("HEX", digits, "The record's bytes, two hexadecimal digits each")
        ->check(CLI::Validator(checkHex, "HEX"))
        ->required();
}

void Arguments::positional(const std::string& name, std::string& value, const std::string& help)
{
    app.add_option(name, value, help)->required();
}

void Arguments::json(bool& value) { app.add_flag("--json", value, "Print JSON with stable field names"); }

void Arguments::title(std::optional<std::string>& value)
{
    app.add_option("--title", value, "Title, at most 33 UTF-16 units")
        ->check(CLI::Validator(checkTitle, "TEXT"));
}

void Arguments::flag(const std::string& option, bool& value, const std::string& help)
{
    app.add_flag(option, value, help);
}

void Arguments::text(const std::string& option, std::optional<std::string>& value, Need need,
                     const std::string& help)
{
    app.add_option(option, value, help)->required(need == Need::Required);
}

void Arguments::integer(const std::string& option, std::optional<int>& value, const std::string& help)
{
    app.add_option(option, value, help);
}

void Arguments::real(const std::string& option, std::optional<float>& value, const std::string& help)
{
    const auto take = [&value](const std::string& text) { value = floatOf(text); };
    app.add_option_function<std::string>(option, take, help)->check(CLI::Validator(checkFloat, "X"));
}

void Arguments::choice(const std::string& option, std::optional<std::string>& value,
                       const std::map<std::string, int>& words, const std::string& help)
{
    std::vector<std::string> names;
    for (const auto& [word, id] : words) {
        names.push_back(word);
    }
    app.add_option(option, value, help)->check(CLI::IsMember(names));
}

void Arguments::factors(FactorOptions& values)
{
    real("--gamu", values.gamu, "Gamu, unfavourable safety factor");
    real("--gamf", values.gamf, "Gamf, favourable safety factor");
    real("--gama", values.gama, "Gama, accidental safety factor");
    real("--psi0", values.psi0, "Psi0, combination factor");
    real("--psi1", values.psi1, "Psi1, combination factor");
    real("--psi2", values.psi2, "Psi2, combination factor");
    real("--psi1s", values.psi1s, "Psi1s, fourth combination factor");
}

void Arguments::needsAnOption()
{
    app.parse_complete_callback([&parser = app] {
        const auto options = parser.get_options(
            [](const CLI::Option* option) { return option->nonpositional() && option->count() > 0; });
        if (options.empty()) {
            throw CLI::RequiredError("An option that says what to change");
        }
    });
}

void Arguments::exclude(const std::string& option, const std::string& other)
{
    app.get_option(option)->excludes(app.get_option(other));
}

} // namespace mrl::cli
