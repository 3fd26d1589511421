#include "cli/design_code_columns.h"

#include <algorithm>

#include "cli/arguments.h"

namespace mrl::cli {

namespace {

bool labelIsNone(const designcode::DesignCode& code, const char* key)
{
    return std::any_of(code.texts.begin(), code.texts.end(), [key](const designcode::Label& label) {
        return label.key == key && qtext(label.text).simplified() == QLatin1String("none");
    });
}

} // namespace

MRL_LC_Action_Info columnsOf(const designcode::DesignCode& code)
{
    const tagCDB_LC_ACT& marks = code.availability;
    MRL_LC_Action_Info info;
    info.gamu = marks.gamu > 0.0f && !labelIsNone(code, "TXT_GAMU");
    info.gamf = marks.gamf > 0.0f && !labelIsNone(code, "TXT_GAMF");
    info.gama = marks.gama > 0.0f && code.hasActionsSection && !labelIsNone(code, "TXT_GAMA");
    info.psi0 = marks.psi0 > 0.0f;
    info.psi1 = marks.psi1 > 0.0f;
    info.psi2 = marks.psi2 > 0.0f;
    info.psi1s = marks.psi1s > 0.0f;
    return info;
}

} // namespace mrl::cli
