#include "hostlib/data/designcode/situations.h"

#include <algorithm>
#include <functional>
#include <set>

#include "lcdata/values/situation_text.h"

namespace mrl::designcode {

namespace {

constexpr std::string_view SITUATION = "SITUATION ";
constexpr int LINE_BITS = 21;

LCM_SituationSection textOf(const IniSection& section)
{
    LCM_SituationSection text{section.name.substr(SITUATION.size()), {}, placeOf(section.file, section.line)};
    for (const IniEntry& entry : section.entries) {
        text.entries.push_back({entry.key, entry.value, placeOf(entry.file, entry.line)});
    }
    return text;
}

void forEachTerm(const LCM_Expression& expression, const std::function<void(const LCM_Term&)>& visit)
{
    for (const LCM_RoleEntry& entry : expression.entries) {
        for (const auto* term : {&entry.unfavourable, &entry.favourable}) {
            if (*term) {
                visit(**term);
            }
        }
    }
    for (const LCM_Bracket& bracket : expression.sum.value_or(std::vector<LCM_Bracket>())) {
        for (const LCM_SumTerm& alternative : bracket) {
            visit(alternative.term);
        }
    }
}

} // namespace

bool isSituation(std::string_view section) { return section.substr(0, SITUATION.size()) == SITUATION; }

std::string situationOf(const std::string& section)
{
    const std::string name = section.substr(SITUATION.size());
    const std::string situation = name.substr(0, name.find(" / "));
    const auto last = situation.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : situation.substr(0, last + 1);
}

int placeOf(int file, int line) { return (file << LINE_BITS) + line; }
int fileOfPlace(int place) { return place >> LINE_BITS; }
int lineOfPlace(int place) { return place & ((1 << LINE_BITS) - 1); }

bool isNamed(const std::string& constant, const DesignCode& code)
{
    bool found = false;
    for (const LCM_Situation& situation : code.situations) {
        for (const LCM_Expression& expression : situation.expressions) {
            forEachTerm(expression, [&](const LCM_Term& term) {
                found = found || std::count(term.constants.begin(), term.constants.end(), constant) > 0;
            });
        }
    }
    return found;
}

void readSituations(const std::vector<const IniSection*>& sections, const std::vector<FileText>& files,
                    DesignCode& code)
{
    std::vector<LCM_SituationSection> texts;
    for (const IniSection* section : sections) {
        texts.push_back(textOf(*section));
    }
    std::vector<std::string> constants;
    for (const auto& [name, value] : code.constants) {
        constants.push_back(name);
    }
    LCM_SituationsRead read = lcm_read_situations(texts, constants);
    std::set<std::string> broken;
    for (const LCM_SituationFinding& finding : read.findings) {
        const auto number = static_cast<std::size_t>(std::max(finding.section, 0));
        const IniSection& section = *sections.at(number);
        const IniEntry* entry =
            finding.entry >= 0 ? &section.entries[static_cast<std::size_t>(finding.entry)] : nullptr;
        broken.insert(situationOf(section.name));
        const auto file = static_cast<std::size_t>(entry != nullptr ? entry->file : section.file);
        code.readingWarnings.push_back(
            {WarningRule::SituationNotReadable, files[file].file,
             entry != nullptr ? entry->line : section.line, entry != nullptr ? entry->column : 0,
             "situation " + texts[number].name + ": " + finding.message, finding.cure});
    }
    for (LCM_Situation& situation : read.situations) {
        if (!situation.removed && broken.count(situation.name) == 0) {
            code.situations.push_back(std::move(situation));
        }
    }
}

} // namespace mrl::designcode
