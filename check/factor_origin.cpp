#include "check/factor_origin.h"

#include <QCoreApplication>

#include "host/mrl_factor_origin.h"
#include "lcdata/values/action_code.h"

namespace {

struct LCM_OriginText
{
    Q_DECLARE_TR_FUNCTIONS(LCM_OriginText)
};

QString wordOf(MRL_FactorState state)
{
    switch (state) {
    case MRL_FactorState::Verified:
        return LCM_OriginText::tr("verified");
    case MRL_FactorState::OneSource:
        return LCM_OriginText::tr("one source");
    case MRL_FactorState::OwnChoice:
        return LCM_OriginText::tr("own choice");
    case MRL_FactorState::Unverified:
        break;
    }
    return LCM_OriginText::tr("unverified");
}

/// "en1990, Table A1.1, verified".
QString sourceOf(const MRL_FactorOrigin& origin)
{
    QStringList parts{origin.code};
    if (!origin.clause.isEmpty()) {
        parts << origin.clause;
    }
    parts << wordOf(origin.state);
    return parts.join(QStringLiteral(", "));
}

float shownValue(const MRL_FactorOrigin& origin, const LCM_Factor& factor)
{
    return factor.kind == LCM_FactorKind::Accidental ? lcm_shown_gama(origin.value) : origin.value;
}

} // namespace

QString lcm_factor_text(float value) { return QString::number(static_cast<double>(value), 'g', 6); }

LCM_FactorOrigin lcm_factor_origin(int action, const LCM_Factor& factor, const QString& symbol, float shown)
{
    // The function may be missing from a host.
    if (shown == LC_UNDEFINED || &mrl_dlib_factor_origin == nullptr) {
        return {};
    }
    const QString head =
        QStringLiteral("%1 %2 %3: ").arg(lcm_code_name(action), symbol, lcm_factor_text(shown));
    MRL_FactorOrigin origin;
    if (!mrl_dlib_factor_origin(action, factor.key, origin)) {
        return {head + LCM_OriginText::tr("yours; the code states none"), false};
    }
    const QString note = origin.note.isEmpty() ? QString() : QStringLiteral("; ") + origin.note;
    const float stated = shownValue(origin, factor);
    if (stated == shown) {
        return {head + sourceOf(origin) + note, false};
    }
    return {head +
                LCM_OriginText::tr("yours; the code says %1 (%2)")
                    .arg(lcm_factor_text(stated), sourceOf(origin)) +
                note,
            true};
}
