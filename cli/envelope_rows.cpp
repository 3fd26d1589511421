#include "cli/envelope_rows.h"

#include "cli/output.h"
#include "combine/decimal.h"

namespace mrl::cli {

namespace {

constexpr std::size_t NAME_WIDTH = 16;
constexpr std::size_t VALUE_WIDTH = 20;
constexpr std::size_t LEADING_WIDTH = 8;

Json orNull(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json extremeJson(const ExtremeRow& extreme, bool hasSets)
{
    Json out = {{"value", extreme.value},
                {"key", extreme.key},
                {"leading", orNull(extreme.leading)},
                {"expression", orNull(extreme.expression)}};
    if (hasSets) {
        out["with"] = Json::object();
        for (const auto& [name, value] : extreme.with) {
            out["with"][name] = value;
        }
    }
    return out;
}

std::string line(const EnvelopeRow& row, const char* which, const ExtremeRow& extreme)
{
    using combine::decimalText;
    using combine::rounded;
    std::string text = padded(row.response, NAME_WIDTH) + "  " + padded(row.situation, NAME_WIDTH) + "  " +
                       which + "  " + paddedLeft(decimalText(rounded(extreme.value)), VALUE_WIDTH) + "  " +
                       padded(extreme.leading.empty() ? "-" : extreme.leading, LEADING_WIDTH) + "  " +
                       padded(extreme.expression.empty() ? "-" : extreme.expression, LEADING_WIDTH) + "  " +
                       extreme.key + '\n';
    for (const auto& [name, value] : extreme.with) {
        text += "  " + padded(name, NAME_WIDTH - 2) + "  " + padded("", NAME_WIDTH) + "       " +
                paddedLeft(decimalText(rounded(value)), VALUE_WIDTH) + '\n';
    }
    return text;
}

} // namespace

std::string csvCell(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string cell = "\"";
    for (const char c : text) {
        cell += c == '"' ? "\"\"" : std::string(1, c);
    }
    return cell + '"';
}

std::string EnvelopePrinter::head() const
{
    switch (m_format) {
    case EnvelopeFormat::Json:
        return "[";
    case EnvelopeFormat::Csv:
        return m_hasSets ? "response,situation,extreme,of,value,key,leading,expression\n"
                         : "response,situation,extreme,value,key,leading,expression\n";
    case EnvelopeFormat::Lines:
        break;
    }
    return padded("Response", NAME_WIDTH) + "  " + padded("Situation", NAME_WIDTH) + "       " +
           paddedLeft("Value", VALUE_WIDTH) + "  " + padded("Leading", LEADING_WIDTH) + "  " +
           padded("Expr.", LEADING_WIDTH) + "  Key\n";
}

std::string EnvelopePrinter::separator(bool isFirst) const
{
    return m_format != EnvelopeFormat::Json ? "" : isFirst ? "\n" : ",\n";
}

std::string EnvelopePrinter::tail(bool isEmpty) const
{
    return m_format != EnvelopeFormat::Json ? "" : isEmpty ? "]\n" : "\n]\n";
}

/// A line for each extreme; the values of the set's other responses follow in lines of their own, named in `of`.
std::string EnvelopePrinter::csv(const EnvelopeRow& row) const
{
    std::string text;
    const auto add = [&](const char* which, const ExtremeRow& extreme, const std::string& of, double value) {
        text += csvCell(row.response) + ',' + csvCell(row.situation) + ',' + which + ',' +
                (m_hasSets ? csvCell(of) + ',' : "") + combine::decimalText(value) + ',' + extreme.key + ',' +
                csvCell(extreme.leading) + ',' + csvCell(extreme.expression) + '\n';
    };
    for (const auto& [which, extreme] : {std::pair("max", &row.max), std::pair("min", &row.min)}) {
        add(which, *extreme, row.response, extreme->value);
        for (const auto& [name, value] : extreme->with) {
            add(which, *extreme, name, value);
        }
    }
    return text;
}

std::string EnvelopePrinter::json(const EnvelopeRow& row) const
{
    const Json out = {{"response", row.response},
                      {"situation", row.situation},
                      {"max", extremeJson(row.max, m_hasSets)},
                      {"min", extremeJson(row.min, m_hasSets)}};
    return out.dump();
}

std::string EnvelopePrinter::row(const EnvelopeRow& row) const
{
    switch (m_format) {
    case EnvelopeFormat::Json:
        return json(row);
    case EnvelopeFormat::Csv:
        return csv(row);
    case EnvelopeFormat::Lines:
        break;
    }
    return line(row, "max", row.max) + line(row, "min", row.min);
}

} // namespace mrl::cli
