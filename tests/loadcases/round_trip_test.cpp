// Opening and accepting without a change: what a record loses is told in docs/what-acceptance-normalises.md,
// and nothing else may change.

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <random>

#include "host/mrl_dlib.h"
#include "host/mrl_widgets.h"
#include "lcdata/system_record.h"
#include "rules/action_row.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

using Key = std::pair<int, int>;
using Records = std::map<Key, std::vector<std::string>>;

Records allRecords(int db)
{
    Records found;
    std::vector<mrl::cdb::Key> keys;
    EXPECT_TRUE(mrl::cdb::keys(db, keys));
    for (const mrl::cdb::Key& key : keys) {
        auto& records = found[{key.kwh, key.kwl}];
        for (int position = 0;; position = 1) {
            std::string bytes(4096, '\0');
            int length = static_cast<int>(bytes.size());
            if (mrl_cdb_get(db, key.kwh, key.kwl, bytes.data(), &length, position) > CD_CUT) {
                break;
            }
            bytes.resize(static_cast<std::size_t>(length));
            records.push_back(bytes);
        }
        mrl_cdb_free_ex(db, key.kwh, key.kwl);
    }
    return found;
}

template <class Record>
Record recordOf(const std::string& bytes)
{
    Record record{};
    std::memcpy(&record, bytes.data(), std::min(sizeof record, bytes.size()));
    return record;
}
template <class Record>
std::string bytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// One field of a pair after unpacking and packing, step by step as the field's other users do it.
float repacked(float field, bool zeroRule)
{
    const float main = std::trunc(field * 1000.0f) / 1000.0f;
    const float rest = field - main;
    float minor = static_cast<float>(std::trunc(static_cast<double>(rest * 5e6f) + 0.5)) * 0.002f;
    if (main == LC_UNDEFINED) {
        return LC_UNDEFINED;
    }
    if (zeroRule && std::fabs(minor) < 1.1920929e-7f) {
        minor = 0.001f;
    }
    const float rounded =
        static_cast<float>((std::trunc(static_cast<double>(main) * 1000.0 + 0.5) + 0.0) * 0.001);
    return rounded + static_cast<float>(static_cast<double>(minor) * 0.0001);
}

/// What is left of a load case. @param box "Use global deadload directions"
tagCDB_LC_CTRL accepted(const tagCDB_LC_CTRL& before, int actionWord, int gravity, int systemClass, bool box)
{
    tagCDB_LC_CTRL after{}; // kind 0, reserved words 0
    after.action = actionWord;
    after.factor = 1.0f;
    std::memcpy(after.title, before.title, sizeof after.title);
    // After a unit of 0 the rest is 0, and so is the last unit.
    auto* units = reinterpret_cast<std::uint16_t*>(after.title);
    bool ended = false;
    for (int i = 0; i < 34; ++i) {
        ended = ended || units[i] == 0 || i == 33;
        if (ended) {
            units[i] = 0;
        }
    }
    const float sign = gravity < 0 ? -1.0f : 1.0f;
    const auto along = [sign](float value) { return value == 0.0f ? 0.0f : sign * std::fabs(value); };
    const auto kept = [&](int axis, float value) {
        if (axis == std::abs(gravity)) {
            return along(value);
        }
        return box ? value : 0.0f;
    };
    if (systemClass != 3) {
        after.dlx = kept(1, before.dlx);
        after.dly = kept(2, before.dly);
    }
    if (systemClass != 1) {
        after.dlz = kept(3, before.dlz);
    }
    if (actionWord != 0) {
        after.gamu = after.gamf = after.psi0 = after.psi1 = after.psi2 = LC_UNDEFINED;
        return after;
    }
    after.gamu = repacked(before.gamu, true);
    after.gamf = before.gamf;
    after.psi0 = before.psi0;
    after.psi1 = repacked(before.psi1, false);
    after.psi2 = before.psi2;
    return after;
}

int resolved(int word)
{
    if (word == 0 || word == 70) {
        return word;
    }
    tagCDB_LC_ACT action{};
    return mrl_dlib_lcact_info(word, &action) < 0 ? word : lcm_action_code(action);
}

