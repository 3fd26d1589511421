#include "exchange/delimited_text.h"

#include "exchange/delimited_reader.h"
#include "exchange/delimited_writer.h"

namespace mrl::exchange {

namespace {

constexpr std::string_view FORMULA_BEGINNINGS = "=+-@\t\r";
constexpr char APOSTROPHE = '\'';

/// Whether a text begins a formula, apostrophes ahead of it aside.
bool beginsFormula(const std::string& text)
{
    const std::size_t at = text.find_first_not_of(APOSTROPHE);
    return at != std::string::npos && FORMULA_BEGINNINGS.find(text[at]) != std::string_view::npos;
}

class DelimitedText : public Format
{
  public:
    DelimitedText(std::string name, Message description, std::vector<std::string> suffixes, char separator)
        : m_name(std::move(name)), m_description(std::move(description)), m_suffixes(std::move(suffixes)),
          m_separator(separator)
    {
    }
    std::string name() const override { return m_name; }
    Message description() const override { return m_description; }
    std::vector<std::string> suffixes() const override { return m_suffixes; }
    bool holdsManySheets() const override { return false; }
    bool isText() const override { return true; }
    bool recognises(std::string_view) const override { return false; }
    std::optional<FormatError> write(const Source& source, const FormatOptions& options,
                                     const Sink& sink) const override
    {
        return writeDelimited(source, withSeparator(options), sink);
    }
    std::optional<FormatError> writeCombinations(const Source&, const CombinationTable& table,
                                                 const FormatOptions& options,
                                                 const Sink& sink) const override
    {
        return writeDelimited(table, withSeparator(options), sink);
    }
    std::optional<FormatError> read(std::string_view bytes, const FormatOptions& options,
                                    TableReceiver& receiver) const override
    {
        return readDelimited(bytes, options, receiver);
    }

  private:
    FormatOptions withSeparator(FormatOptions options) const
    {
        options.separator = options.separator == 0 ? m_separator : options.separator;
        return options;
    }

    std::string m_name;
    Message m_description;
    std::vector<std::string> m_suffixes;
    char m_separator; ///< that is written unless told
};

} // namespace

std::string guarded(const std::string& text) { return beginsFormula(text) ? APOSTROPHE + text : text; }

std::string unguarded(const std::string& text)
{
    const bool isGuarded = !text.empty() && text.front() == APOSTROPHE && beginsFormula(text);
    return isGuarded ? text.substr(1) : text;
}

std::unique_ptr<Format> csvFormat()
{
    return std::make_unique<DelimitedText>("csv", QT_TRANSLATE_NOOP("Exchange", "Comma-separated values"),
                                           std::vector<std::string>{"csv", "txt"}, ',');
}

std::unique_ptr<Format> tsvFormat()
{
    return std::make_unique<DelimitedText>("tsv", QT_TRANSLATE_NOOP("Exchange", "Tabulator-separated values"),
                                           std::vector<std::string>{"tsv"}, '\t');
}

} // namespace mrl::exchange
