#include <gmock/gmock.h>

#include <cstring>
#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLc;
using mrl::test::mrlLcInto;
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Envelope : public CliTest
{
  protected:
    Envelope()
    {
        done({"new", file, "--code", "en1990"});
        for (const char* action : {"G", "S", "W"}) {
            done({"action", "create", file, action});
        }
        done({"case", "create", file, "1", "--action", "G"});
        done({"case", "create", file, "2", "--action", "S"});
        done({"case", "create", file, "3", "--action", "W"});
    }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    json envelope(const std::string& responses, std::vector<std::string> options) const
    {
        options.insert(options.begin(), {"envelope", file, responses, "--json"});
        return done(options).json();
    }
};

const std::string SETS = "name,set,1,2,3\nN,a,1,2,4\nM,b,10,5,-2\nV,a,0,-1,1\nT,,1,1,1\n";

} // namespace

TEST_F(Envelope, TellsBothExtremesWithTheirKeys)
{
    const json all = envelope(write("r.csv", "name,1,2,3\nM,10,5,-2\n"), {"--situation", "persistent"});
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(all[0].size(), 4u);
    EXPECT_EQ(all[0]["response"], "M");
    EXPECT_EQ(all[0]["situation"], "persistent");
    const json max = {{"value", 21.0}, {"key", "1.35*1+1.5*2"}, {"leading", "S"}, {"expression", nullptr}};
    const json min = {{"value", 7.0}, {"key", "1*1+1.5*3"}, {"leading", "W"}, {"expression", nullptr}};
    EXPECT_EQ(all[0]["max"], max); // 13.5 + 7.5
    EXPECT_EQ(all[0]["min"], min); // 10 - 3
}

TEST_F(Envelope, TellsSeveralSituationsInTheirOrder)
{
    const json two = envelope(write("r.csv", "name,1,2,3\nM,10,5,-2\nN,1,2,3\n"),
                              {"--situation", "persistent-ab", "--situation", "characteristic"});
    ASSERT_EQ(two.size(), 4u);
    EXPECT_EQ(two[0]["situation"], "persistent-ab");
    EXPECT_EQ(two[0]["max"]["expression"], "6.10b"); // 0.85 * 13.5 + 7.5 = 18.975, 6.10a: 13.5 + 3.75
    EXPECT_DOUBLE_EQ(two[0]["max"]["value"], 18.975);
    EXPECT_EQ(two[1]["situation"], "characteristic");
    EXPECT_EQ(two[3]["response"], "N");
    EXPECT_EQ(two[3]["max"]["key"], "1*1+0.5*2+1*3");
}

