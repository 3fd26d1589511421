// What a module does with actions and load cases: calls PROJECT
#include <cstddef>
#include <cstdio>
#include <vector>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/keys.h"

namespace {

/// Takes an action of the design code over into the project, with the code's factors. One that stands there is replaced.
/// @return its code; 0 where the design code has none of the name
int createAction(int db, const char* name)
{
    int code = 0;
    return mrl_lc_create_default_action(db, QString::fromLatin1(name), &code) ? code : 0;
}

/// "Q_B" of a record that has the name Q and the suffix B.
QString nameOf(const tagCDB_LC_ACT& action)
{
    const QString name = QString::fromLatin1(action.name, sizeof action.name).trimmed();
    const QString suffix =
        QString::fromLatin1(reinterpret_cast<const char*>(&action.suffix), sizeof action.suffix).trimmed();
    return action.suffix == 0 ? name : name + QLatin1Char('_') + suffix;
}

/// Prints the project's actions, those of the user's own too, with the factors that the design code knows.
void listActions(int db)
{
    MRL_LC_Action_Info known;
    known.init(db);
    int group = LC_KWH_ACTIONS;
    int code = LC_BLANK_WORD; // what lies below is no action
    while (mrl_cdb_kenq_ex(db, &group, &code, 1) == 0 && group == LC_KWH_ACTIONS) {
        tagCDB_LC_ACT action{};
        if (mrl_lc_getAction(db, code, action, false)) {
            std::printf("%s", qPrintable(nameOf(action)));
            if (known.gamu && known.psi0) {
                std::printf(" Gamu %g Psi0 %g", action.gamu, action.psi0);
            }
            std::printf("\n");
        }
        mrl_cdb_free_ex(db, LC_KWH_ACTIONS, code); // the function leaves the key open
    }
}

/// How many actions the design code offers.
std::size_t offered(int db)
{
    std::vector<int> codes;
    mrl_lc_get_default_action_list(db, codes);
    return codes.size();
}

/// Changes a factor of an action: reads the record and writes it back.
bool changeAction(int db, int code, float psi0)
{
    tagCDB_LC_ACT action{};
    if (!mrl_lc_getAction(db, code, action, false)) {
        return false;
    }
    action.psi0 = psi0;
    const int length = sizeof action;
    return mrl_cdb_put(db, LC_KWH_ACTIONS, code, &action, &length, 0) == CD_OK;
}

bool createLoadCases(int db)
{
    return mrl_lc_create_load_case(db, 1, QStringLiteral("G"), QStringLiteral("Dead weight")) &&
           mrl_lc_create_load_case(db, 11, QStringLiteral("q_b"), QStringLiteral("Offices")) &&
           mrl_lc_create_load_case(db, 21, QStringLiteral("W"), QStringLiteral("Wind +X")) &&
           mrl_lc_create_load_case(db, 22, QStringLiteral("W"), QStringLiteral("Wind -X"));
}

void listLoadCases(int db)
{
    std::vector<int> numbers;
    mrl_lc_list(db, numbers);
    for (const int number : numbers) {
        tagCDB_LC_CTRL record{};
        if (mrl_lc_get(db, number, record)) {
            std::printf("%d %s%s\n", number, qPrintable(mrl_lc_get_name(record)),
                        mrl_lc_isdeadtype(db, record) ? ", dead" : "");
        }
    }
}

/// Lets a load case carry its dead weight downward, once, and follow its action.
bool changeLoadCase(int db, int number)
{
    tagCDB_LC_CTRL record{};
    if (!mrl_lc_get(db, number, record)) {
        return false; // there is none, or it can't be read; the record is zero
    }
    record.dlz = -1.0f;
    record.psi0 = LC_UNDEFINED; // the action's value holds
    return mrl_lc_put(db, number, record);
}

/// Removes all load cases of a kind, or none of them.
bool removeLiveLoadCases(int db)
{
    mrl::cdb::Transaction transaction(db);
    std::vector<int> numbers;
    mrl_lc_list(db, numbers);
    for (const int number : numbers) {
        if (mrl_lc_islivetype(db, number) && !mrl_lc_remove(db, number)) {
            break; // commit() fails and tells why
        }
    }
    const mrl::cdb::Result result = transaction.commit();
    if (!result) {
        std::fprintf(stderr, "%s\n", result.text.c_str()); // the project is as before
    }
    return static_cast<bool>(result);
}

/// Removes an action, unless a load case follows it.
bool removeAction(int db, int code)
{
    std::vector<int> numbers;
    mrl_lc_list(db, numbers);
    for (const int number : numbers) {
        tagCDB_LC_CTRL record{};
        if (mrl_lc_get(db, number, record) && record.action == code) {
            return false;
        }
    }
    return mrl_cdb_del(db, LC_KWH_ACTIONS, code) == 0;
}

/// What comes back where something can't be done.
bool tryWhatFails(int db)
{
    tagCDB_LC_CTRL record{};
    record.dlx = 5.0f;
    const bool read = mrl_lc_get(db, 99, record); // false, and the record is zero
    const bool taken = mrl_lc_create_load_case(db, 1, QStringLiteral("G"), QString());   // the number is
    const bool strange = mrl_lc_create_load_case(db, 2, QStringLiteral("S"), QString()); // not in the project
    const bool gone = mrl_lc_remove(db, 99);
    const bool closed = mrl_lc_exists(-1, 1); // no such database
    return !read && record.dlx == 0.0f && !taken && !strange && !gone && !closed;
}

bool work(int db)
{
    const int wind = createAction(db, "W");
    const bool made = offered(db) > 3 && wind != 0 && createAction(db, "G") != 0 &&
                      createAction(db, "Q_B") != 0 && createAction(db, "NO") == 0 && createLoadCases(db) &&
                      changeAction(db, wind, 0.5f) && changeLoadCase(db, 1) && tryWhatFails(db);
    listActions(db);
    listLoadCases(db);
    return made && !removeAction(db, wind) && removeLiveLoadCases(db) && mrl_lc_count(db) == 1 &&
           removeAction(db, wind);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    const mrl::cdb::Opened project = mrl::cdb::open(argv[1]);
    if (!project) {
        std::fprintf(stderr, "%s\n", project.result.text.c_str());
        return 3;
    }
    const bool done = work(project.db);
    const mrl::cdb::Result state = mrl::cdb::stickyError(project.db); // the first read or write that failed
    mrl::cdb::close(project.db);
    return done && state ? 0 : 1;
}
