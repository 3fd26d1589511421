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
    Layer(IniFile& base, IniFile& over);

    std::vector<IniError> lay();

  private:
    using Sections = std::vector<IniSection>;

    void fail(const IniEntry& entry, std::string reason, std::string cure);
    Sections::iterator place(std::string_view name);
    bool isRemoval(const IniSection& section);
    void remove(const IniSection& section);
    void laySection(IniSection& section);
    void insert(IniSection& section);
    void clearSituation(const std::string& situation);
    void laySituation(IniSection& section);

    IniFile& m_base;
    IniFile& m_over;                 ///< gives its sections away
    std::set<std::string> m_stating; ///< situations of which the file says more than where they come from
    std::set<std::string> m_cleared; ///< situations that the file states or removes
    std::vector<IniError> m_errors;
};

Layer::Layer(IniFile& base, IniFile& over) : m_base(base), m_over(over)
{
    const auto isTerm = [](const IniEntry& entry) {
        return entry.key != "clause" && entry.key != "state" && entry.key.rfind("title", 0) != 0;
    };
    for (const IniSection& section : over.sections) {
        if (isSituation(section.name) &&
            std::any_of(section.entries.begin(), section.entries.end(), isTerm)) {
            m_stating.insert(situationOf(section.name));
        }
    }
}

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

void replaceEntries(IniSection& base, IniSection& over)
{
    for (IniEntry& entry : over.entries) {
        const auto known = std::find_if(base.entries.begin(), base.entries.end(),
                                        [&](const IniEntry& other) { return other.key == entry.key; });
        if (known != base.entries.end()) {
            *known = std::move(entry);
        } else {
            base.entries.push_back(std::move(entry));
        }
    }
    base.line = over.line;
    base.file = over.file;
}

void Layer::laySection(IniSection& section)
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
void Layer::insert(IniSection& section)
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
    m_base.sections.insert(where, std::move(section));
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

void Layer::laySituation(IniSection& section)
{
    const std::string situation = situationOf(section.name);
    if (m_stating.count(situation) == 0 && place(section.name) != m_base.sections.end()) {
        replaceEntries(*place(section.name), section);
        return;
    }
    if (m_cleared.insert(situation).second) {
        clearSituation(situation);
    }
    if (!isRemoval(section)) {
        m_base.sections.push_back(std::move(section));
    }
}

std::vector<IniError> Layer::lay()
{
    for (IniSection& section : m_over.sections) {
        if (isSituation(section.name)) {
            laySituation(section);
        } else if (!section.name.empty()) {
            laySection(section);
        }
    }
    return std::move(m_errors);
}

} // namespace

std::vector<IniError> layOver(IniFile& base, IniFile over) { return Layer(base, over).lay(); }

} // namespace mrl::designcode
