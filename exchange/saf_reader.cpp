#include "exchange/saf_reader.h"

#include <QRegularExpression>

#include <map>
#include <set>

#include "exchange/decimals.h"
#include "exchange/saf_words.h"
#include "exchange/xlsx_workbook.h"
#include "rules/new_action_name.h"

namespace mrl::exchange {

namespace {

constexpr auto GROUPS = "StructuralLoadGroup";
constexpr auto CASES = "StructuralLoadCase";

const WorkbookSheet* sheetOf(const Workbook& workbook, const char* name)
{
    for (const WorkbookSheet& sheet : workbook.sheets()) {
        if (sheet.name == name) {
            return &sheet;
        }
    }
    return nullptr;
}

/// A heading without unit, blanks, dots, commas, dashes and case.
std::string plainHeading(const std::string& heading)
{
    static const QRegularExpression UNIT(QStringLiteral("\\[[^\\]]*\\]|[\\s.,\\-]"));
    return QString::fromStdString(heading).remove(UNIT).toLower().toStdString();
}

/// A row by plain headings.
using NamedRow = std::map<std::string, std::string>;

Message readNamedRows(const Workbook& workbook, const WorkbookSheet& sheet,
                      const std::function<void(int line, NamedRow&)>& take)
{
    std::vector<std::string> headings;
    return workbook.readRows(sheet, [&](WorkbookRow& row) {
        if (headings.empty()) {
            for (const std::string& heading : row.cells) {
                headings.push_back(plainHeading(heading));
            }
            return true;
        }
        NamedRow named;
        for (std::size_t i = 0; i < row.cells.size() && i < headings.size(); ++i) {
            named[headings[i]] = trimmed(row.cells[i]);
        }
        take(row.number, named);
        return true;
    });
}

class SafReader
{
  public:
    SafReader(const Workbook& workbook, TableReceiver& receiver) : m_workbook(workbook), m_receiver(receiver)
    {
    }

    Message run()
    {
        Message error = readModel();
        error = error.empty() ? readGroups() : error;
        error = error.empty() ? readCases() : error;
        if (error.empty() && sheetOf(m_workbook, "StructuralLoadCombination") != nullptr) {
            m_receiver.note({QT_TRANSLATE_NOOP("Exchange", "combinations are passed over")});
        }
        return error;
    }

  private:
    /// Names stand in column A and values in column B.
    Message readModel()
    {
        std::map<std::string, std::string> model;
        const WorkbookSheet* sheet = sheetOf(m_workbook, "Model");
        const Message error =
            sheet == nullptr ? Message() : m_workbook.readRows(*sheet, [&](WorkbookRow& row) {
                row.cells.resize(2);
                model[plainHeading(row.cells[0])] = row.cells[1];
                return true;
            });
        const auto tell = [&](const char* key, const char* present, const char* absent) {
            const std::string& value = model[key];
            m_receiver.note(value.empty() ? Message(absent) : Message(present, {value}));
        };
        tell("safversion", QT_TRANSLATE_NOOP("Exchange", "SAF version %1"),
             QT_TRANSLATE_NOOP("Exchange", "the model has no SAF version"));
        tell("nationalcode", QT_TRANSLATE_NOOP("Exchange", "national code %1"),
             QT_TRANSLATE_NOOP("Exchange", "the model has no national code"));
        return error;
    }

    Message readGroups()
    {
        const WorkbookSheet* sheet = sheetOf(m_workbook, GROUPS);
        if (sheet == nullptr) {
            m_receiver.note({QT_TRANSLATE_NOOP("Exchange", "there is no sheet %1"), {GROUPS}});
            return {};
        }
        m_receiver.begin({Sheet::Actions, {ACTION_NAME, ACTION_PARTITION, ACTION_SUPERPOSITION}, false});
        return readNamedRows(m_workbook, *sheet, [this](int line, NamedRow& row) { takeGroup(line, row); });
    }
    void takeGroup(int line, NamedRow& row)
    {
        if (row["name"] == "NONE" || row["name"] == "IMP") {
            return; // what we write for load cases without an action
        }
        const SafGroup group{row["name"], row["loadgrouptype"], row["relation"], row["loadtype"], {}};
        const SafMeaning meaning = safMeaningOf(group);
        Row out{line,
                {actionNameOf(group.name), meaning.partition, meaning.superposition},
                meaning.notes,
                safActionLike(group)};
        if (out.cells[0] != group.name) {
            out.notes.push_back({QT_TRANSLATE_NOOP("Exchange", "load group \"%1\" becomes the action %2"),
                                 {group.name, out.cells[0]}});
        }
        if (row["id"].empty()) {
            out.notes.push_back({QT_TRANSLATE_NOOP("Exchange", "load group %1: no id"), {group.name}});
        }
        m_groupTypes[group.name] = group.type;
        m_receiver.take(out);
    }
    /// The name of a group where an action can bear it, else one of our own.
    std::string actionNameOf(const std::string& group)
    {
        const auto [at, isNew] = m_names.emplace(group, std::string());
        if (!isNew) {
            return at->second;
        }
        const QString upper = QString::fromStdString(group).toUpper();
        const LCM_TypedName typed = lcm_typed_name(upper);
        const bool isGood = !typed.action.isEmpty() && !lcm_check_whole_name(typed) &&
                            m_taken.count(upper.toStdString()) == 0;
        at->second = upper.toStdString();
        for (int i = 1; !isGood && (i == 1 || m_taken.count(at->second) != 0); ++i) {
            at->second = "L" + std::to_string(i);
        }
        m_taken.insert(at->second);
        return at->second;
    }

