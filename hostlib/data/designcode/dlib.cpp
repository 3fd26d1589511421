#include "host/mrl_dlib.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "host/mrl_cdb.h"
#include "host/mrl_factor_origin.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/chain.h"
#include "hostlib/data/designcode/designcode_active.h"
#include "lcdata/values/keys.h"

namespace {

using mrl::designcode::DesignCode;
using mrl::designcode::IndexedCode;

constexpr int NOT_FOUND = -1;

/// The active design code and the database that it was taken from.
struct Active
{
    int db = -1;
    std::shared_ptr<const IndexedCode> code;
};

Active& active()
{
    static Active state;
    return state;
}

/// The design code follows the current database, which others change with mrl_cdb_use: looked at with each
/// call, taken anew only when it changed. mrl_dlib_ini_switch is what notices a changed file or fact.
const std::shared_ptr<const IndexedCode>& activeCode()
{
    const int current = mrl_cdb_status(-1);
    if (active().db != current) {
        active() = {current, mrl::designcode::indexedOfDatabase(current).code};
    }
    return active().code;
}

/// The first definition of an action among the records of its key.
std::optional<tagCDB_LC_ACT> storedAction(int db, int code)
{
    std::optional<tagCDB_LC_ACT> found;
    tagCDB_LC_ACT record{};
    int length = sizeof record;
    int position = 0;
    while (!found && mrl_cdb_get(db, LC_KWH_ACTIONS, code, &record, &length, position) < CD_END) {
        if (record.kind == LC_KIND_ACTION) {
            found = record;
        }
        length = sizeof record;
        ++position;
    }
    mrl_cdb_free_ex(db, LC_KWH_ACTIONS, code);
    return found;
}

int deliver(const tagCDB_LC_ACT& record, tagCDB_LC_ACT* out)
{
    *out = record;
    return 0;
}

int positiveLookup(int which, tagCDB_LC_ACT* out)
{
    if (const auto& code = activeCode()) {
        if (const auto* action = code->find(which)) {
            return deliver(action->record, out);
        }
    }
    // Below the codes stand the numbers of the superposition data, which are no actions.
    if (which < LC_BLANK_WORD) {
        return NOT_FOUND;
    }
    const auto stored = storedAction(mrl_cdb_status(-1), which);
    return stored ? deliver(*stored, out) : NOT_FOUND;
}

MRL_FactorState stateOf(mrl::designcode::State state)
{
    switch (state) {
    case mrl::designcode::State::Verified:
        return MRL_FactorState::Verified;
    case mrl::designcode::State::OneSource:
        return MRL_FactorState::OneSource;
    case mrl::designcode::State::OwnChoice:
        return MRL_FactorState::OwnChoice;
    case mrl::designcode::State::Unverified:
        break;
    }
    return MRL_FactorState::Unverified;
}

int identity(int DesignCode::*number)
{
    const auto& code = activeCode();
    return code ? code->code.*number : 0;
}

} // namespace

int mrl_dlib_ini_switch(int db)
{
    if (!mrl::cdb::isOpen(db)) {
        return NOT_FOUND;
    }
    mrl_cdb_use(db, 0);
    active() = {db, mrl::designcode::indexedOfDatabase(db).code};
    return active().code ? 0 : NOT_FOUND;
}

int mrl_dlib_lcact_info(int which, tagCDB_LC_ACT* out)
{
    if (which > 0) {
        return positiveLookup(which, out);
    }
    const auto& code = activeCode();
    if (!code) {
        return NOT_FOUND;
    }
    if (which == 0) {
        return deliver(code->code.availability, out);
    }
    // In 64 bits, since the smallest int has no negative.
    const auto index = static_cast<std::size_t>(-(static_cast<long long>(which) + 1));
    const auto& actions = code->code.actions;
    return index < actions.size() ? deliver(actions[index].record, out) : NOT_FOUND;
}

int mrl_dlib_lftype_enum(int code) { return code; }

int mrl_dlib_boxed_value(const char* box, const char* name, float& value)
{
    const auto& code = activeCode();
    if (!code || std::strcmp(box, "COMBINATIONS") != 0) {
        return 0;
    }
    std::optional<float> found;
    if (std::strcmp(name, "KFI") == 0) {
        found = code->code.kfi;
    } else if (std::strcmp(name, "XSI") == 0) {
        found = code->code.xsi;
    }
    value = found.value_or(value);
    return found ? 1 : 0;
}

bool mrl_dlib_factor_origin(int action, const char* factor, MRL_FactorOrigin& origin)
{
    const auto& code = activeCode();
    const auto* found = code ? code->find(action) : nullptr;
    const auto* const which =
        std::find_if(LCM_FACTORS.begin(), LCM_FACTORS.end(),
                     [factor](const auto& each) { return std::strcmp(each.key, factor) == 0; });
    // An old number finds the action too, but the caller asks for one by its code.
    if (found == nullptr || found->code != action || which == LCM_FACTORS.end()) {
        return false;
    }
    const mrl::designcode::Origin& stated = found->origins[which->id];
    if (!stated.isStated()) {
        return false;
    }
    origin.value = lcm_stored_factor(found->record, *which);
    origin.code = QString::fromStdString(mrl::designcode::nameOfFile(stated.file));
    origin.clause = QString::fromStdString(stated.source.clause);
    origin.state = stateOf(stated.source.state);
    origin.note = QString::fromStdString(stated.source.note);
    return true;
}

int mrl_dlib_cdb_get_ntcode() { return identity(&DesignCode::ntcode); }
int mrl_dlib_cdb_get_idcode() { return identity(&DesignCode::idcode); }
int mrl_dlib_cdb_get_dcntry() { return identity(&DesignCode::country); }
int mrl_dlib_cdb_get_dcyear() { return identity(&DesignCode::year); }
