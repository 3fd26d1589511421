#include "exchange/saf_writer.h"

#include <QUuid>

#include <map>
#include <set>

#include "exchange/record_cells.h"
#include "exchange/saf_combinations.h"
#include "exchange/saf_words.h"
#include "exchange/xlsx_writer.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "rules/load_case_row.h"

namespace mrl::exchange {

namespace {

constexpr double WIDTH = 16.0;
constexpr double WIDE = 40.0;

/// Ours among the ids of other programs.
const QUuid NAMESPACE(QStringLiteral("{5b1f3c52-6c0e-5c8e-9d5d-4a0a3c4f8f11}"));

struct NamedGroup
{
    SafGroup group;
    const tagCDB_LC_ACT* action = nullptr;
};

/// What the load sheets hold.
class SafModel
{
  public:
    explicit SafModel(const Source& source) : m_source(source), m_actions(lcm_stored_actions(source.db))
    {
        for (const LCM_StoredAction& action : m_actions) {
            const std::string name = lcm_code_name(action.code).toStdString();
            m_groups[action.code] = {safGroupOf(name, action.record), &action.record};
        }
        for (LCM_LoadCaseWalk walk(source.db); walk.next();) {
            const LCM_StoredLoadCase& loadCase = walk.current();
            if (loadCase.isOwn() && m_groups.count(loadCase.record.action) == 0) {
                const std::string word = actionWordText(loadCase.record.action);
                m_groups[loadCase.record.action] = {safGroupOfNoAction(word.empty() ? "NONE" : word),
                                                    nullptr};
            }
        }
    }

    std::vector<Message> losses() const
    {
        std::vector<Message> losses;
        for (const auto& entry : m_groups) {
            const auto& ofGroup = entry.second.group.losses;
            losses.insert(losses.end(), ofGroup.begin(), ofGroup.end());
        }
        for (LCM_LoadCaseWalk walk(m_source.db); walk.next();) {
            addLosses(walk.current(), losses);
        }
        if (safNationalCode(designCode()).empty()) {
            losses.push_back({QT_TRANSLATE_NOOP("Exchange", "the design code %1, for which SAF has no word"),
                              {designCode()}});
        }
        return losses;
    }
    std::string designCode() const
    {
        const auto fact = m_source.facts.find("designcode");
        return fact == m_source.facts.end() ? std::string() : fact->second;
    }
    std::string idOf(const std::string& what) const
    {
        const std::string text = m_source.name + "/" + what;
        return QUuid::createUuidV5(NAMESPACE, QByteArray::fromStdString(text))
            .toString(QUuid::WithoutBraces)
            .toStdString();
    }
    const std::map<int, NamedGroup>& groups() const { return m_groups; }
    const Source& source() const { return m_source; }

  private:
    static void addLosses(const LCM_StoredLoadCase& loadCase, std::vector<Message>& losses)
    {
        if (!loadCase.isOwn()) {
            return;
        }
        const tagCDB_LC_CTRL& record = loadCase.record;
        const auto lose = [&](const char* pattern) {
            losses.push_back(Message::at(
                {QT_TRANSLATE_NOOP("Exchange", "load case %1"), {std::to_string(loadCase.number)}}, pattern));
        };
        if (record.dlx != 0.0f || record.dly != 0.0f || record.dlz != 0.0f) {
            lose(QT_TRANSLATE_NOOP("Exchange", "the amounts of dead weight"));
        }
        if (record.factor != 1.0f) {
            lose(QT_TRANSLATE_NOOP("Exchange", "the factor"));
        }
        const LCM_LoadCaseFactors factors = lcm_stored_factors(record);
        for (const LCM_Factor& factor : LCM_FACTORS) {
            if (factors[factor.id] != LC_UNDEFINED && factors[factor.id] != 0.0f) {
                lose(QT_TRANSLATE_NOOP("Exchange", "its own factors"));
                return;
            }
        }
    }

    const Source& m_source;
    std::vector<LCM_StoredAction> m_actions;
    std::map<int, NamedGroup> m_groups; ///< by action word
};

std::string verticalAxis(int gravity)
{
    const std::string axis = gravity == 1 || gravity == -1 ? "X" : gravity == 2 || gravity == -2 ? "Y" : "Z";
    return (gravity > 0 ? "minus " : "") + axis + " vertical";
}

void writeModel(const SafModel& model, const std::string& version, WorkbookWriter& writer)
{
    const std::string& name = model.source().name;
    writer.beginSheet("Project", {{"Name", WIDTH}, {name, WIDE}}, false);
    writer.beginSheet("Model", {{"Name", WIDTH}, {name, WIDE}}, false);
    writer.addRow({"SAF Version", version});
    writer.addRow({"Global coordinate system", verticalAxis(lcm_gravity_direction(model.source().db))});
    writer.addRow({"LCS of cross-section", "ZYX"});
    writer.addRow({"System of units", "Metric"});
    if (const std::string code = safNationalCode(model.designCode()); !code.empty()) {
        writer.addRow({"National code", code});
    }
    writer.addRow({"Source application", "mrl-loadcase"});
    writer.addRow({"Ignored groups", "StructuralLoad"});
    writer.addRow({"Id", model.idOf("model")});
}

void writeGroups(const SafModel& model, WorkbookWriter& writer)
{
    writer.beginSheet("StructuralLoadGroup",
                      {{"Name", WIDTH},
                       {"Load group type", WIDTH},
                       {"Relation", WIDTH},
                       {"Load type", WIDTH},
                       {"Id", WIDE}},
                      false);
    for (const auto& [word, named] : model.groups()) {
        const SafGroup& group = named.group;
        writer.addRow({group.name, group.type, group.relation, group.loadType,
                       model.idOf("group " + std::to_string(word))});
    }
}

void writeCases(const SafModel& model, WorkbookWriter& writer)
{
    writer.beginSheet("StructuralLoadCase",
                      {{"Name", WIDTH},
                       {"Description", WIDE},
                       {"Action type", WIDTH},
                       {"Load group", WIDTH},
                       {"Load type", WIDTH},
                       {"Duration", WIDTH},
                       {"Id", WIDE}},
                      false);
    for (LCM_LoadCaseWalk walk(model.source().db); walk.next();) {
        const LCM_StoredLoadCase& loadCase = walk.current();
        if (loadCase.isOwn()) {
            const NamedGroup& named = model.groups().at(loadCase.record.action);
            const SafCase words = safCaseOf(named.group, named.action, loadCase.record);
            writer.addRow({"LC" + std::to_string(loadCase.number), titleText(loadCase.record.title),
                           words.actionType, named.group.name, words.loadType, words.duration,
                           model.idOf("case " + std::to_string(loadCase.number))});
        }
    }
}

} // namespace

std::vector<Message> safLosses(const Source& source) { return SafModel(source).losses(); }

std::optional<FormatError> writeSaf(const Source& source, const std::string& version,
                                    const CombinationTable* combinations, const Sink& sink)
{
    const SafModel model(source);
    WorkbookWriter writer;
    writeModel(model, version, writer);
    writeGroups(model, writer);
    writeCases(model, writer);
    if (combinations != nullptr) {
        const auto idOf = [&](const std::string& what) { return model.idOf(what); };
        if (const Message error = writeSafCombinations(*combinations, idOf, writer); !error.empty()) {
            return FormatError{error};
        }
    }
    writer.beginSheet("MrlNotes", {{"not told in this file", WIDE * 2}}, false);
    for (const std::string& loss : englishOf(model.losses())) {
        writer.addRow({loss});
    }
    return writer.finish(sink);
}

} // namespace mrl::exchange
