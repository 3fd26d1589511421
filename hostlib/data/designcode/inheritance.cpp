#include "hostlib/data/designcode/inheritance.h"

#include <algorithm>
#include <set>

#include "hostlib/data/designcode/situations.h"

namespace mrl::designcode {

namespace {

constexpr std::string_view ACTION = "ACTION ";

class Layer
{
  public:
    Layer(IniFile& base, const IniFile& over) : m_base(base), m_over(over) {}

    std::vector<IniError> lay();

  private:
    using Sections = std::vector<IniSection>;

    void fail(const IniEntry& entry, std::string reason, std::string cure);
    Sections::iterator place(std::string_view name);
    bool isRemoval(const IniSection& section);
    void remove(const IniSection& section);
    void laySection(const IniSection& section);
    void insert(const IniSection& section);
    bool keepsTerms(const std::string& situation) const;
    void clearSituation(const std::string& situation);
    void laySituation(const IniSection& section);

    IniFile& m_base;
    const IniFile& m_over;
    std::set<std::string> m_cleared; ///< situations that the file states or removes
    std::vector<IniError> m_errors;
};

void Layer::fail(const IniEntry& entry, std::string reason, std::string cure)
{
    m_errors.push_back({entry.line, entry.column, std::move(reason), std::move(cure), entry.file});
}

Layer::Sections::iterator Layer::place(std::string_view name)
{
    return std::find_if(m_base.sections.begin(), m_base.sections.end(),
                        [&](const IniSection& section) { return section.name == name; });
}

bool Layer::isRemoval(const IniSection& section)
{
    const IniEntry* remove = section.find("remove");
    if (remove == nullptr) {
        return false;
    }
    if (remove->value != "yes" || section.entries.size() != 1) {
        fail(*remove, "'remove' doesn't stand alone in its section with 'yes'",
             "write 'remove = yes' and nothing else there");
    }
    return true;
}

void Layer::remove(const IniSection& section)
{
    const auto known = place(section.name);
    if (known == m_base.sections.end()) {
        fail(section.entries.front(), "the base has no section '" + section.name + "' to remove",
             "leave the section out");
    } else {
        m_base.sections.erase(known);
    }
}

void replaceEntries(IniSection& base, const IniSection& over)
{
    for (const IniEntry& entry : over.entries) {
        const auto known = std::find_if(base.entries.begin(), base.entries.end(),
                                        [&](const IniEntry& other) { return other.key == entry.key; });
        if (known != base.entries.end()) {
            *known = entry;
        } else {
            base.entries.push_back(entry);
        }
    }
    base.line = over.line;
    base.file = over.file;
}

void Layer::laySection(const IniSection& section)
{
    const auto known = place(section.name);
    if (isRemoval(section)) {
        remove(section);
    } else if (known == m_base.sections.end()) {
        insert(section);
    } else {
        replaceEntries(*known, section);
    }
}

/// Without a word behind the last action; the sections of situations stay behind all actions.
void Layer::insert(const IniSection& section)
{
    const auto isAction = [](const IniSection& other) { return other.name.rfind(ACTION, 0) == 0; };
    auto last = std::find_if(m_base.sections.rbegin(), m_base.sections.rend(), isAction);
    auto where = isAction(section) ? last.base() : m_base.sections.end();
    if (const IniEntry* after = section.find("after")) {
        const auto named = place(std::string(ACTION) + after->value);
        if (named == m_base.sections.end()) {
            fail(*after, "there is no action '" + after->value + "' to stand behind",
                 "name one of the base, or one that stands above");
        } else {
            where = named + 1;
        }
    }
    m_base.sections.insert(where, section);
}

/// Whether the file says of a situation no more than where it comes from.
bool Layer::keepsTerms(const std::string& situation) const
{
    const auto saysTerms = [&](const IniSection& section) {
        return isSituation(section.name) && situationOf(section.name) == situation &&
               std::any_of(section.entries.begin(), section.entries.end(), [](const IniEntry& entry) {
                   return entry.key != "clause" && entry.key != "state" && entry.key.rfind("title", 0) != 0;
               });
    };
    return std::none_of(m_over.sections.begin(), m_over.sections.end(), saysTerms);
}

void Layer::clearSituation(const std::string& situation)
{
    auto& all = m_base.sections;
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const IniSection& other) {
                                 return isSituation(other.name) && situationOf(other.name) == situation;
                             }),
              all.end());
}

void Layer::laySituation(const IniSection& section)
{
    const std::string situation = situationOf(section.name);
    if (keepsTerms(situation) && place(section.name) != m_base.sections.end()) {
        replaceEntries(*place(section.name), section);
        return;
    }
    if (m_cleared.insert(situation).second) {
        clearSituation(situation);
    }
    if (!isRemoval(section)) {
        m_base.sections.push_back(section);
    }
}

std::vector<IniError> Layer::lay()
{
    for (const IniSection& section : m_over.sections) {
        if (isSituation(section.name)) {
            laySituation(section);
        } else if (!section.name.empty()) {
            laySection(section);
        }
    }
    return std::move(m_errors);
}

} // namespace

std::vector<IniError> layOver(IniFile& base, const IniFile& over) { return Layer(base, over).lay(); }

} // namespace mrl::designcode
