// What can be told of a design-code file without the rules of the dialog, which stand above this library.

#include <algorithm>
#include <array>
#include <set>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/partition.h"

namespace mrl::designcode {

namespace {

using Warnings = std::vector<Warning>;
constexpr std::size_t LABEL_BYTES = 20; // the callers' buffers for labels
constexpr float MOST_GAMMA = 3.0f;      // above any partial factor that we know
constexpr float LEAST_KFI = 0.5f;
constexpr float MOST_KFI = 2.0f;

struct RuleText
{
    WarningRule rule;
    const char* id;
    const char* cure;
};

constexpr std::array<RuleText, 19> RULES{{
    {WarningRule::GamaWithoutActionsSection, "gama-without-actions-section", "add the section [ACTIONS]"},
    {WarningRule::LimitBelow0, "limit-below-0", "write a limit above 0, or 0 for a factor that isn't known"},
    {WarningRule::LabelTooLong, "label-too-long", "shorten it"},
    {WarningRule::LabelNoneBesideMark, "label-none-beside-mark", "drop the mark or the label"},
    {WarningRule::OldNumberMissing, "old-number-missing", "state it in the entry 'old' of that action"},
    {WarningRule::FactorNotMarked, "factor-not-marked", "mark it in [AVAILABILITY], or leave it out"},
    {WarningRule::FactorNotStated, "factor-not-stated", "state it; 0 is written as 0"},
    {WarningRule::GamaNotStated, "gama-not-stated", "state it; 0 is written as 0"},
    {WarningRule::GammaAbove3, "gamma-above-3", "look for the point"},
    {WarningRule::PsiAbove1, "psi-above-1", "look for the point"},
    {WarningRule::XsiOutOfRange, "xsi-out-of-range", "write a factor above 0 and at most 1"},
    {WarningRule::KfiOutOfRange, "kfi-out-of-range", "write a factor between 0.5 and 2"},
    {WarningRule::GamfAbove1OfVariableAction, "gamf-above-1-of-variable-action",
     "write 0: a variable action is left out where it is favourable"},
    {WarningRule::PlainActionNotAhead, "plain-action-not-ahead", "move the plain action ahead of it"},
    {WarningRule::SituationNotReadable, "situation-not-readable", ""},
    {WarningRule::SituationFactorNotMarked, "situation-factor-not-marked",
     "mark it in [AVAILABILITY], or write a number"},
    {WarningRule::SituationActionUnknown, "situation-action-unknown",
     "name an action of the file, or leave the entry out"},
    {WarningRule::SituationUnfavourableBelowFavourable, "situation-unfavourable-below-favourable",
     "exchange the two"},
    {WarningRule::ActionInNoSituation, "action-in-no-situation", "give it a term"},
}};

constexpr bool rulesStandAtTheirPlaces()
{
    for (std::size_t i = 0; i < RULES.size(); ++i) {
        if (static_cast<std::size_t>(RULES[i].rule) != i) {
            return false;
        }
    }
    return true;
}
static_assert(rulesStandAtTheirPlaces());

/// Judges a code, one kind of trap after the other.
class Judge
{
  public:
    explicit Judge(const DesignCode& code) : m_code(code), m_out(code.readingWarnings) {}

    Warnings judge();

  private:
    void warn(WarningRule rule, const std::string& text);
    void warn(WarningRule rule, const DefaultAction& action, const std::string& text,
              const Origin& origin = {});
    void marks();
    void labels();
    void oldNumbers();
    void constants();
    void factors(const DefaultAction& action);
    void presence(const DefaultAction& action, const LCM_Factor& factor);
    void range(const DefaultAction& action, const LCM_Factor& factor);
    void order();