/// Opens both tabs and accepts.
void openAndAccept(int db, bool box = false)
{
    qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
        ->setAppSettings("LF_Manager", "checkDeadload", box ? 1 : 0);
    LCM_LoadcaseWidget loadcases(db, nullptr, "loadcasewidget");
    LCM_ActionsWidget actions(&loadcases, db, 0, nullptr, "actionswidget");
    loadcases.setActionsWidget(&actions);
    actions.fillTable();
    loadcases.fillTable();
    actions.save(true);
    loadcases.save(true);
}

class Randoms
{
  public:
    explicit Randoms(unsigned seed) : m_random(seed) {}
    float factor()
    {
        switch (m_random() % 6) {
        case 0:
            return 0.0f;
        case 1:
            return LC_UNDEFINED;
        case 2:
            return -static_cast<float>(m_random() % 2000) / 1000.0f;
        case 3:
            return static_cast<float>(m_random() % 200000) / 70000.0f;
        default:
            return static_cast<float>(m_random() % 200) / 100.0f;
        }
    }
    tagCDB_LC_CTRL record(const std::vector<int>& words)
    {
        tagCDB_LC_CTRL record;
        auto* bytes = reinterpret_cast<unsigned char*>(&record);
        for (std::size_t i = 0; i < sizeof record; ++i) {
            bytes[i] = static_cast<unsigned char>(m_random());
        }
        record.kind = static_cast<int>(m_random() % 2);
        record.action = words[m_random() % words.size()];
        for (float* field : {&record.psi0, &record.psi1, &record.psi2, &record.dlx, &record.dly, &record.dlz,
                             &record.gamu, &record.gamf}) {
            *field = factor();
        }
        auto* units = reinterpret_cast<std::uint16_t*>(record.title);
        const std::size_t length = m_random() % 35;
        for (std::size_t i = 0; i < 34; ++i) {
            units[i] = i < length ? static_cast<std::uint16_t>('A' + m_random() % 0x300) : 0;
        }
        return record;
    }

  private:
    std::mt19937 m_random;
};

struct Site
{
    int rawClass;
    int gravity;
    bool box = false;
};

/// Names a test by what the site is; its bytes would not be the same in each run.
void PrintTo(const Site& site, std::ostream* out)
{
    *out << "class " << site.rawClass << " gravity " << site.gravity << (site.box ? " with the box" : "");
}

class LoadcaseRoundTrip : public testing::TestWithParam<Site>
{
};

