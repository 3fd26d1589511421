#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <QFile>
#include <QTemporaryDir>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/actions.h"
#include "lcdata/key_walk.h"
#include "lcdata/load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packing.h"
#include "model/working_model.h"

// An input is a row of records as any module may have left them: which group (one byte), the element (four),
// the length (one) and the bytes. All functions run over them, the model loads and writes back, and what
// belongs to other modules must be as it was.

namespace {

constexpr int groups[] = {0, 10, 12, 14};

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A design code with a dead and a live action, written once.
std::string designCode()
{
    static const QTemporaryDir folder;
    static const std::string path = [] {
        QFile file(folder.filePath(QStringLiteral("code.ini")));
        require(file.open(QIODevice::WriteOnly));
        file.write("[DESIGN CODE]\nlabel = x\nntcode = 1\nidcode = 1\ncountry = 1\nyear = 1\n"
                   "[AVAILABILITY]\nGamu = 1\nPsi0 = 1\n[ACTIONS]\n"
                   "[ACTION G]\ncategory = G\nsuperposition = PERM\nold = 2\n"
                   "[ACTION Q_1]\ncategory = Q\nsuperposition = EXCL\n"
                   "[ACTION Q]\ncategory = Q\nsuperposition = EXCL\nold = 7\n");
        return file.fileName().toStdString();
    }();
    return path;
}

struct Project
{
    Project() : db(mrl::cdb::openMemory().db)
    {
        require(static_cast<bool>(mrl::cdb::setFact(db, "designcode", designCode())));
    }
    ~Project() { mrl::cdb::close(db); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    void fill(const std::uint8_t* data, std::size_t size) const
    {
        while (size > 6) {
            int kwl = 0;
            std::memcpy(&kwl, data + 1, sizeof kwl);
            const int kwh = groups[data[0] % 4];
            const int length = static_cast<int>(std::min<std::size_t>(data[5], size - 6));
            if (length > 0) {
                static_cast<void>(mrl::cdb::append(db, kwh, kwl, data + 6, length));
            }
            data += 6 + length;
            size -= 6 + static_cast<std::size_t>(length);
        }
    }

    mrl::cdb::Fingerprint fingerprint(int kwh, int first, int last) const
    {
        mrl::cdb::Fingerprint found;
        require(static_cast<bool>(mrl::cdb::fingerprint(db, {kwh, first, last}, found)));
        return found;
    }

    const int db;
};

void useLoadCase(int db, int number)
{
    tagCDB_LC_CTRL record;
    mrl_lc_get(db, number, record);
    mrl_lc_get_name(record);
    mrl_lc_islivetype(db, number);
    mrl_lc_hasdeadloadfactor(db, number);
    mrl_lc_init_action(db, record, false);
    lcm_unpack_pair(record.gamu);
    lcm_unpack_pair(record.psi1);
    mrl_lc_create_load_case(db, number, record.action, QStringLiteral("x"));
}

void useAction(int db, int code)
{
    tagCDB_LC_ACT action{};
    mrl_lc_has_action(db, code);
    if (!mrl_lc_getAction(db, code, action, false)) {
        return;
    }
    lcm_action_code(action);
    require(lcm_action_label(action).size() <= 36);
    require(lcm_member_label(action).size() <= 36);
    lcm_pack_pair(action.gamu, action.gama);
    lcm_pack_pair(action.psi1, action.psi1s);
}

void useAll(int db)
{
    std::vector<int> numbers;
    mrl_lc_list(db, numbers);
    require(mrl_lc_count(db) == static_cast<int>(numbers.size()));
    require(numbers.empty() || mrl_lc_getmin(db) == numbers.front());
    for (const int number : numbers) {
        useLoadCase(db, number);
    }
    for (LCM_KeyWalk walk(db, LC_KWH_ACTIONS); walk.next();) {
        useAction(db, walk.kwl());
    }
    mrl_lc_current(db);
    lcm_system_class(db);
    lcm_gravity_direction(db);
}

void loadAndWrite(const Project& project)
{
    const auto numeric = project.fingerprint(LC_KWH_ACTIONS, INT32_MIN, LC_BLANK_WORD);
    const int db = project.db;
    auto* model = new LCM_DataClass(db); // released below
    model->hasSuperpositionKeys();
    model->hasSuperpositionContent();
    model->writeActions(db);
    model->writeLoadcases(db);
    const auto actions = project.fingerprint(LC_KWH_ACTIONS, INT32_MIN, INT32_MAX);
    const auto cases = project.fingerprint(LC_KWH_CASES, INT32_MIN, INT32_MAX);
    model->writeActions(db);
    model->writeLoadcases(db);
    require(project.fingerprint(LC_KWH_ACTIONS, INT32_MIN, INT32_MAX) == actions);
    require(project.fingerprint(LC_KWH_CASES, INT32_MIN, INT32_MAX) == cases);
    bool codesAreNames = true; // an own entry goes by its record, which may name any key
    for (const LCM_ActionEntry* entry : model->actions) {
        codesAreNames = codesAreNames && entry->code > LC_BLANK_WORD;
    }
    if (codesAreNames) {
        require(project.fingerprint(LC_KWH_ACTIONS, INT32_MIN, LC_BLANK_WORD) == numeric);
    }
    model->release();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Project project;
    project.fill(data, size);
    useAll(project.db);
    loadAndWrite(project);
    return 0;
}
