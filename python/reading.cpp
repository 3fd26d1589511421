#include "python/reading.h"

#include "check/finding_text.h"
#include "check/project_check.h"
#include "exchange/project_diff.h"
#include "exchange/record_cells.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/partition.h"
#include "python/values.h"
#include "rules/load_case_row.h"

namespace mrl::python {

namespace py = pybind11;

namespace {

py::dict actionDict(const LCM_StoredAction& action)
{
    const int partition = action.record.partition;
    py::dict out;
    out["name"] = lcm_code_name(action.code).toStdString();
    out["code"] = action.code;
    out["title"] = exchange::titleText(action.record.title);
    out["partition"] = lcm_word_of_id(LCM_PARTITIONS, lcm_partition_id(partition));
    out["superposition"] = lcm_word_of_id(LCM_SUPERPOSITIONS, lcm_superposition_id(partition));
    for (const LCM_Factor& factor : LCM_FACTORS) {
        out[attributeOf(factor).c_str()] = numberOf(lcm_shown_factor(action.record, factor));
    }
    return out;
}

py::dict caseDict(const LCM_StoredLoadCase& loadCase, int word, const LCM_StoredAction* action)
{
    const tagCDB_LC_CTRL& record = loadCase.record;
    py::dict out;
    out["number"] = loadCase.number;
    out["title"] = exchange::titleText(record.title);
    out["action"] = actionOf(word);
    out["dlx"] = numberOf(record.dlx);
    out["dly"] = numberOf(record.dly);
    out["dlz"] = numberOf(record.dlz);
    out["factor"] = numberOf(record.factor);
    py::dict effective;
    const LCM_LoadCaseFactors stored = lcm_stored_factors(record);
    const LCM_LoadCaseFactors shown =
        lcm_shown_factors(record, action == nullptr ? nullptr : &action->record);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        out[attributeOf(factor).c_str()] = numberOf(stored[factor.id]);
        effective[attributeOf(factor).c_str()] = numberOf(shown[factor.id]);
    }
    out["effective"] = effective;
    out["source"] = action == nullptr ? py::object(py::none()) : py::object(out["action"]);
    return out;
}

const char* subjectOf(LCM_Subject subject)
{
    return subject == LCM_Subject::Action       ? "action"
           : subject == LCM_Subject::LoadCase   ? "loadcase"
           : subject == LCM_Subject::DesignCode ? "designcode"
           : subject == LCM_Subject::Key        ? "key"
                                                : "project";
}

py::object nameOf(const LCM_Finding& finding)
{
    switch (finding.subject) {
    case LCM_Subject::Action:
        return py::str(lcm_code_name(finding.id).toStdString());
    case LCM_Subject::LoadCase:
        return py::str(std::to_string(finding.id));
    case LCM_Subject::Key:
        return py::str(std::to_string(finding.group) + "/" + std::to_string(finding.id));
    default:
        return py::none();
    }
}

py::object fieldOf(const LCM_Finding& finding)
{
    const LCM_Factor* factor = finding.subject == LCM_Subject::LoadCase
                                   ? lcm_factor_of_load_case_column(finding.column)
                                   : lcm_factor_of_action_column(finding.column);
    return factor == nullptr ? py::object(py::none()) : py::object(py::str(factor->key));
}

} // namespace

py::list actionsOf(const Session& session)
{
    py::list out;
    for (const LCM_StoredAction& action : lcm_stored_actions(session.db())) {
        out.append(actionDict(action));
    }
    return out;
}

py::list caseNumbersOf(const Session& session)
{
    py::list out;
    for (LCM_LoadCaseWalk walk(session.db()); walk.next();) {
        if (walk.current().isOwn()) {
            out.append(walk.current().number);
        }
    }
    return out;
}

py::object caseOf(const Session& session, int number)
{
    const auto found = lcm_stored_load_case(session.db(), number);
    if (!found || !found->isOwn()) {
        return py::none();
    }
    int word = found->record.action;
    lcm_resolve_action_word(word);
    const auto action = lcm_has_own_factors(word) ? std::nullopt : lcm_stored_action(session.db(), word);
    return caseDict(*found, word, action ? &*action : nullptr);
}

py::list findingsOf(const Session& session)
{
    py::list out;
    for (const LCM_Finding& finding : lcm_check_project(session.db(), false)) {
        py::dict each;
        each["subject"] = subjectOf(finding.subject);
        each["name"] = nameOf(finding);
        each["field"] = fieldOf(finding);
        each["rule"] = lcm_rule_id(finding.rule);
        each["message"] = lcm_finding_english(finding).toStdString();
        out.append(each);
    }
    return out;
}

py::list differencesOf(const Session& before, const Session& after)
{
    constexpr const char* KINDS[] = {"added", "removed", "changed"};
    py::list out;
    const auto a = exchange::contentOf(before.db(), before.facts());
    const auto b = exchange::contentOf(after.db(), after.facts());
    for (const exchange::ProjectDifference& difference : exchange::differencesOf(a, b)) {
        py::list values;
        for (const exchange::DifferentValue& value : difference.values) {
            values.append(py::make_tuple(value.name, value.before, value.after));
        }
        py::dict each;
        each["kind"] = KINDS[static_cast<int>(difference.kind)];
        each["subject"] = difference.subject;
        each["name"] = difference.name;
        each["values"] = values;
        out.append(each);
    }
    return out;
}

py::list codes()
{
    py::list out;
    for (const designcode::Found& found : designcode::list()) {
        const auto read = designcode::read(found.file);
        if (const auto* code = std::get_if<designcode::DesignCode>(&read)) {
            py::dict each;
            each["name"] = code->name;
            each["label"] = code->label;
            each["file"] = code->file;
            py::list situations;
            for (const LCM_Situation& situation : code->situations) {
                situations.append(situation.name);
            }
            each["situations"] = situations;
            out.append(each);
        }
    }
    return out;
}

} // namespace mrl::python
