#include "exchange/saf_format.h"

#include "exchange/saf_reader.h"
#include "exchange/saf_writer.h"
#include "exchange/xlsx_workbook.h"

namespace mrl::exchange {

namespace {

class SafFormat : public Format
{
  public:
    std::string name() const override { return "saf"; }
    Message description() const override
    {
        return QT_TRANSLATE_NOOP("Exchange", "SAF workbook: load groups and load cases");
    }
    std::vector<std::string> suffixes() const override { return {}; }
    bool holdsManySheets() const override { return true; }
    std::vector<std::string> versions() const override { return safVersions(); }
    bool recognises(std::string_view file) const override
    {
        return file.substr(0, 2) == "PK" && isSaf(Workbook(file));
    }
    std::vector<Message> losses(const Source& source) const override { return safLosses(source); }
    std::optional<FormatError> write(const Source& source, const FormatOptions& options,
                                     const Sink& sink) const override
    {
        return writeSaf(source, versionOf(options), nullptr, sink);
    }
    std::optional<FormatError> writeCombinations(const Source& source, const CombinationTable& table,
                                                 const FormatOptions& options,
                                                 const Sink& sink) const override
    {
        return writeSaf(source, versionOf(options), &table, sink);
    }
    std::optional<FormatError> read(std::string_view bytes, const FormatOptions&,
                                    TableReceiver& receiver) const override
    {
        return readSaf(bytes, receiver);
    }

  private:
    static std::string versionOf(const FormatOptions& options)
    {
        return options.version.empty() ? safVersions().back() : options.version;
    }
};

} // namespace

std::unique_ptr<Format> safFormat() { return std::make_unique<SafFormat>(); }

const std::vector<std::string>& safVersions()
{
    static const std::vector<std::string> VERSIONS{"1.0.5", "2.0.0", "2.1.0", "2.2.0"};
    return VERSIONS;
}

} // namespace mrl::exchange
