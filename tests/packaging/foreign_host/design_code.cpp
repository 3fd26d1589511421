// The design-code half of a host's contracts: one code for every project, a handful of actions in memory.
#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

#include "database.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "host/mrl_lib.h"
#include "lcdata/values/records.h"

namespace {

constexpr int BLANKS = 0x20202020;

/// Category in bits 4 to 7: 1 dead, 2 prestress, 3 live.
tagCDB_LC_ACT action(char name, int partition, float gamu, float gamf, float psi0)
{
    tagCDB_LC_ACT made{};
    made.kind = LC_KIND_ACTION;
    std::memset(made.name, ' ', sizeof made.name);
    made.name[0] = name;
    made.partition = partition;
    made.gamu = gamu;
    made.gamf = gamf;
    made.psi0 = psi0;
    made.psi1 = 1.0f;
    made.psi2 = 1.0f;
    made.psi1s = 1.0f;
    return made;
}

const std::array<tagCDB_LC_ACT, 4>& actions()
{
    static const std::array<tagCDB_LC_ACT, 4> list{
        action('G', 1 << 4, 1.35f, 1.0f, 1.0f), action('P', 2 << 4, 1.0f, 1.0f, 1.0f),
        action('Q', 3 << 4, 1.5f, 0.0f, 0.7f), action('W', 3 << 4, 1.5f, 0.0f, 0.6f)};
    return list;
}

int codeOf(const tagCDB_LC_ACT& record)
{
    int code = 0;
    std::memcpy(&code, record.name, sizeof code);
    return code;
}

/// The old action numbers.
int codeOfOldNumber(int number)
{
    switch (number) {
    case 2:
        return codeOf(actions()[0]);
    case 7:
        return codeOf(actions()[2]);
    default:
        return 0;
    }
}

} // namespace

int mrl_dlib_ini_switch(int db) { return mrl_cdb_use(db, 0) == db ? 0 : -1; }

int mrl_dlib_lcact_info(int which, tagCDB_LC_ACT* out)
{
    if (which == 0) {
        *out = action(' ', 0, 1.0f, 1.0f, 1.0f);
        return 0;
    }
    const int count = static_cast<int>(actions().size());
    if (which < 0) {
        if (-which > count) {
            return -1;
        }
        *out = actions()[static_cast<std::size_t>(-which - 1)];
        return 0;
    }
    const int code = which < BLANKS ? codeOfOldNumber(which) : which;
    const auto found = std::find_if(actions().begin(), actions().end(),
                                    [code](const tagCDB_LC_ACT& one) { return codeOf(one) == code; });
    if (found == actions().end()) {
        return -1;
    }
    *out = *found;
    return 0;
}

int mrl_dlib_lftype_enum(int code) { return code; }

bool mrl_lib_designcode_file(int, char* buffer, int size)
{
    if (size > 0) {
        buffer[0] = '\0';
    }
    return false;
}

int mrl_lib_profile_read(const char*, const char*, const char*, int, void*, char*, int, int) { return -1; }
