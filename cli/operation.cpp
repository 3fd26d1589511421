#include "cli/operation.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include "exchange/decimals.h"

namespace mrl::cli {

namespace {

using Kind = Operation::Kind;

constexpr int FIELD = 1; // depth of the fields of the object
constexpr int ENTRY = 2; // depth of the entries of a list

/// Enters the values of the line's object as they come.
class OperationHandler : public nlohmann::json::json_sax_t
{
  public:
    explicit OperationHandler(Operation& operation) : m_operation(operation) {}

    bool null() override { return value(Kind::Null, {}); }
    bool boolean(bool isTrue) override { return value(Kind::Boolean, isTrue ? "true" : "false"); }
    bool number_integer(number_integer_t number) override
    {
        return value(Kind::Whole, std::to_string(number));
    }
    bool number_unsigned(number_unsigned_t number) override
    {
        return value(Kind::Whole, std::to_string(number));
    }
    bool number_float(number_float_t number, const string_t&) override
    {
        return value(Kind::Decimal, exchange::numberText(static_cast<float>(number)));
    }
    bool string(string_t& text) override { return value(Kind::Text, std::move(text)); }
    bool binary(binary_t&) override { return false; }
    bool key(string_t& name) override
    {
        if (m_depth == FIELD) {
            m_field = &m_operation.set(name);
        }
        return true;
    }
    bool start_object(std::size_t) override { return open(Kind::Other); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(Kind::List); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override
    {
        return false;
    }

  private:
    bool value(Kind kind, std::string text)
    {
        if (m_depth == FIELD) {
            m_field->kind = kind;
            m_field->text = std::move(text);
        } else if (m_depth == ENTRY && m_field->kind == Kind::List) {
            m_field->list.push_back(kind == Kind::Text ? std::move(text) : std::string());
        }
        return m_depth > 0;
    }
    bool open(Kind kind)
    {
        if (m_depth == 0) {
            m_depth = FIELD;
            return kind == Kind::Other; // an object and no list
        }
        value(kind, {});
        ++m_depth;
        return true;
    }
    bool close()
    {
        --m_depth;
        return true;
    }

    Operation& m_operation;
    Operation::Field* m_field = nullptr; ///< the one that is being read
    int m_depth = 0;
};

} // namespace

bool Operation::read(std::string_view line)
{
    m_fields.clear();
    OperationHandler handler(*this);
    if (!nlohmann::json::sax_parse(line.begin(), line.end(), &handler)) {
        return false;
    }
    const Field* op = find("op");
    return op != nullptr && op->kind == Kind::Text;
}

const Operation::Field* Operation::find(std::string_view name) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&](const Field& field) { return field.name == name; });
    return found == m_fields.end() ? nullptr : &*found;
}

Operation::Field& Operation::set(std::string_view name)
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&](const Field& field) { return field.name == name; });
    if (found == m_fields.end()) {
        m_fields.emplace_back().name = name;
        return m_fields.back();
    }
    *found = {std::string(name), Kind::Null, {}, {}};
    return *found;
}

} // namespace mrl::cli
