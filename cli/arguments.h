#pragma once

/// The arguments of a command. Only arguments.cpp and main.cpp know the parser behind it.

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lcdata/values/factors.h"
#include "lcdata/values/keywords.h"

namespace CLI {
class App;
}

namespace mrl::cli {

/// The factors as options, as the records hold them.
using FactorOptions = LCM_PerFactor<std::optional<float>>;

/// Declares the arguments of one command. The variables receive the values and have to outlive the parsing.
class Arguments
{
  public:
    explicit Arguments(CLI::App& parser) : m_app(parser) {}

    enum class Need { Required, Optional };

    /// The positional FILE, a project.
    void file(std::string& value);
    /// The positional NR, a load-case number.
    void number(int& value, Need need);
    /// The positionals KWH and KWL; KWL is a whole number or the name of an action.
    void key(int& kwh, int& kwl);
    /// The positional HEX, the bytes of a record.
    void hex(std::string& digits);
    /// Any other positional text.
    void positional(const std::string& name, std::string& value, const std::string& help);

    /// --json
    void json(bool& value);
    /// --title, a text that a record can hold whole.
    void title(std::optional<std::string>& value);
    void flag(const std::string& option, bool& value, const std::string& help);
    void text(const std::string& option, std::optional<std::string>& value, Need need,
              const std::string& help);
    /// Texts: of an option that may be given several times, or the last positional ones where the name has no hyphens.
    void texts(const std::string& name, std::vector<std::string>& values, Need need, const std::string& help);
    void integer(const std::string& option, std::optional<int>& value, const std::string& help);
    /// A finite number that a record can hold.
    void real(const std::string& option, std::optional<float>& value, const std::string& help);
    /// One of the words of a list, see keywords.h. @param value receives the id of the word
    template <class List>
    void choice(const std::string& option, std::optional<int>& value, const List& list,
                const std::string& remark = {})
    {
        std::map<std::string, int> ids;
        for (const auto& entry : list) {
            ids.emplace(entry.word, entry.id);
        }
        choiceOf(option, value, ids, lcm_joined_words(list) + remark);
    }
    /// One option for each factor, such as --gamu.
    void factors(FactorOptions& values);
    /// A command that changes what its options say is wrong usage without any.
    void needsAnOption();
    /// One of two options has to be given.
    void needsEither(const std::string& option, const std::string& other);
    /// Options that can stand beside another one only.
    void need(const std::string& option, const std::vector<std::string>& dependents);
    /// The same for the options of all factors.
    void needForFactors(const std::string& option);
    /// Two options that cannot stand together.
    void exclude(const std::string& option, const std::string& other);

  private:
    void choiceOf(const std::string& option, std::optional<int>& value, const std::map<std::string, int>& ids,
                  const std::string& help);

    CLI::App& m_app;
};

inline QString qtext(const std::string& text) { return QString::fromStdString(text); }

} // namespace mrl::cli
