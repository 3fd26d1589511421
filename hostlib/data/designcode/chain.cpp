#include "hostlib/data/designcode/chain.h"

#include <algorithm>

#include "hostlib/data/designcode/inheritance.h"

namespace mrl::designcode {

namespace {

constexpr std::size_t MAX_FILES = 16; // no annex needs more, and a mistake doesn't read a whole disk

class ChainReader
{
  public:
    explicit ChainReader(const BaseOf& baseOf) : m_baseOf(baseOf) {}

    Chain read(FileText code)
    {
        std::vector<IniFile> parsed;
        for (auto next = std::optional(std::move(code)); next;) {
            IniResult result = parseIni(next->text, static_cast<int>(m_chain.files.size()));
            m_chain.files.push_back(*std::move(next));
            take(std::move(result.errors));
            next = base(result.file);
            parsed.push_back(std::move(result.file));
        }
        for (auto file = parsed.rbegin(); m_hasBases && file != parsed.rend(); ++file) {
            take(layOver(m_chain.merged, std::move(*file)));
        }
        return std::move(m_chain);
    }

  private:
    void take(std::vector<IniError> errors)
    {
        m_chain.errors.insert(m_chain.errors.end(), errors.begin(), errors.end());
    }

    std::nullopt_t fail(const IniEntry& entry, std::string reason, std::string cure)
    {
        m_chain.errors.push_back({entry.line, entry.column, std::move(reason), std::move(cure), entry.file});
        m_hasBases = false;
        return std::nullopt;
    }

    std::optional<FileText> base(const IniFile& file)
    {
        const IniSection* head = file.find("DESIGN CODE");
        const IniEntry* entry = head != nullptr ? head->find("base") : nullptr;
        if (entry == nullptr) {
            return std::nullopt;
        }
        if (entry->value.empty() || entry->value.find('/') != std::string::npos) {
            return fail(*entry, "'" + entry->value + "' is no name of a base",
                        "write the name of a design code without folders, such as en1990");
        }
        if (m_chain.files.size() == MAX_FILES) {
            return fail(*entry, "more than 15 bases stand upon each other", "name a base further down");
        }
        auto found = m_baseOf(entry->value, m_chain.files.back());
        if (const auto* reason = std::get_if<std::string>(&found)) {
            return fail(*entry, *reason, "put it beside this file or on the search path");
        }
        return unlessCircle(*entry, std::get<FileText>(std::move(found)));
    }

    std::optional<FileText> unlessCircle(const IniEntry& entry, FileText base)
    {
        const auto first = std::find_if(m_chain.files.begin(), m_chain.files.end(),
                                        [&](const FileText& other) { return other.file == base.file; });
        if (first == m_chain.files.end()) {
            return base;
        }
        std::string names;
        for (auto it = first; it != m_chain.files.end(); ++it) {
            names += nameOfFile(it->file) + " > ";
        }
        return fail(entry, "the bases go round in a circle: " + names + nameOfFile(base.file),
                    "take one of them out");
    }

    const BaseOf& m_baseOf;
    Chain m_chain;
    bool m_hasBases = true;
};

} // namespace

std::string nameOfFile(const std::string& file)
{
    const std::string base = file.substr(file.find_last_of('/') + 1);
    const auto dot = base.rfind(".ini");
    return dot != std::string::npos && dot + 4 == base.size() ? base.substr(0, dot) : base;
}

Chain readChain(FileText code, const BaseOf& baseOf) { return ChainReader(baseOf).read(std::move(code)); }

} // namespace mrl::designcode
