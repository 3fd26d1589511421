#include "exchange/json_text.h"

#include "exchange/json_reader.h"
#include "exchange/json_writer.h"

namespace mrl::exchange {

namespace {

class JsonText : public Format
{
  public:
    std::string name() const override { return "json"; }
    Message description() const override { return Message::verbatim("JSON"); }
    std::vector<std::string> suffixes() const override { return {name()}; }
    bool holdsManySheets() const override { return true; }
    bool recognises(std::string_view file) const override
    {
        const std::size_t first = file.find_first_not_of(" \t\r\n");
        return first != std::string_view::npos && file[first] == '{';
    }
    std::optional<FormatError> write(const Source& source, const FormatOptions&,
                                     const Sink& sink) const override
    {
        return writeJson(source, sink);
    }
    std::optional<FormatError> writeCombinations(const Source&, const CombinationTable& table,
                                                 const FormatOptions&, const Sink& sink) const override
    {
        return writeJson(table, sink);
    }
    std::optional<FormatError> read(std::string_view bytes, const FormatOptions&,
                                    TableReceiver& receiver) const override
    {
        return readJson(bytes, receiver, nullptr);
    }
};

} // namespace

std::unique_ptr<Format> jsonFormat() { return std::make_unique<JsonText>(); }

} // namespace mrl::exchange
