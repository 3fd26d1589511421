#include <QFileInfo>
#include <algorithm>
#include <unordered_map>

#include "hostlib/data/designcode/action_section.h"
#include "hostlib/data/designcode/chain.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/entry_values.h"
#include "hostlib/data/designcode/situations.h"

namespace mrl::designcode {

namespace {

constexpr std::size_t MAX_ACTIONS = 999; // an enumeration of default actions stops there
constexpr const char* IDENTITY[] = {"label", "ntcode", "idcode", "country", "year"};

/// Takes the sections of a chain over into a design code.
class Builder
{
  public:
    explicit Builder(Chain chain) : m_chain(std::move(chain)), reader(m_chain.files) {}

    void build();

    std::vector<FileText>& files() { return m_chain.files; }

    DesignCode code;

  private:
    Chain m_chain;

  public:
    EntryReader reader;

  private:
    void section(const IniSection& section);
    void unknown(const IniSection& section);
    void identity(const IniSection& section);
    void availability(const IniSection& section);
    void texts(const IniSection& section);
    void combinations(const IniSection& section);
    void constantsAreNamed();
    void action(const IniSection& section);
    bool isSecond(const DefaultAction& action, const IniSection& section);
    void flatten();

    std::vector<const IniSection*> m_situations;
    std::unordered_map<int, int> m_codeLines;
    std::unordered_map<int, int> m_oldNumberLines;
};

void Builder::build()
{
    for (const IniError& error : m_chain.errors) {
        reader.fail(error);
    }
    if (!m_chain.errors.empty() && m_chain.merged.sections.empty()) {
        return;
    }
    code.actions.reserve(std::min(m_chain.merged.sections.size(), MAX_ACTIONS));
    for (const IniSection& each : m_chain.merged.sections) {
        section(each);
    }
    readSituations(m_situations, m_chain.files, code);
    constantsAreNamed();
    if (m_chain.merged.find("DESIGN CODE") == nullptr) {
        reader.fail(IniError{0, 0, "section 'DESIGN CODE' is missing", "write it, with label and year"});
    }
    flatten();
}

void Builder::section(const IniSection& section)
{
    if (section.name == "DESIGN CODE") {
        identity(section);
    } else if (section.name == "AVAILABILITY") {
        availability(section);
    } else if (section.name == "ACTIONS") {
        texts(section);
    } else if (section.name == "COMBINATIONS") {
        combinations(section);
    } else if (section.name.rfind("ACTION ", 0) == 0) {
        action(section);
    } else if (isSituation(section.name)) {
        m_situations.push_back(&section);
    } else if (!section.name.empty()) {
        unknown(section);
    }
}

void Builder::unknown(const IniSection& section)
{
    const auto blank = section.name.find(' ');
    const std::string first = section.name.substr(0, blank);
    std::string cure =
        "write DESIGN CODE, AVAILABILITY, COMBINATIONS, ACTIONS, ACTION NAME or SITUATION NAME";
    const std::string word = cureByNearest(first, {"ACTION", "SITUATION"}, "");
    if (blank != std::string::npos && !word.empty()) {
        cure = word + section.name.substr(blank);
    } else {
        cure = cureByNearest(section.name, {"DESIGN CODE", "AVAILABILITY", "COMBINATIONS", "ACTIONS"}, cure);
    }
    reader.fail(section, "section '" + section.name + "' is not known", cure);
}

void Builder::identity(const IniSection& section)
{
    reader.onlyKeys(section, {"label", "ntcode", "idcode", "country", "year", "base"});
    int* const numbers[] = {nullptr, &code.ntcode, &code.idcode, &code.country, &code.year};
    for (std::size_t i = 0; i < std::size(IDENTITY); ++i) {
        const IniEntry* entry = section.find(IDENTITY[i]);
        if (entry == nullptr) {
            reader.fail(section,
                        std::string("entry '") + IDENTITY[i] + "' is missing in section 'DESIGN CODE'",
                        std::string("write '") + IDENTITY[i] + " = ...'");
        } else if (numbers[i] != nullptr) {
            reader.integer(*entry, *numbers[i]);
        } else if (entry->value.empty()) {
            reader.fail(*entry, "the label is empty", "write what people are to read");
        } else {
            code.label = entry->value;
        }
    }
}

void Builder::availability(const IniSection& section)
{
    Words keys;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        keys.emplace_back(factor.key);
        if (const IniEntry* entry = section.find(factor.key)) {
            reader.number(*entry, code.availability.*factor.actionField);
        }
    }
    reader.onlyKeys(section, keys);
}

void Builder::texts(const IniSection& section)
{
    code.hasActionsSection = true;
    for (const IniEntry& entry : section.entries) {
        if (entry.key.rfind("TXT_", 0) != 0) {
            reader.fail(entry, "entry '" + entry.key + "' of section 'ACTIONS' doesn't begin with 'TXT_'",
                        "write TXT_" + entry.key);
        }
        code.texts.push_back({entry.key, entry.value});
    }
}

/// "none" takes away what a base states: the code has no such factor, and a term that names it counts 1.
void Builder::combinations(const IniSection& section)
{
    for (const IniEntry& entry : section.entries) {
        float value = 1.0f;
        Origin origin;
        const bool isNone = entry.value == "none";
        if (!isNone && !reader.number(entry, value, &origin)) {
            continue;
        }
        code.constants[entry.key] = value;
        if (!isNone) {
            code.constantOrigins[entry.key] = std::move(origin);
        }
        if (!isNone && (entry.key == "KFI" || entry.key == "XSI")) {
            (entry.key == "KFI" ? code.kfi : code.xsi) = value;
        }
    }
}

/// A constant that no situation names is a misspelt one. While a situation can't be read, nobody knows.
void Builder::constantsAreNamed()
{
    const IniSection* section = m_chain.merged.find("COMBINATIONS");
    if (section == nullptr || !code.readingWarnings.empty()) {
        return;
    }
    for (const IniEntry& entry : section->entries) {
        if (entry.key != "KFI" && entry.key != "XSI" && !isNamed(entry.key, code)) {
            reader.fail(entry, "entry '" + entry.key + "' is not known in section 'COMBINATIONS'",
                        cureByNearest(entry.key, {"KFI", "XSI"}, "no situation names it: leave it out"));
        }
    }
}

bool Builder::isSecond(const DefaultAction& action, const IniSection& section)
{
    const auto [first, isNew] = m_codeLines.emplace(action.code, action.line);
    if (!isNew) {
        reader.fail(section,
                    "the first four characters of the name are those of the action in line " +
                        std::to_string(first->second),
                    "choose another name");
    }
    for (const int number : action.oldNumbers) {
        const auto [line, isFree] = m_oldNumberLines.emplace(number, section.find("old")->line);
        if (!isFree) {
            reader.fail(*section.find("old"),
                        "the old number " + std::to_string(number) + " is already given in line " +
                            std::to_string(line->second),
                        "give it once");
        }
    }
    return !isNew;
}

void Builder::action(const IniSection& section)
{
    DefaultAction action = readAction(section, reader);
    if (isSecond(action, section)) {
        return;
    }
    if (code.actions.size() == MAX_ACTIONS) {
        reader.fail(section, "more than 999 actions", "leave some out");
        return;
    }
    code.actions.push_back(std::move(action));
}

/// Without the words by which a file speaks of its base.
void Builder::flatten()
{
    for (IniSection& section : m_chain.merged.sections) {
        auto& entries = section.entries;
        const char* word = section.name == "DESIGN CODE" ? "base" : "after";
        entries.erase(std::remove_if(entries.begin(), entries.end(),
                                     [&](const auto& each) { return each.key == word; }),
                      entries.end());
    }
    code.flat = iniText(m_chain.merged);
}

/// Beside the file that names it, else on the search path.
std::variant<FileText, std::string> baseOnDisk(const std::string& name, const FileText& from)
{
    const std::string beside = from.file.substr(0, from.file.find_last_of('/') + 1) + name + ".ini";
    const auto file = QFileInfo(QString::fromStdString(beside)).isFile() ? std::optional(beside) : find(name);
    if (!file) {
        return "there is no design code '" + name + "' to stand upon";
    }
    const auto text = readText(*file);
    if (const auto* error = std::get_if<IniError>(&text)) {
        return *file + ": " + error->reason;
    }
    return FileText{*file, std::get<std::string>(text)};
}

} // namespace