    const DesignCode& m_code;
    Warnings m_out;
};

void Judge::warn(WarningRule rule, const std::string& text)
{
    m_out.push_back({rule, m_code.file, 0, 0, text, {}});
}

void Judge::warn(WarningRule rule, const DefaultAction& action, const std::string& text, const Origin& origin)
{
    const bool hasEntry = origin.isStated();
    m_out.push_back({rule,
                     hasEntry ? origin.file : action.file,
                     hasEntry ? origin.line : action.line,
                     hasEntry ? origin.column : 0,
                     "action " + action.name + ": " + text,
                     {}});
}

void Judge::marks()
{
    if (m_code.availability.gama > 0.0f && !m_code.hasActionsSection) {
        warn(WarningRule::GamaWithoutActionsSection,
             "Gama is marked, but without the section ACTIONS it is not offered");
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (m_code.availability.*factor.actionField < 0.0f) {
            warn(WarningRule::LimitBelow0, std::string("the limit of ") + factor.key + " is below 0");
        }
    }
}

void Judge::labels()
{
    for (const Label& label : m_code.texts) {
        if (label.text.size() > LABEL_BYTES) {
            warn(WarningRule::LabelTooLong,
                 "the label of " + label.key + " is longer than 20 bytes and will be cut");
        }
        const auto* const factor =
            std::find_if(LCM_FACTORS.begin(), LCM_FACTORS.end(), [&](const LCM_Factor& each) {
                return label.key == lcm_label_key(QString::fromLatin1(each.key)).toStdString();
            });
        if (factor != LCM_FACTORS.end() && label.text == "none" &&
            m_code.availability.*(factor->actionField) != 0.0f) {
            warn(WarningRule::LabelNoneBesideMark,
                 std::string(factor->key) + " is marked, but its label is \"none\"");
        }
    }
}

void Judge::oldNumbers()
{
    std::set<int> known;
    for (const DefaultAction& action : m_code.actions) {
        known.insert(action.oldNumbers.begin(), action.oldNumbers.end());
    }
    for (const int number : {2, 7}) {
        if (!m_code.actions.empty() && known.count(number) == 0) {
            warn(WarningRule::OldNumberMissing, "no action has the old number " + std::to_string(number) +
                                                    ", which stands for the plain " +
                                                    (number == 2 ? "dead" : "live") + " action");
        }
    }
}

void Judge::constants()
{
    const auto judge = [&](const char* name, const std::optional<float>& value, WarningRule rule,
                           bool isSound, const std::string& text) {
        if (value && !isSound) {
            const Origin& origin = m_code.constantOrigins.at(name);
            m_out.push_back({rule, origin.file, origin.line, origin.column, text, {}});
        }
    };
    judge("KFI", m_code.kfi, WarningRule::KfiOutOfRange, m_code.kfi >= LEAST_KFI && m_code.kfi <= MOST_KFI,
          "KFI is not between 0.5 and 2");
    judge("XSI", m_code.xsi, WarningRule::XsiOutOfRange, m_code.xsi > 0.0f && m_code.xsi <= 1.0f,
          "XSI is not above 0 and at most 1");
}

/// A factor that isn't stated is 0: a missing Psi0 makes an accompanying action vanish.
void Judge::presence(const DefaultAction& action, const LCM_Factor& factor)
{
    const Origin& origin = action.origins[factor.id];
    const bool isMarked = m_code.availability.*factor.actionField > 0.0f;
    const std::string key = factor.key;
    if (!isMarked && action.record.*factor.actionField != 0.0f) {
        warn(WarningRule::FactorNotMarked, action, key + " is stated, but not marked as known", origin);
    } else if (isMarked && !origin.isStated()) {
        const bool isGama = factor.id == LCM_FactorId::Gama;
        warn(isGama ? WarningRule::GamaNotStated : WarningRule::FactorNotStated, action,
             key + " is marked, but not stated" + (isGama ? "" : ": it counts as 0"));
    }
}

void Judge::range(const DefaultAction& action, const LCM_Factor& factor)
{
    const float value = action.record.*factor.actionField;
    const Origin& origin = action.origins[factor.id];
    const std::string key = factor.key;
    const bool isVariable = (action.record.partition >> 4 & 0xF) == LC_CATEGORY_VARIABLE;
    if (lcm_is_safety(factor.kind) && value > MOST_GAMMA) {
        warn(WarningRule::GammaAbove3, action, key + " is above 3", origin);
    } else if (!lcm_is_safety(factor.kind) && value > 1.0f) {
        warn(WarningRule::PsiAbove1, action, key + " is above 1", origin);
    }
    if (factor.id == LCM_FactorId::Gamf && isVariable && value > 1.0f) {
        warn(WarningRule::GamfAbove1OfVariableAction, action, "Gamf of a variable action is above 1", origin);
    }
}

void Judge::factors(const DefaultAction& action)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        presence(action, factor);
        range(action, factor);
    }
}

/// A suffixed or grouped action hangs under the plain one of its first part, which must come first.
void Judge::order()
{
    std::set<std::int32_t> plain;
    for (const DefaultAction& action : m_code.actions) {
        const std::int32_t first = lcm_field_word(action.record.name);
        if (action.record.suffix == 0 && action.record.partition < 256) {
            plain.insert(first);
        } else if (plain.count(first) == 0) {
            warn(WarningRule::PlainActionNotAhead, action,
                 "the plain action of its first part has to stand ahead of it");
        }
    }
}

Warnings Judge::judge()
{
    marks();
    labels();
    oldNumbers();
    constants();
    for (const DefaultAction& action : m_code.actions) {
        factors(action);
    }
    order();
    checkSituations(m_code, m_out);
    for (Warning& warning : m_out) {
        if (warning.cure.empty()) {
            warning.cure = RULES[static_cast<std::size_t>(warning.rule)].cure;
        }
    }
    std::stable_sort(m_out.begin(), m_out.end(),
                     [](const Warning& a, const Warning& b) { return a.line < b.line; });
    return std::move(m_out);
}

} // namespace

const char* idOf(WarningRule rule) { return RULES[static_cast<std::size_t>(rule)].id; }

std::vector<Warning> warnings(const DesignCode& code) { return Judge(code).judge(); }

} // namespace mrl::designcode
