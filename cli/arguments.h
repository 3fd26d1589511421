#pragma once

/// The arguments of a command. The parser behind it is the business of arguments.cpp and main.cpp alone.

#include <QString>
#include <map>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace mrl::cli {

/// The seven factors as options.
struct FactorOptions
{
    std::optional<float> gamu, gamf, gama, psi0, psi1, psi2, psi1s;
};

/// Declares the arguments of one command. The variables receive the values and have to outlive the parsing.
class Arguments
{
  public:
    explicit Arguments(CLI::App& parser) : app(parser) {}

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
    void integer(const std::string& option, std::optional<int>& value, const std::string& help);
    /// A finite number that a record can hold.
    void real(const std::string& option, std::optional<float>& value, const std::string& help);
    /// One of some words.
    void choice(const std::string& option, std::optional<std::string>& value,
                const std::map<std::string, int>& words, const std::string& help);
    /// --gamu to --psi1s
    void factors(FactorOptions& values);
    /// A command that changes what its options say is wrong usage without any.
    void needsAnOption();
    /// Two options that cannot stand together.
    void exclude(const std::string& option, const std::string& other);

  private:
    CLI::App& app;
};

inline QString qtext(const std::string& text) { return QString::fromStdString(text); }

} // namespace mrl::cli
