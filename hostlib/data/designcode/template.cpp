#include "hostlib/data/designcode/template.h"

#include <QByteArray>

#include "hostlib/data/designcode/ini_file.h"
#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/packed_text.h"

namespace mrl::designcode {

namespace {

constexpr const char* HEAD =
    R"(; A national annex, or a code of your own. State what differs from the base and nothing else.
;
; A value is followed by what vouches for it:  Psi0 = 0.6 {Table A1.1, verified} a note
; The word behind the last comma is one of: verified (two transcriptions or more), one source, unverified, own choice.
; A line that begins with ';' is a comment: take the ';' away to use it. 'mrl-lc code check FILE' judges the file,
; 'mrl-lc code diff BASE FILE' tells what it changes.

)";

std::string shortest(float value)
{
    return QByteArray::number(static_cast<double>(value), 'g', 6).toStdString();
}

std::string head(const DesignCode& base)
{
    return "[DESIGN CODE]\nbase    = " + base.name + "\nlabel   = My annex to " + base.name +
           "\nntcode  = " + std::to_string(base.ntcode) + "\nidcode  = " + std::to_string(base.idcode) +
           "\ncountry = " + std::to_string(base.country) + "\nyear    = " + std::to_string(base.year) +
           "\n\n";
}

std::string combinations(const DesignCode& base)
{
    std::string text =
        "; Consequence factor and reduction of permanent actions; 'none' where the annex has none.\n"
        "; [COMBINATIONS]\n";
    for (const auto& [name, origin] : base.constantOrigins) {
        text += "; " + name + " = " + shortest(base.constants.at(name)) + " {clause, unverified}\n";
    }
    return text + "\n";
}

std::string action(const DefaultAction& action)
{
    std::string text = "; [ACTION " + action.name +
                       "]\n; title = " + lcm_title_text(action.record.title).toStdString() + "\n";
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (action.origins[factor.id].isStated()) {
            text += "; " + std::string(factor.key) + " = " + shortest(action.record.*factor.actionField) +
                    " {clause, unverified}\n";
        }
    }
    return text + "\n";
}

/// All entries of them, since whoever changes a term has to repeat the others.
std::string situations(const DesignCode& base)
{
    std::string text =
        "; An action or a situation that the annex doesn't have is taken away by 'remove = yes', alone in "
        "its section:\n"
        "; [ACTION NAME]\n; remove = yes\n\n"
        "; A situation of which one term differs is stated whole: use all lines of its sections.\n";
    for (const IniSection& section : parseIni(base.flat).file.sections) {
        if (!isSituation(section.name)) {
            continue;
        }
        text += "\n; [" + section.name + "]\n";
        for (const IniEntry& entry : section.entries) {
            text += "; " + entry.key + " = " + entry.value + "\n";
        }
    }
    return text;
}

} // namespace

std::string templateText(const DesignCode& base)
{
    std::string text = HEAD + head(base) + combinations(base);
    for (const DefaultAction& each : base.actions) {
        text += action(each);
    }
    return text + situations(base);
}

} // namespace mrl::designcode