TEST_P(LoadcaseRoundTrip, ChangesNothingButWhatIsTold)
{
    const LoadCaseProject project;
    project.setSystem(GetParam().rawClass, GetParam().gravity);
    project.putAction(permanent());
    project.putAction(variable());
    Randoms random(static_cast<unsigned>(GetParam().rawClass * 10 + GetParam().gravity + 3));
    std::map<int, tagCDB_LC_CTRL> before;
    for (int number = 1; number <= 200; ++number) {
        project.putLoadCase(number, before[number] = random.record(
                                        {0, 70, codeOf("G"), codeOf("Q"), 2, 7, codeOf("Zz"), codeOf("q")}));
    }
    tagCDB_LC_CTRL foreign = before[1];
    foreign.kind = 2;
    project.putLoadCase(500, foreign);

    const int systemClass = lcm_system_class(project.db());
    openAndAccept(project.db(), GetParam().box);
    for (const auto& [number, record] : before) {
        const int word = record.action == 2 ? codeOf("G") : record.action == 7 ? codeOf("Q") : record.action;
        EXPECT_TRUE(sameBytes(project.storedLoadCase(number),
                              accepted(record, word, GetParam().gravity, systemClass, GetParam().box)))
            << number;
    }
    EXPECT_TRUE(sameBytes(project.storedLoadCase(500), foreign));

    // What was accepted once stays as it is, the pairs apart, which move by their own steps.
    const Records once = allRecords(project.db());
    openAndAccept(project.db(), GetParam().box);
    for (const auto& [key, records] : allRecords(project.db())) {
        if (key.first != LC_KWH_CASES || recordOf<tagCDB_LC_CTRL>(records[0]).action != 0) {
            EXPECT_EQ(records, once.at(key));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sites, LoadcaseRoundTrip,
                         testing::Values(Site{0, -3}, Site{0, 1}, Site{0, 2}, Site{1, -2}, Site{1, -3},
                                         Site{20, -3}, Site{20, -1}, Site{0, -3, true}, Site{0, 1, true},
                                         Site{1, -2, true}, Site{1, 3, true}, Site{20, -3, true},
                                         Site{20, 2, true}));

TEST(LoadcaseRoundTrip, TailsAndLaterRecordsOfALoadCaseGo)
{
    const LoadCaseProject project;
    tagCDB_LC_CTRL record = following(70);
    const struct
    {
        tagCDB_LC_CTRL record;
        char tail[4] = {'t', 'a', 'i', 'l'};
    } longer{record};
    project.put(LC_KWH_CASES, 1, longer);
    EXPECT_TRUE(mrl::cdb::append(project.db(), LC_KWH_CASES, 1, "later", 5));
    openAndAccept(project.db());
    const Records after = allRecords(project.db());
    EXPECT_EQ(after.at({LC_KWH_CASES, 1}), (std::vector<std::string>{bytesOf(record)}));
}

std::vector<std::string> samples()
{
    std::vector<std::string> found;
    std::error_code ignored;
    for (const auto& file : std::filesystem::directory_iterator(MRL_SAMPLES_DIR, ignored)) {
        if (file.path().extension() == ".cdb") {
            found.push_back(file.path().string());
        }
    }
    return found;
}

/// What acceptance makes of all records of a project.
Records acceptedProject(int db, const Records& before)
{
    Records expected;
    mrl_dlib_ini_switch(db);
    const int gravity = lcm_gravity_direction(db);
    const int systemClass = lcm_system_class(db);
    for (const auto& [key, records] : before) {
        const int kind = records[0].size() >= 4 ? recordOf<std::int32_t>(records[0]) : -1;
        const bool loadcase = key.first == LC_KWH_CASES && key.second > 0 && (kind == 0 || kind == 1);
        const bool action =
            key.first == LC_KWH_ACTIONS && key.second > LC_BLANK_WORD && !lcm_is_reserved_action(key.second);
        if (loadcase) {
            const auto record = recordOf<tagCDB_LC_CTRL>(records[0]);
            expected[key] = {bytesOf(accepted(record, resolved(record.action), gravity, systemClass, false))};
        } else if (!action) {
            expected[key] = records;
        }
    }
    return expected;
}

bool isAction(const Key& key)
{
    return key.first == LC_KWH_ACTIONS && key.second > LC_BLANK_WORD && !lcm_is_reserved_action(key.second);
}

TEST(SampleRoundTrip, LoadCasesAndForeignRecordsOfEverySampleComeBackAsTold)
{
    ASSERT_EQ(samples().size(), 3u);
    for (const std::string& file : samples()) {
        SCOPED_TRACE(file);
        const mrl::cdb::Opened stored = mrl::cdb::openReadOnly(file);
        ASSERT_TRUE(stored) << stored.result.text;
        const mrl::cdb::Opened copy = mrl::cdb::copyOf(stored.db);
        ASSERT_TRUE(copy);
        const Records before = allRecords(copy.db);
        const Records expected = acceptedProject(copy.db, before);
        openAndAccept(copy.db);
        Records after = allRecords(copy.db);
        for (auto record = after.begin(); record != after.end();) {
            record = isAction(record->first) ? after.erase(record) : std::next(record);
        }
        EXPECT_EQ(after.size(), expected.size());
        for (const auto& [key, records] : expected) {
            EXPECT_EQ(after[key], records) << key.first << '/' << key.second;
        }
        mrl::cdb::close(copy.db);
        mrl::cdb::close(stored.db);
    }
}

TEST(SampleRoundTrip, ActionsOfTheSoundSamplesComeBackByteForByte)
{
    for (const char* name : {"frame", "road-bridge"}) {
        const mrl::cdb::Opened stored =
            mrl::cdb::openReadOnly(std::string(MRL_SAMPLES_DIR "/") + name + ".cdb");
        ASSERT_TRUE(stored) << stored.result.text;
        const mrl::cdb::Opened copy = mrl::cdb::copyOf(stored.db);
        ASSERT_TRUE(copy);
        const Records before = allRecords(copy.db);
        openAndAccept(copy.db);
        const Records after = allRecords(copy.db);
        int actions = 0;
        for (const auto& [key, records] : before) {
            if (!isAction(key)) {
                continue;
            }
            ++actions;
            EXPECT_EQ(after.at(key), records) << name << ' ' << key.second;
        }
        EXPECT_GT(actions, 2);
        EXPECT_EQ(after.size(), before.size());
        mrl::cdb::close(copy.db);
        mrl::cdb::close(stored.db);
    }
}

} // namespace
