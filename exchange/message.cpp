#include "exchange/message.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace mrl::exchange {

Message::Message(const char* pattern, std::vector<std::string> arguments)
    : m_parts{{pattern, std::move(arguments)}}
{
}

Message Message::verbatim(std::string text) { return {"%1", {std::move(text)}}; }

Message Message::at(Message place, const Message& what)
{
    place.m_parts.insert(place.m_parts.end(), what.m_parts.begin(), what.m_parts.end());
    return place;
}

/// An argument that looks like a place of the pattern stays as it is.
QString Message::filled(const QString& pattern, const std::vector<std::string>& arguments)
{
    QString text;
    for (int i = 0; i < pattern.size(); ++i) {
        const int digit = pattern[i] == '%' && i + 1 < pattern.size() ? pattern[i + 1].digitValue() : -1;
        if (digit < 1 || static_cast<std::size_t>(digit) > arguments.size()) {
            text += pattern[i];
            continue;
        }
        text += QString::fromStdString(arguments[static_cast<std::size_t>(digit - 1)]);
        ++i;
    }
    return text;
}

template <class Words>
QString Message::text(const Words& words) const
{
    QString text;
    for (const Part& part : m_parts) {
        text +=
            (text.isEmpty() ? QString() : QStringLiteral(": ")) + filled(words(part.pattern), part.arguments);
    }
    return text;
}

std::string Message::english() const
{
    return text([](const char* pattern) { return QString::fromUtf8(pattern); }).toStdString();
}

QString Message::translated() const
{
    return text([](const char* pattern) { return QCoreApplication::translate("Exchange", pattern); });
}

std::vector<std::string> englishOf(const std::vector<Message>& messages)
{
    std::vector<std::string> texts;
    std::transform(messages.begin(), messages.end(), std::back_inserter(texts),
                   [](const Message& message) { return message.english(); });
    return texts;
}

} // namespace mrl::exchange
