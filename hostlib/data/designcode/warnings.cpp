// What can be told of a design-code file without the rules of the dialog, which stand above this library.

#include <algorithm>
#include <set>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"

namespace mrl::designcode {

namespace {

using Warnings = std::vector<Warning>;
constexpr std::size_t LABEL_BYTES = 20; // the callers' buffers for labels

void warn(Warnings& out, WarningRule rule, const std::string& text) { out.push_back({rule, 0, text}); }

void warn(Warnings& out, WarningRule rule, const DefaultAction& action, const std::string& text)
{
    out.push_back({rule, action.line, "action " + action.name + ": " + text});
}

void checkMarks(const DesignCode& code, Warnings& out)
{
    if (code.availability.gama > 0.0f && !code.hasActionsSection) {
        warn(out, WarningRule::GamaWithoutActionsSection,
             "Gama is marked, but without the section ACTIONS it is not offered");
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (code.availability.*factor.actionField < 0.0f) {
            warn(out, WarningRule::LimitBelow0, std::string("the limit of ") + factor.key + " is below 0");
        }
    }
}

void checkLabels(const DesignCode& code, Warnings& out)
{
    for (const Label& label : code.texts) {
        if (label.text.size() > LABEL_BYTES) {
            warn(out, WarningRule::LabelTooLong,
                 "the label of " + label.key + " is longer than 20 bytes and will be cut");
        }
        const auto factor = std::find_if(LCM_FACTORS.begin(), LCM_FACTORS.end(), [&](const auto& f) {
            return label.key == lcm_label_key(f.key).toStdString();
        });
        if (factor != LCM_FACTORS.end() && label.text == "none" &&
            code.availability.*(factor->actionField) != 0.0f) {
            warn(out, WarningRule::LabelNoneBesideMark,
                 std::string(factor->key) + " is marked, but its label is \"none\"");
        }
    }
}

void checkOldNumbers(const DesignCode& code, Warnings& out)
{
    std::set<int> known;
    for (const DefaultAction& action : code.actions) {
        known.insert(action.oldNumbers.begin(), action.oldNumbers.end());
    }
    for (const int number : {2, 7}) {
        if (!code.actions.empty() && known.count(number) == 0) {
            warn(out, WarningRule::OldNumberMissing,
                 "no action has the old number " + std::to_string(number) + ", which stands for the plain " +
                     (number == 2 ? "dead" : "live") + " action");
        }
    }
}

void checkUnmarkedFactors(const DesignCode& code, const DefaultAction& action, Warnings& out)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (!(code.availability.*factor.actionField > 0.0f) && action.record.*factor.actionField != 0.0f) {
            warn(out, WarningRule::FactorNotMarked, action,
                 std::string(factor.key) + " is stated, but not marked as known");
        }
    }
    if (code.availability.gama > 0.0f && action.record.gama == 0.0f) {
        warn(out, WarningRule::GamaNotStated, action, "Gama is marked, but not stated");
    }
}

/// A suffixed or grouped action hangs under the plain one of its first part, which must come first.
void checkOrder(const DesignCode& code, Warnings& out)
{
    std::set<std::int32_t> plain;
    for (const DefaultAction& action : code.actions) {
        const std::int32_t first = lcm_field_word(action.record.name);
        if (action.record.suffix == 0 && action.record.partition < 256) {
            plain.insert(first);
        } else if (plain.count(first) == 0) {
            warn(out, WarningRule::PlainActionNotAhead, action,
                 "the plain action of its first part has to stand ahead of it");
        }
    }
}

} // namespace

const char* idOf(WarningRule rule)
{
    static constexpr const char* IDS[] = {"gama-without-actions-section",
                                          "limit-below-0",
                                          "label-too-long",
                                          "label-none-beside-mark",
                                          "old-number-missing",
                                          "factor-not-marked",
                                          "gama-not-stated",
                                          "plain-action-not-ahead",
                                          "situation-not-readable",
                                          "situation-factor-not-marked",
                                          "situation-action-unknown",
                                          "situation-unfavourable-below-favourable",
                                          "action-in-no-situation"};
    static_assert(std::size(IDS) == static_cast<std::size_t>(WarningRule::ActionInNoSituation) + 1);
    return IDS[static_cast<std::size_t>(rule)];
}

std::vector<Warning> warnings(const DesignCode& code)
{
    Warnings out = code.readingWarnings;
    checkMarks(code, out);
    checkLabels(code, out);
    checkOldNumbers(code, out);
    for (const DefaultAction& action : code.actions) {
        checkUnmarkedFactors(code, action, out);
    }
    checkOrder(code, out);
    checkSituations(code, out);
    return out;
}

} // namespace mrl::designcode
