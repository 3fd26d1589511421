#include "cli/exchange_options.h"

#include <QStringList>

#include <algorithm>

#include "cli/failure.h"
#include "exchange/text_decoding.h"

namespace mrl::cli {

namespace {

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

} // namespace

std::vector<std::string> formatNames()
{
    std::vector<std::string> names;
    for (const auto& format : exchange::formats()) {
        names.push_back(format->name());
    }
    return names;
}

void requireOneOf(const std::string& option, const std::string& value, const std::vector<std::string>& known)
{
    if (std::find(known.begin(), known.end(), value) == known.end()) {
        throw Failure{ExitCode::Usage, option + ": " + value + " is none of " + joined(known)};
    }
}

void ExchangeOptions::declare(Arguments& args, const std::string& whatHelp)
{
    args.text("--format", m_format, Arguments::Need::Optional,
              joined(formatNames()) + "; by the file's content and name unless given");
    args.text("--what", m_what, Arguments::Need::Optional, whatHelp);
    args.text("--separator", m_separator, Arguments::Need::Optional, "Character between the fields, or tab");
    args.text("--decimal", m_decimal, Arguments::Need::Optional, "Decimal sign, . or ,");
    args.text("--encoding", m_encoding, Arguments::Need::Optional, joined(exchange::encodingNames()));
}

const exchange::Format* ExchangeOptions::namedFormat() const
{
    if (!m_format) {
        return nullptr;
    }
    requireOneOf("--format", *m_format, formatNames());
    return exchange::formatOfName(*m_format);
}

std::vector<exchange::Sheet> ExchangeOptions::sheets() const
{
    std::vector<exchange::Sheet> sheets;
    for (const QString& word : qtext(m_what.value_or("")).split(',', Qt::SkipEmptyParts)) {
        requireOneOf("--what", word.toStdString(), {"actions", "loadcases"});
        sheets.push_back(word == "actions" ? exchange::Sheet::Actions : exchange::Sheet::LoadCases);
    }
    return sheets;
}

exchange::FormatOptions ExchangeOptions::format() const
{
    exchange::FormatOptions options;
    if (m_separator) {
        const std::string text = *m_separator == "tab" ? "\t" : *m_separator;
        if (text.size() != 1 || text[0] < 0) {
            throw Failure{ExitCode::Usage, "--separator: one ASCII character, or tab"};
        }
        options.separator = text[0];
    }
    if (m_decimal) {
        requireOneOf("--decimal", *m_decimal, {".", ","});
        options.decimalSign = (*m_decimal)[0];
    }
    if (m_encoding) {
        requireOneOf("--encoding", *m_encoding, exchange::encodingNames());
        options.encoding = *m_encoding;
    }
    return options;
}

} // namespace mrl::cli