    Message readCases()
    {
        const WorkbookSheet* sheet = sheetOf(m_workbook, CASES);
        if (sheet == nullptr) {
            m_receiver.note({QT_TRANSLATE_NOOP("Exchange", "there is no sheet %1"), {CASES}});
            return {};
        }
        return readNamedRows(m_workbook, *sheet, [this](int line, NamedRow& row) { takeCase(line, row); });
    }
    void takeCase(int line, NamedRow& row)
    {
        const std::string name = row["name"];
        const std::string number = numberOf(name);
        const std::string title = number.empty() ? name : row["description"];
        Row out;
        out.line = line;
        out.cells = {number, actionOf(row["loadgroup"])};
        noteFaults(name, number, row, out);
        begin(!title.empty());
        if (!title.empty()) {
            out.cells.push_back(title);
        }
        m_receiver.take(out);
    }
    /// A row without a title leaves that of a stored load case.
    void begin(bool hasTitle)
    {
        if (m_began && hasTitle == m_hasTitle) {
            return;
        }
        m_began = true;
        m_hasTitle = hasTitle;
        TableHead head{Sheet::LoadCases, {CASE_NUMBER, CASE_ACTION}, true};
        if (hasTitle) {
            head.columns.push_back(CASE_TITLE);
        }
        m_receiver.begin(head);
    }
    static std::string numberOf(const std::string& name)
    {
        static const QRegularExpression FORM(QStringLiteral("^LC([1-9]\\d{0,5})$"),
                                             QRegularExpression::CaseInsensitiveOption);
        return FORM.match(QString::fromStdString(name)).captured(1).toStdString();
    }
    /// Groups of ours for what has no action mean none.
    std::string actionOf(const std::string& group)
    {
        return group == "NONE" || group.empty() ? std::string()
               : group == "IMP"                 ? group
                                                : actionNameOf(group);
    }
    void noteFaults(const std::string& name, const std::string& number, NamedRow& row, Row& out)
    {
        const auto note = [&](const Message& what) {
            out.notes.push_back(Message::at({QT_TRANSLATE_NOOP("Exchange", "load case %1"), {name}}, what));
        };
        if (number.empty()) {
            note({QT_TRANSLATE_NOOP("Exchange", "the name becomes the title")});
        }
        if (number.empty() && !row["description"].empty()) {
            note({QT_TRANSLATE_NOOP("Exchange", "the description \"%1\" is dropped"), {row["description"]}});
        }
        if (plainHeading(row["loadtype"]) == "selfweight") {
            note({QT_TRANSLATE_NOOP("Exchange",
                                    "self weight is told without an amount; DLX, DLY and DLZ stay")});
        }
        if (row["id"].empty()) {
            note({QT_TRANSLATE_NOOP("Exchange", "no id")});
        }
        const auto type = m_groupTypes.find(row["loadgroup"]);
        if (actionOf(row["loadgroup"]).empty() || row["loadgroup"] == "IMP") {
            return;
        }
        if (type == m_groupTypes.end()) {
            note({QT_TRANSLATE_NOOP("Exchange", "there is no load group \"%1\""), {row["loadgroup"]}});
        } else if ((type->second == "Permanent") != (row["actiontype"] == "Permanent")) {
            note({QT_TRANSLATE_NOOP("Exchange",
                                    "its action type is %1, that of its group %2; the group counts"),
                  {row["actiontype"], type->second}});
        }
    }

    const Workbook& m_workbook;
    TableReceiver& m_receiver;
    std::map<std::string, std::string> m_names;      ///< of actions by group
    std::set<std::string> m_taken;                   ///< names of actions
    std::map<std::string, std::string> m_groupTypes; ///< by the group's name
    bool m_began = false;
    bool m_hasTitle = false;
};

} // namespace

bool isSaf(const Workbook& workbook)
{
    return sheetOf(workbook, GROUPS) != nullptr || sheetOf(workbook, CASES) != nullptr;
}

std::optional<FormatError> readSaf(std::string_view bytes, TableReceiver& receiver)
{
    const Workbook workbook(bytes);
    Message error = workbook.error();
    if (error.empty() && !isSaf(workbook)) {
        error = {QT_TRANSLATE_NOOP("Exchange", "the workbook has no sheet %1 or %2"), {GROUPS, CASES}};
    }
    error = error.empty() ? SafReader(workbook, receiver).run() : error;
    return error.empty() ? std::nullopt : std::optional(FormatError{error});
}

} // namespace mrl::exchange