std::string Error::text() const
{
    std::string place = file;
    for (const int number : {line, column}) {
        place += number > 0 ? ":" + std::to_string(number) : "";
    }
    return place + ": " + reason + (cure.empty() ? "" : ": " + cure);
}

ReadResult parse(FileText code, const BaseOf& baseOf)
{
    const std::string file = code.file;
    Builder builder(readChain(std::move(code), baseOf));
    builder.build();
    Errors& errors = builder.reader.errors;
    if (!errors.empty()) {
        const auto isAhead = [](const Error& a, const Error& b) { return a.line < b.line; };
        std::stable_sort(errors.begin(), errors.end(), isAhead);
        return std::move(errors);
    }
    builder.code.files = std::move(builder.files()); // nothing is told by them any more
    builder.code.file = file;
    builder.code.name = nameOfFile(file);
    return std::move(builder.code);
}

ReadResult parse(std::string_view content, const std::string& file)
{
    return parse(FileText{file, std::string(content)}, baseOnDisk);
}

ReadResult read(const std::string& file)
{
    auto text = readText(file);
    if (const auto* error = std::get_if<IniError>(&text)) {
        return Errors{{file, error->line, error->column, error->reason, error->cure}};
    }
    return parse(FileText{file, std::get<std::string>(std::move(text))}, baseOnDisk);
}

} // namespace mrl::designcode
