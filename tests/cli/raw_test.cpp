#include <gmock/gmock.h>

#include "cli/run.h"

using mrl::test::CliTest;
using testing::HasSubstr;

namespace {

class RawCommand : public CliTest
{
  protected:
    RawCommand() { done({"new", file, "--code", "en1990"}); }
};

} // namespace

TEST_F(RawCommand, GetPrintsPositionLengthAndBytes)
{
    done({"put", file, "77", "5", "0102030405"});
    done({"put", file, "77", "5", "FF", "--append"});
    EXPECT_EQ(done({"get", file, "77", "5"}).out, "0 5 01020304 05\n1 1 ff\n");
    EXPECT_EQ(done({"get", file, "77", "5", "--hex"}).out, "0 5 0102030405\n1 1 ff\n");
    const auto records = done({"get", file, "77", "5", "--json"}).json();
    EXPECT_EQ(records, nlohmann::json::parse(R"([{"position":0,"length":5,"bytes":"0102030405"},
                                                 {"position":1,"length":1,"bytes":"ff"}])"));
}

TEST_F(RawCommand, PutReplacesAllRecordsOfTheKey)
{
    done({"put", file, "77", "5", "01"});
    done({"put", file, "77", "5", "02", "--append"});
    done({"put", file, "77", "5", "03"});
    EXPECT_EQ(done({"get", file, "77", "5", "--hex"}).out, "0 1 03\n");
}

TEST_F(RawCommand, AppendMakesAKeyThatIsNotThere)
{
    done({"put", file, "77", "5", "01", "--append"});
    EXPECT_EQ(done({"get", file, "77", "5", "--hex"}).out, "0 1 01\n");
}

TEST_F(RawCommand, RecordsLongerThanABufferComeWhole)
{
    const std::string digits(2 * 50000, 'a'); // an argument of the system has at most 128 KiB
    done({"put", file, "77", "5", digits});
    EXPECT_EQ(done({"get", file, "77", "5", "--hex"}).out, "0 50000 " + digits + "\n");
}

TEST_F(RawCommand, ElementMayBeTheNameOfAnAction)
{
    done({"put", file, "14", "Q_1", "01"});
    EXPECT_EQ(done({"keys", file, "--kwh", "14"}).out, "14 540106577 Q_1\n"); // 0x20315F51
    EXPECT_EQ(done({"get", file, "14", "540106577", "--hex"}).out, "0 1 01\n");
}

TEST_F(RawCommand, NegativeNumbersAreNumbers)
{
    done({"put", file, "-77", "-5", "01"});
    EXPECT_EQ(done({"get", file, "-77", "-5", "--hex"}).out, "0 1 01\n");
    EXPECT_EQ(done({"keys", file, "--kwh", "-77"}).out, "-77 -5\n");
}

TEST_F(RawCommand, KeysComeInSignedOrder)
{
    for (const char* kwh : {"2147483647", "-2147483648", "77"}) {
        for (const char* kwl : {"2147483647", "-1", "-2147483648", "0"}) {
            done({"put", file, kwh, kwl, "01"});
        }
    }
    EXPECT_EQ(done({"keys", file}).out,
              "-2147483648 -2147483648\n-2147483648 -1\n-2147483648 0\n"
              "-2147483648 2147483647\n10 0\n77 -2147483648\n77 -1\n77 0\n77 2147483647\n"
              "2147483647 -2147483648\n2147483647 -1\n2147483647 0\n2147483647 2147483647\n");
    EXPECT_EQ(done({"keys", file, "--kwh", "-2147483648"}).out,
              "-2147483648 -2147483648\n-2147483648 -1\n-2147483648 0\n-2147483648 2147483647\n");
    EXPECT_EQ(done({"keys", file, "--kwh", "78"}).out, "");
    const auto keys = done({"keys", file, "--kwh", "10", "--json"}).json();
    EXPECT_EQ(keys, nlohmann::json::parse(R"([{"kwh":10,"kwl":0,"name":null}])"));
}

TEST_F(RawCommand, DelTakesTheKeyAwayOnce)
{
    done({"put", file, "77", "5", "01"});
    done({"del", file, "77", "5"});
    EXPECT_EQ(fails(1, {"del", file, "77", "5"}), "mrl-lc: " + file + ": there is no key 77/5\n");
    EXPECT_EQ(fails(1, {"get", file, "77", "5"}), "mrl-lc: " + file + ": there is no key 77/5\n");
    EXPECT_EQ(fails(1, {"get", file, "14", "ZZ"}), "mrl-lc: " + file + ": there is no key 14/ZZ\n");
}

TEST_F(RawCommand, BytesAndNumbersThatAreNoneAreWrongUsage)
{
    for (const char* digits : {"0", "0g", "", "0x01", "01 02"}) {
        fails(2, {"put", file, "77", "5", digits});
    }
    fails(2, {"put", file, "77", "99999999999", "01"});
    fails(2, {"put", file, "a", "5", "01"});
    fails(2, {"get", file, "77", "5x"});
    fails(2, {"keys", file, "--kwh", "x"});
}

TEST_F(RawCommand, NumbersOfKeysAreDecimal)
{
    done({"put", file, "010", "012", "01"});
    EXPECT_EQ(done({"get", file, "10", "12", "--hex"}).out, "0 1 01\n");
    for (const char* number : {"0x10", "1e2", "+5"}) {
        fails(2, {"put", file, number, "5", "01"});
        fails(2, {"keys", file, "--kwh", number});
    }
    fails(2, {"put", file, "10", "0x10", "01"});
}
