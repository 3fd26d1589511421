// Files that are made to do harm.
#include "tests/exchange/exchange_fixture.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

constexpr std::size_t MILLION = 1000000;

std::string repeated(const std::string& text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

TEST(HostileFile, TenMillionColumnsAreRefused)
{
    EXPECT_THAT(errorOf("csv", "number" + repeated(",number", MILLION) + "\n1\n"),
                HasSubstr("line 1: more than 1000 fields"));
    EXPECT_THAT(errorOf("csv", "number\n1" + std::string(10 * MILLION, ',') + "\n"),
                HasSubstr("line 2: more than 1000 fields"));
}

TEST(HostileFile, OneLineOfTwentyMillionBytesIsRefused)
{
    const std::string line(20 * MILLION, 'x');
    EXPECT_THAT(errorOf("csv", line), HasSubstr("line 1: a field is longer than 100000 bytes"));
    EXPECT_THAT(errorOf("csv", '"' + line), HasSubstr("a quoted field is too long"));
    EXPECT_THAT(errorOf("json", "{\"loadcases\": [{\"title\": \"" + line + "\"}]}"),
                HasSubstr("is longer than 100000 bytes"));
}

TEST(HostileFile, MoreThanTheGreatestFileIsRefusedUnread)
{
    const std::string file(static_cast<std::size_t>(mrl::exchange::MAX_FILE_BYTES) + 1, ' ');
    EXPECT_EQ(errorOf("csv", file), "the file is larger than 256 MiB");
}

TEST(HostileFile, DeeplyNestedJsonIsRefused)
{
    EXPECT_NE(errorOf("json", "{\"loadcases\": " + std::string(10 * MILLION, '[')), "readable");
    EXPECT_NE(errorOf("json", repeated("{\"a\":", MILLION)), "readable");
}

TEST(HostileFile, MillionsOfEmptyLinesAreNothing)
{
    EXPECT_TRUE(readAs("csv", "number\n" + std::string(5 * MILLION, '\n')).tables.at(0).rows.empty());
}

} // namespace
