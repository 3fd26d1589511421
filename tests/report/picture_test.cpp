// Pages as pictures.
#include <algorithm>
#include <sstream>

#include "report/programs.h"

using namespace mrl::test;

namespace {

constexpr int DPI = 60;
constexpr unsigned char WHITE = 250;

/// A page in shades of grey.
struct Shades
{
    int width = 0;
    int height = 0;
    std::string pixels;

    bool isInk(int x, int y) const
    {
        return static_cast<unsigned char>(pixels[static_cast<std::size_t>(y * width + x)]) < WHITE;
    }
    static int atMm(double mm) { return static_cast<int>(mm / 25.4 * DPI); }
};

/// The smallest frame, in pixels, around all ink.
struct Frame
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int ink = 0;
};

Frame frameOf(const Shades& page)
{
    Frame frame{page.width, page.height, 0, 0, 0};
    for (int y = 0; y < page.height; ++y) {
        for (int x = 0; x < page.width; ++x) {
            if (page.isInk(x, y)) {
                frame = {std::min(frame.left, x), std::min(frame.top, y), std::max(frame.right, x),
                         std::max(frame.bottom, y), frame.ink + 1};
            }
        }
    }
    return frame;
}

class ReportPictures : public ReportTest
{
  protected:
    std::vector<Shades> pictures(const QString& project, const QStringList& options = {}) const
    {
        const QString pdf = write(project, QStringLiteral("pdf"), options);
        const std::size_t count = pagesOf(pdf).size();
        std::vector<Shades> all;
        for (std::size_t i = 1; i <= count; ++i) {
            const QString page = QString::number(i);
            const Outcome run = runProgram(
                QStringLiteral(PDFTOPPM), {"-gray", "-r", QString::number(DPI), "-f", page, "-l", page, pdf});
            EXPECT_EQ(run.code, 0) << run.err;
            std::istringstream text(run.out);
            std::string kind;
            int most = 0;
            Shades shades;
            text >> kind >> shades.width >> shades.height >> most;
            text.get();
            shades.pixels = run.out.substr(static_cast<std::size_t>(text.tellg()));
            EXPECT_EQ(kind, "P5");
            all.push_back(shades);
        }
        return all;
    }
};

} // namespace

TEST_F(ReportPictures, InkOfEveryPageStandsWithinTheMargins)
{
    for (const char* name : {"frame", "oddities", "road-bridge"}) {
        for (const char* language : {"en", "de"}) {
            for (const Shades& page : pictures(sample(name), {"--language", language})) {
                const Frame frame = frameOf(page);
                EXPECT_GT(frame.ink, 2000) << name << " " << language << ": a page is nearly blank";
                EXPECT_GE(frame.left, Shades::atMm(24)) << name << " " << language;
                EXPECT_GE(frame.top, Shades::atMm(14)) << name << " " << language;
                EXPECT_LE(frame.right, page.width - Shades::atMm(14)) << name << " " << language;
                EXPECT_LE(frame.bottom, page.height - Shades::atMm(10)) << name << " " << language;
            }
            QFile::remove(path(QString::fromLatin1(name) + ".cdb"));
        }
    }
}

TEST_F(ReportPictures, BodyKeepsClearOfTheFoot)
{
    for (const Shades& page : pictures(sample("frame"))) {
        // Between the last row that may stand there and the rule of the foot.
        for (int y = Shades::atMm(274.5); y < Shades::atMm(280.5); ++y) {
            for (int x = 0; x < page.width; ++x) {
                ASSERT_FALSE(page.isInk(x, y)) << x << " " << y;
            }
        }
    }
}

TEST_F(ReportPictures, BarsOfTheAssignmentAreDrawnInTheirColours)
{
    const QString pdf = write(sample("frame"), QStringLiteral("pdf"));
    const Outcome run = runProgram(QStringLiteral(PDFTOPPM), {"-r", "40", pdf});
    // Orange of the variable actions, as bytes of a pixel.
    EXPECT_NE(run.out.find("\xd5\x5e"), std::string::npos);
}