TEST_F(Envelope, TakesAllSituationsThatHaveACombination)
{
    const std::string responses = write("r.csv", "name,1,2,3\nM,10,5,-2\n");
    const auto run = mrlLc({"envelope", file, responses, "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err, HasSubstr("situation seismic has no combination"));
    std::vector<std::string> names;
    const json document = run.json();
    for (const json& each : document) {
        names.push_back(each["situation"]);
    }
    EXPECT_THAT(names,
                testing::IsSupersetOf({"persistent", "characteristic", "frequent", "quasi-permanent"}));
    EXPECT_THAT(names, testing::Not(testing::Contains("seismic")));
    EXPECT_THAT(fails(1, {"envelope", file, responses, "--situation", "seismic"}),
                HasSubstr("no combination"));
}

TEST_F(Envelope, TellsConcurrentValuesOfTheSet)
{
    const json all = envelope(write("r.csv", SETS), {"--situation", "persistent", "--concurrent"});
    ASSERT_EQ(all.size(), 4u);
    // N: 1.35 + 1.5 * 4 + 0.75 * 2; V then: 1.5 - 0.75
    EXPECT_EQ(all[0]["max"]["key"], "1.35*1+0.75*2+1.5*3");
    EXPECT_DOUBLE_EQ(all[0]["max"]["value"], 8.85);
    EXPECT_EQ(all[0]["max"]["with"], (json{{"V", 0.75}}));
    EXPECT_EQ(all[1]["max"]["with"], json::object());
    EXPECT_EQ(all[2]["response"], "V");
    EXPECT_EQ(all[2]["min"]["with"], (json{{"N", 1.35 + 3}}));
    EXPECT_EQ(all[3]["max"]["with"], json::object());
    EXPECT_FALSE(envelope(path("r.csv"), {"--situation", "persistent"})[0]["max"].contains("with"));
}

TEST_F(Envelope, ConcurrentNeedsSetsWithoutTwins)
{
    EXPECT_THAT(fails(3, {"envelope", file, write("r.csv", "name,1,2,3\nM,1,1,1\n"), "--concurrent",
                          "--situation", "persistent"}),
                HasSubstr("needs a column 'set'"));
    EXPECT_THAT(fails(3, {"envelope", file, write("t.csv", "name,set,1,2,3\nM,a,1,1,1\nM,a,2,2,2\n"),
                          "--concurrent", "--situation", "persistent"}),
                HasSubstr("row 3: response M stands twice in set a"));
}

TEST_F(Envelope, PrintsCsvAndLines)
{
    const std::string responses = write("r.csv", "name,set,1,2,3\n\"M, left\",a,10,5,-2\nN,a,1,0,0\n");
    const std::vector<std::string> run{"envelope", file, responses, "--situation", "persistent"};
    auto with = [&](const std::vector<std::string>& more) {
        std::vector<std::string> all = run;
        all.insert(all.end(), more.begin(), more.end());
        return done(all).out;
    };
    EXPECT_THAT(with({"--csv"}), StartsWith("response,situation,extreme,value,key,leading,expression\n"
                                            "\"M, left\",persistent,max,21,1.35*1+1.5*2,S,\n"
                                            "\"M, left\",persistent,min,7,1*1+1.5*3,W,\n"));
    EXPECT_THAT(with({"--csv", "--concurrent"}),
                StartsWith("response,situation,extreme,of,value,key,leading,expression\n"
                           "\"M, left\",persistent,max,\"M, left\",21,1.35*1+1.5*2,S,\n"
                           "\"M, left\",persistent,max,N,1.35,1.35*1+1.5*2,S,\n"));
    EXPECT_THAT(with({}), AllOf(HasSubstr("M, left"), HasSubstr("  max  "), HasSubstr("  1.35*1+1.5*2\n")));
    EXPECT_EQ(mrlLc({"envelope", file, responses, "--csv", "--json"}).code, 2);
}

TEST_F(Envelope, ReadsAMatrixWithTheNumbersOfItsColumns)
{
    std::string head = "{'descr': '<f8', 'fortran_order': False, 'shape': (2, 3), }";
    head.resize(117, ' ');
    head += '\n';
    std::string bytes = std::string("\x93NUMPY\x01\x00", 8) + char(head.size()) + '\0' + head;
    const double numbers[] = {-2, 10, 5, 4, 1, 2};
    bytes.append(reinterpret_cast<const char*>(numbers), sizeof numbers);
    const json all = envelope(write("r.npy", bytes),
                              {"--numbers", write("columns.txt", "3 1 2\n"), "--situation", "persistent"});
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0]["response"], "1");
    EXPECT_EQ(all[0]["max"]["key"], "1.35*1+1.5*2");
    EXPECT_EQ(all[1]["max"]["key"], "1.35*1+0.75*2+1.5*3");
}

TEST_F(Envelope, RefusesWhatIsMissingOrNoNumber)
{
    const auto refusal = [&](const std::string& text) {
        return fails(3, {"envelope", file, write("r.csv", text), "--situation", "persistent"});
    };
    EXPECT_THAT(refusal("name,1,3\nM,1,2\n"), HasSubstr("r.csv: there is no column for load case 2"));
    EXPECT_THAT(refusal("name,1,2,3\nM,1,2,nan\n"),
                HasSubstr("r.csv: row 2, load case 3 (column 4): 'nan' is no finite number"));
    EXPECT_THAT(refusal("name,1,2,3\nM,1,2,3\nN,inf,2,3\n"), HasSubstr("row 3, load case 1 (column 2)"));
    EXPECT_THAT(fails(3, {"envelope", file, path("none.csv"), "--situation", "persistent"}),
                HasSubstr("none.csv: No such file"));
    const auto more = mrlLc({"envelope", file, write("m.csv", "name,1,2,3,99\nM,1,2,3,4\n"), "--situation",
                             "persistent", "--json"});
    EXPECT_EQ(more.code, 0);
    EXPECT_THAT(more.err, HasSubstr("the project has no load case 99"));
}

TEST_F(Envelope, OfNoResponsesIsEmpty)
{
    EXPECT_EQ(envelope(write("r.csv", "name,1,2,3\n"), {"--situation", "persistent"}), json::array());
}

TEST_F(Envelope, KeepsTheOrderOfManyResponses)
{
    std::string text = "name,1,2,3\n";
    for (int i = 0; i < 5000; ++i) {
        text += std::to_string(i) + "," + std::to_string(i) + ",1,-1\n";
    }
    const json all = envelope(write("r.csv", text), {"--situation", "characteristic"});
    ASSERT_EQ(all.size(), 5000u);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(all[std::size_t(i)]["response"], std::to_string(i));
        ASSERT_EQ(all[std::size_t(i)]["max"]["value"], i + 1.0);
    }
}
