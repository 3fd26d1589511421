#include <algorithm>
#include <cctype>
#include <set>

#include "hostlib/data/designcode/action_name.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/factor_fields.h"

namespace mrl::designcode {

namespace {

using Warnings = std::vector<Warning>;
constexpr std::size_t LABEL_BYTES = 20; // the callers' buffers for labels

void warn(Warnings& out, const DefaultAction& action, const std::string& text)
{
    out.push_back({action.line, "action " + action.name + ": " + text});
}

bool isTheCodeWithItsOwnBound(const DesignCode& code)
{
    return code.ntcode == 0 && code.idcode == 2 && code.country == 45 && code.year == 2004;
}

void checkMarks(const DesignCode& code, Warnings& out)
{
    if (code.availability.gama > 0.0f && !code.hasActionsSection) {
        out.push_back({0, "Gama is marked, but without the section ACTIONS it is not offered"});
    }
    if (code.availability.psi1 != 0.0f && code.availability.psi2 == 0.0f) {
        out.push_back({0, "Psi1 is marked without Psi2, so that every Psi1 below 1.0 is refused"});
    }
    for (const FactorField& factor : FACTOR_FIELDS) {
        if (code.availability.*factor.field < 0.0f) {
            out.push_back({0, std::string("the limit of ") + factor.name + " is below 0"});
        }
    }
}

void checkLabels(const DesignCode& code, Warnings& out)
{
    for (const Label& label : code.texts) {
        if (label.text.size() > LABEL_BYTES) {
            out.push_back({0, "the label of " + label.key + " is longer than 20 bytes and will be cut"});
        }
        const auto factor = std::find_if(FACTOR_FIELDS.begin(), FACTOR_FIELDS.end(),
                                         [&](const auto& f) { return label.key == f.labelKey; });
        if (factor != FACTOR_FIELDS.end() && label.text == "none" &&
            code.availability.*(factor->field) != 0.0f) {
            out.push_back({0, std::string(factor->name) + " is marked, but its label is \"none\""});
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
            out.push_back({0, "no action has the old number " + std::to_string(number) +
                                  ", which stands for the plain " + (number == 2 ? "dead" : "live") +
                                  " action"});
        }
    }
}

void checkName(const DefaultAction& action, Warnings& out)
{
    const auto isLower = [](unsigned char c) { return std::islower(c) != 0; };
    if (std::any_of(action.name.begin(), action.name.end(), isLower)) {
        warn(out, action, "the name holds lower-case letters and can't be typed");
    }
    const auto cut = action.name.find('_');
    if (cut != std::string::npos && action.name.size() - cut > 2) {
        warn(out, action, "a suffix of more than one character doesn't survive editing");
    }
    if (action.name.front() == 'Y') {
        warn(out, action, "names that begin with Y are reserved and never loaded from a project");
    }
}

/// The rules by which the dialog judges a row, asked of a default action: nobody could accept the dialog with
/// a default that breaks one.
void checkSafetyFactors(const tagCDB_LC_ACT& limits, const DefaultAction& action, Warnings& out)
{
    const tagCDB_LC_ACT& record = action.record;
    if (limits.gamu != 0.0f && !(record.gamu > 0.0f)) {
        warn(out, action, "Gamu has to be above 0");
    }
    if (limits.gamu != 0.0f && limits.gamf != 0.0f && !(record.gamf >= 0.0f && record.gamf <= record.gamu)) {
        warn(out, action, "Gamf has to be between 0 and Gamu");
    }
}

void checkCombinationFactors(const DesignCode& code, const DefaultAction& action, Warnings& out)
{
    const tagCDB_LC_ACT& limits = code.availability;
    const tagCDB_LC_ACT& record = action.record;
    const float psi1 = limits.psi1 != 0.0f ? record.psi1 : 1.0f;
    const float psi2 = limits.psi2 != 0.0f ? record.psi2 : 1.0f;
    const bool ownBound = isTheCodeWithItsOwnBound(code);
    const float leastPsi1s = ownBound ? 0.9f : psi1;
    if (limits.psi0 != 0.0f && !(record.psi0 >= 0.0f && record.psi0 <= limits.psi0)) {
        warn(out, action, "Psi0 has to be between 0 and its limit");
    }
    if (limits.psi1 != 0.0f && !(record.psi1 >= std::max(0.0f, psi2) && record.psi1 <= limits.psi1)) {
        warn(out, action, "Psi1 has to be between Psi2 and its limit");
    }
    if (limits.psi2 != 0.0f && !(record.psi2 >= 0.0f && record.psi2 <= psi1 && record.psi2 <= limits.psi2)) {
        warn(out, action, "Psi2 has to be between 0 and Psi1, and at most its limit");
    }
    if (limits.psi1s != 0.0f &&
        !(record.psi1s >= std::max(0.0f, leastPsi1s) && record.psi1s <= limits.psi1s)) {
        warn(out, action,
             ownBound ? "Psi1s has to be between 0.9 and its limit"
                      : "Psi1s has to be between Psi1 and its limit");
    }
}

void checkUnmarkedFactors(const DesignCode& code, const DefaultAction& action, Warnings& out)
{
    for (const FactorField& factor : FACTOR_FIELDS) {
        if (!(code.availability.*factor.field > 0.0f) && action.record.*factor.field != 0.0f) {
            warn(out, action, std::string(factor.name) + " is stated, but not marked as known");
        }
    }
    if (code.availability.gama > 0.0f && action.record.gama == 0.0f) {
        warn(out, action, "Gama is marked, but not stated");
    }
}

/// A suffixed or grouped action hangs under the plain one of its first part, which must come first.
void checkOrder(const DesignCode& code, Warnings& out)
{
    std::set<std::int32_t> plain;
    for (const DefaultAction& action : code.actions) {
        const std::int32_t first = packWord({action.record.name, sizeof action.record.name});
        if (action.record.suffix == 0 && action.record.partition < 256) {
            plain.insert(first);
        } else if (plain.count(first) == 0) {
            warn(out, action, "the plain action of its first part has to stand ahead of it");
        }
    }
}

} // namespace

std::vector<Warning> warnings(const DesignCode& code)
{
    Warnings out;
    checkMarks(code, out);
    checkLabels(code, out);
    checkOldNumbers(code, out);
    for (const DefaultAction& action : code.actions) {
        checkName(action, out);
        checkSafetyFactors(code.availability, action, out);
        checkCombinationFactors(code, action, out);
        checkUnmarkedFactors(code, action, out);
    }
    checkOrder(code, out);
    return out;
}

} // namespace mrl::designcode
