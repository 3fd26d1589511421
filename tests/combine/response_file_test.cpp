#include "combine/response_file.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <cstring>

namespace {

using namespace mrl::combine;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ResponseFiles : public ::testing::Test
{
  protected:
    std::string write(const std::string& name, const std::string& bytes) const
    {
        const std::string path = m_folder.path().toStdString() + "/" + name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

    /// The responses as "name set: 1 2 3", or behind them what is wrong.
    static std::vector<std::string> read(const std::string& file, const std::string& numbers = {})
    {
        OpenedResponses opened = openResponses(file, numbers);
        if (const auto* error = std::get_if<std::string>(&opened)) {
            return {*error};
        }
        auto& responses = *std::get<std::unique_ptr<ResponseFile>>(opened);
        std::vector<std::string> lines;
        RawResponse raw;
        Response response;
        while (responses.next(raw)) {
            std::string error = responses.read(raw, response);
            if (!error.empty()) {
                lines.push_back(error);
                return lines;
            }
            std::string line = response.name + " " + response.set + ":";
            for (const double value : response.values) {
                line += " " + std::to_string(static_cast<int>(value * 100));
            }
            lines.push_back(line);
        }
        if (!responses.error().empty()) {
            lines.push_back(responses.error());
        }
        return lines;
    }
    std::vector<std::string> readCsv(const std::string& text) const { return read(write("r.csv", text)); }

    static std::string npy(const std::string& head, const std::string& data, char version = 1)
    {
        std::string bytes = "\x93NUMPY";
        bytes += version;
        bytes += '\0';
        const auto length = static_cast<unsigned>(head.size());
        bytes += static_cast<char>(length % 256);
        bytes += static_cast<char>(length / 256);
        bytes += version == 1 ? std::string() : std::string(2, '\0');
        return bytes + head + data;
    }
    template <class Number>
    static std::string bytesOf(const std::vector<Number>& numbers)
    {
        std::string bytes(numbers.size() * sizeof(Number), '\0');
        std::memcpy(bytes.data(), numbers.data(), bytes.size());
        return bytes;
    }
    std::vector<std::string> readNpy(const std::string& bytes, const std::string& numbers = "1, 2\n11") const
    {
        return read(write("r.npy", bytes), write("numbers.txt", numbers));
    }

  private:
    QTemporaryDir m_folder;
};

const std::string HEAD = "{'descr': '<f8', 'fortran_order': False, 'shape': (2, 3), }\n";

TEST_F(ResponseFiles, CsvHasANameAndAColumnForEachLoadCase)
{
    EXPECT_THAT(readCsv("name,1,11,2\nM1,1.5,-2,+3e0\n\nN,0,0,.25\n"),
                ElementsAre("M1 : 150 -200 300", "N : 0 0 25"));
}

TEST_F(ResponseFiles, CsvMayHaveSetsQuotesSemicolonsAndLineEndsOfOtherSystems)
{
    EXPECT_THAT(readCsv("\xEF\xBB\xBF\"name\";set;\"7\"\r\n\"M; \"\"left\"\"\";P1;1,5\r\nN;;2.5\r\n"),
                ElementsAre("M; \"left\" P1: 150", "N : 250"));
}

TEST_F(ResponseFiles, CsvErrorsNameRowAndColumn)
{
    EXPECT_THAT(readCsv("name,1,11\nM,1,x\n"),
                ElementsAre("row 2, load case 11 (column 3): 'x' is no finite number"));
    for (const char* bad : {"nan", "inf", "-inf", "1e999", "", "1 2", "0x10"}) {
        EXPECT_THAT(readCsv("name,1,11\nM,1,2\nN," + std::string(bad) + ",2\n").back(),
                    HasSubstr("row 3, load case 1 (column 2)"))
            << bad;
    }
    EXPECT_THAT(readCsv("name,1,11\nM,1\n"), ElementsAre("row 2 has 2 columns, the first row has 3"));
    EXPECT_THAT(readCsv("name,1,11\nM,1,2,3\n"), ElementsAre("row 2 has 4 columns, the first row has 3"));
    EXPECT_THAT(readCsv("name,1,LC2\n"),
                ElementsAre("row 1, column 3: 'LC2' is neither a load-case number nor 'set'"));
    EXPECT_THAT(readCsv("name,1,2,1\n"), ElementsAre("row 1: load case 1 stands twice"));
    EXPECT_THAT(readCsv(""), ElementsAre("it is empty"));
    EXPECT_THAT(read("/nowhere/r.csv"), ElementsAre("No such file or directory"));
}

TEST_F(ResponseFiles, ARowCanBeReadAgain)
{
    OpenedResponses opened = openResponses(write("r.csv", "name,set,1\nM,a,1\nN,b,2\nV,a,3\n"));
    auto& file = *std::get<std::unique_ptr<ResponseFile>>(opened);
    std::vector<RawResponse> rows;
    for (RawResponse raw; file.next(raw);) {
        rows.push_back(raw);
    }
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(file.progress(), 1.0);
    RawResponse again;
    ASSERT_TRUE(file.at(rows[1].position, rows[1].row, again));
    EXPECT_EQ(again.bytes, "N,b,2");
    ASSERT_TRUE(file.next(again));
    EXPECT_EQ(again.row, 4u);
    EXPECT_EQ(file.setOf(again), "a");
    file.rewind();
    ASSERT_TRUE(file.next(again));
    EXPECT_EQ(again.bytes, "M,a,1");
    EXPECT_EQ(again.row, 2u);
}

TEST_F(ResponseFiles, NpyHasItsColumnsInAListOfTheirOwn)
{
    const std::vector<double> doubles{1, 2, 3, -4, 5, 6.5};
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles))), ElementsAre("1 : 100 200 300", "2 : -400 500 650"));
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles), 2)).size(), 2u);
    const std::string single = "{'descr': '<f4', 'fortran_order': False, 'shape': (1, 3), }";
    EXPECT_THAT(readNpy(npy(single, bytesOf<float>({1, 2, 0.25f}))), ElementsAre("1 : 100 200 25"));
}

