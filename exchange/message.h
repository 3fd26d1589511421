#pragma once

/// What a reader, a plan or a writer has to tell: data, of which words are made where somebody reads it.

#include <QString>

#include <string>
#include <vector>

namespace mrl::exchange {

class Message
{
  public:
    /// Nothing to tell.
    Message() = default;
    /// @param pattern English, with %1 to %9 for the arguments; marked by QT_TRANSLATE_NOOP("Exchange", ...), and so
    ///                a literal
    Message(const char* pattern, std::vector<std::string> arguments = {});
    /// A text that stands as it is, such as that of the operating system.
    static Message verbatim(std::string text);
    /// "PLACE: WHAT"
    static Message at(Message place, const Message& what);

    bool empty() const { return m_parts.empty(); }

    /// In English, whatever the language of the program is: for files, other programs and the command line.
    std::string english() const;
    /// In the language of the program, for a person at a window.
    QString translated() const;

  private:
    struct Part
    {
        const char* pattern;
        std::vector<std::string> arguments;
    };
    static QString filled(const QString& pattern, const std::vector<std::string>& arguments);
    template <class Words>
    QString text(const Words& words) const;

    std::vector<Part> m_parts; ///< the places from the outermost one on, then what is the matter there
};

/// The texts of messages in English.
std::vector<std::string> englishOf(const std::vector<Message>& messages);

} // namespace mrl::exchange
