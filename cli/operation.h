#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mrl::cli {

/// A line of a script: the fields of a JSON object, each as its text. Scripts have very many lines, so no tree is made
/// of one.
class Operation
{
  public:
    enum class Kind { Null, Text, Whole, Decimal, Boolean, List, Other };
    struct Field
    {
        std::string name;
        Kind kind = Kind::Null;
        std::string text; ///< of a text, number or boolean; a decimal as the shortest of its float
        std::vector<std::string> list; ///< of a list: its texts, empty for what is no text
    };

    /// Takes over the fields of a line. @return false for one that is no JSON object with a text "op"
    bool read(std::string_view line);

    const std::string& op() const { return find("op")->text; }
    /// In the order of the line, "op" among them; of two with one name the later one counts.
    const std::vector<Field>& fields() const { return m_fields; }
    /// @return null when there is no field of this name
    const Field* find(std::string_view name) const;
    /// Sets a field, with kind Null.
    Field& set(std::string_view name);

  private:
    std::vector<Field> m_fields;
};

} // namespace mrl::cli
