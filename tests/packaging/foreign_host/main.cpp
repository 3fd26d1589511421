// A host of its own: no library of ours but the functions, no file, no window. It creates, lists, reads, changes and
// removes load cases and actions through them.
#include <cstdio>
#include <vector>

#include "database.h"
#include "host/mrl_cdb.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"

namespace {

bool allGood = true;

void expect(bool good, const char* what)
{
    if (!good) {
        std::fprintf(stderr, "failed: %s\n", what);
        allGood = false;
    }
}

constexpr int DEAD = 0x20202047; // "G   "
constexpr int LIVE = 0x20202051; // "Q   "

void actionsComeFromTheDesignCode(int db)
{
    std::vector<int> codes;
    expect(mrl_lc_get_default_action_list(db, codes) && codes.size() == 4, "the code's actions are listed");
    expect(mrl_lc_get_default_action(db, true) == DEAD, "the first dead action is the default one");
    expect(mrl_lc_create_default_action(db, LIVE), "an action of the code is written to the project");
    expect(mrl_lc_has_action(db, LIVE) && !mrl_lc_has_action(db, DEAD), "just this action is in the project");
    MRL_LC_Action_Info info;
    expect(info.init(db) && info.gamu && info.psi0 && !info.gama, "the code tells which factors it has");
}

void loadCasesAreCreated(int db)
{
    tagCDB_LC_CTRL record{};
    expect(mrl_lc_init(db, 1, record, true, true), "a load case of the default dead action is created");
    expect(record.action == DEAD && mrl_lc_current(db) == 1, "it has its action and is the current one");
    expect(mrl_lc_create_load_case(db, 7, LIVE, QStringLiteral("Storage")), "a load case is created by code");
    expect(mrl_lc_create_load_case(db, 9, QStringLiteral("q"), QStringLiteral("Traffic")), "and by name");
    expect(!mrl_lc_create_load_case(db, 9, LIVE, QString()), "a number that is taken is refused");
    expect(!mrl_lc_create_load_case(db, 10, QStringLiteral("W"), QString()),
           "an action outside the project, too");
}

void loadCasesAreListedAndRead(int db)
{
    std::vector<int> numbers;
    mrl_lc_list(db, numbers);
    expect(numbers == std::vector<int>({1, 7, 9}), "the numbers are listed in ascending order");
    expect(mrl_lc_count(db) == 3 && mrl_lc_getmin(db) == 1 && mrl_lc_getmax(db) == 9,
           "count, lowest, highest");
    expect(mrl_lc_get_name(db, 7) == QStringLiteral("Storage"), "a title is read");
    expect(mrl_lc_isdeadtype(db, 1) && mrl_lc_islivetype(db, 7), "the kind of loading is known");
    expect(mrl_lc_get_name(db, 8).isEmpty() && !mrl_lc_exists(db, 8),
           "a number without a load case is empty");
}

void loadCasesAreChanged(int db)
{
    tagCDB_LC_CTRL record{};
    expect(mrl_lc_get(db, 7, record), "a record is read");
    record.dlz = -1.0f;
    expect(mrl_lc_put(db, 7, record) && mrl_lc_hasdeadloadfactor(db, 7), "its dead weight is changed");
    mrl_lc_set_action(db, record, 0x20202057, true);
    expect(mrl_lc_has_action(db, 0x20202057) && record.psi0 == LC_UNDEFINED, "it follows another action");
    mrl_lc_set_current(db, 7);
    expect(mrl_lc_current(db) == 7, "it becomes the current one");
}

void loadCasesAreRemoved(int db)
{
    expect(mrl_lc_remove(db, 7) && !mrl_lc_exists(db, 7), "a load case is removed");
    expect(!mrl_lc_remove(db, 7), "and can't be removed again");
    expect(mrl_lc_count(db) == 2, "the others stay");
}

void databasesDontMix(int db)
{
    const int other = openDatabase();
    mrl_cdb_use(db, 0);
    expect(mrl_lc_count(other) == 0 && mrl_lc_getmax(other) == -1, "an empty database has no load case");
    expect(mrl_lc_create_load_case(other, 1, 70, QString()), "it takes one of its own");
    expect(mrl_cdb_status(-1) == db, "the current database is left as it was");
}

} // namespace

int main()
{
    const int db = openDatabase();
    actionsComeFromTheDesignCode(db);
    loadCasesAreCreated(db);
    loadCasesAreListedAndRead(db);
    loadCasesAreChanged(db);
    loadCasesAreRemoved(db);
    databasesDontMix(db);
    return allGood ? 0 : 1;
}