TEST_F(ResponseFiles, NpyThatCannotBeReadIsRefused)
{
    const std::vector<double> doubles{1, 2, 3, -4, 5, 6};
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles)), "1 2"),
                ElementsAre(HasSubstr("its shape is (2, 3), and not responses times the 2 load cases")));
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles)).substr(0, 110)),
                ElementsAre("it ends before its last row"));
    EXPECT_THAT(readNpy(npy(HEAD, "").substr(0, 20)), ElementsAre("it ends within its head"));
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles)), "1 2 x"),
                ElementsAre(HasSubstr("'x' is no load-case number")));
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf(doubles)), "1 2 2"),
                ElementsAre(HasSubstr("load case 2 stands twice")));
    std::string other = HEAD;
    other.replace(other.find("<f8"), 3, "<i8");
    EXPECT_THAT(readNpy(npy(other, bytesOf(doubles))), ElementsAre(HasSubstr("its numbers are '<i8'")));
    other = "{'descr': '<f8', 'fortran_order': True, 'shape': (2, 3), }";
    EXPECT_THAT(readNpy(npy(other, bytesOf(doubles))), ElementsAre(HasSubstr("column by column")));
    EXPECT_THAT(readNpy(npy(HEAD, bytesOf<double>({1, 2, 3, 4, NAN, 6}))).back(),
                HasSubstr("row 2, load case 2 (column 2)"));
    EXPECT_THAT(read(write("r.npy", npy(HEAD, bytesOf(doubles)))), ElementsAre(HasSubstr("--numbers")));
    EXPECT_THAT(read(write("r.csv", "name,1\n"), write("n.txt", "1")), ElementsAre(HasSubstr("no NPY file")));
}

} // namespace
