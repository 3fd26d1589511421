#include "report/page_layout.h"

#include <QPainter>

#include "report/page_pieces.h"
#include "report/words.h"

namespace mrl::report {

namespace {

constexpr double HEAD_BASE = 1500; // the upper edge of the head's text
constexpr double HEAD_RULE = 1950;
constexpr double FOOT_RULE = 28150;
constexpr double FOOT_TOP = 28300;
constexpr double CONTINUED_GAP = 120;
constexpr double TITLE_HEIGHT = 2300; // of the title above the body of the first page

/// Rows of a block on a page.
struct Part
{
    std::size_t block = 0;
    std::size_t first = 0;
    std::size_t last = 0; ///< behind the last one
    double y = 0;         ///< of the head, or of the first row

    bool isContinued() const { return first > 0; }
};

} // namespace

struct PageLayout::Private
{
    explicit Private(const Report& content);

    void breakIntoPages();
    void place(std::size_t block);
    double neededAtLeast(std::size_t block) const;
    double wholeHeight(const Pieces& pieces) const;
    QString headingAbove(std::size_t block) const;
    double headHeight(const Part& part) const;
    void beginPage();
    void paintPart(QPainter& painter, const Part& part) const;
    void paintFrame(QPainter& painter, int page) const;
    void paintTitle(QPainter& painter) const;

    const Report& report;
    Faces faces;
    std::vector<Mark> marks;
    std::vector<std::unique_ptr<Pieces>> blocks;
    std::vector<std::vector<Part>> pages;
    double y = 0; ///< of the page that is being filled
};

PageLayout::Private::Private(const Report& content) : report(content)
{
    for (const Block& block : report.blocks) {
        const auto* heading = std::get_if<Heading>(&block);
        if (heading != nullptr && heading->level == 1) {
            marks.push_back({heading->text, 0});
        }
    }
    for (const Block& block : report.blocks) {
        blocks.push_back(piecesOf(block, faces, marks));
    }
    breakIntoPages();
}

void PageLayout::Private::beginPage()
{
    y = TOP + (pages.empty() ? TITLE_HEIGHT : 0);
    pages.emplace_back();
}

/// The height of all rows with their head, and more than a page where that is more.
double PageLayout::Private::wholeHeight(const Pieces& pieces) const
{
    double height = pieces.headHeight();
    for (std::size_t row = 0; row < pieces.count() && height <= BODY_HEIGHT; ++row) {
        height += pieces.height(row);
    }
    return height;
}

/// What a block wants of a page so that it can begin there: its head and first row, of a heading also those of what
/// follows.
double PageLayout::Private::neededAtLeast(std::size_t block) const
{
    double needed = 0;
    for (bool goesOn = true; goesOn && block < blocks.size(); ++block) {
        const Pieces& pieces = *blocks[block];
        const double whole = pieces.staysTogether() ? wholeHeight(pieces) : 2 * BODY_HEIGHT;
        const double beginning = pieces.headHeight() + (pieces.count() > 0 ? pieces.height(0) : 0);
        needed += pieces.above() + (needed + pieces.above() + whole <= BODY_HEIGHT ? whole : beginning);
        goesOn = pieces.leadsOn();
    }
    return needed;
}

QString PageLayout::Private::headingAbove(std::size_t block) const
{
    for (; block > 0; --block) {
        if (const auto* heading = std::get_if<Heading>(&report.blocks[block - 1])) {
            return heading->text;
        }
    }
    return report.title;
}

/// A table that goes on tells under which heading it began.
double PageLayout::Private::headHeight(const Part& part) const
{
    return blocks[part.block]->headHeight() +
           (part.isContinued() ? faces.head.lineHeight() + CONTINUED_GAP : 0);
}

void PageLayout::Private::place(std::size_t block)
{
    constexpr double END = TOP + BODY_HEIGHT;
    const Pieces& pieces = *blocks[block];
    const bool isPageBegun = !pages.back().empty();
    if (isPageBegun && y + neededAtLeast(block) > END) {
        beginPage();
    }
    y += pages.back().empty() ? 0 : pieces.above();
    for (std::size_t row = 0; row < pieces.count();) {
        Part part{block, row, row, y};
        y += headHeight(part);
        double height = pieces.height(row);
        do { // one row at least, however high it is
            y += height;
            ++part.last;
            height = part.last < pieces.count() ? pieces.height(part.last) : 0;
        } while (part.last < pieces.count() && y + height <= END);
        row = part.last;
        pages.back().push_back(part);
        if (row < pieces.count()) {
            beginPage();
        }
    }
}

void PageLayout::Private::breakIntoPages()
{
    beginPage();
    auto mark = marks.begin();
    for (std::size_t block = 0; block < blocks.size(); ++block) {
        place(block);
        const auto* heading = std::get_if<Heading>(&report.blocks[block]);
        if (heading != nullptr && heading->level == 1) {
            (mark++)->page = static_cast<int>(pages.size()) - 1;
        }
    }
}

void PageLayout::Private::paintPart(QPainter& painter, const Part& part) const
{
    const Pieces& pieces = *blocks[part.block];
    double rowTop = part.y + headHeight(part);
    if (part.isContinued()) {
        painter.setPen(PALE_INK);
        const QString text = Text::tr("%1, continued").arg(headingAbove(part.block));
        drawLines(painter, faces.head, {faces.head.elided(text, BODY_WIDTH)}, LEFT, part.y);
    }
    pieces.paintHead(painter, rowTop - pieces.headHeight());
    for (std::size_t row = part.first; row < part.last; ++row) {
        rowTop += pieces.paint(painter, rowTop, row);
    }
    pieces.paintEnd(painter, rowTop);
}

void PageLayout::Private::paintTitle(QPainter& painter) const
{
    painter.setPen(INK);
    drawLines(painter, faces.title, {report.title}, LEFT, TOP);
    painter.setPen(PALE_INK);
    const QString name = faces.heading1.elided(report.project, BODY_WIDTH);
    drawLines(painter, faces.heading1, {name}, LEFT, TOP + faces.title.lineHeight() + 150);
}

/// Head and foot.
void PageLayout::Private::paintFrame(QPainter& painter, int page) const
{
    constexpr double RIGHT_END = LEFT + BODY_WIDTH;
    painter.setPen(PALE_INK);
    const double dateWidth = faces.small.width(report.date);
    const QString head = faces.small.elided(
        QStringLiteral("%1  %2  %3").arg(report.project, QString(QChar(0x00b7)), report.title),
        BODY_WIDTH - dateWidth - UNITS_PER_MM * 5);
    drawLines(painter, faces.small, {head}, LEFT, HEAD_BASE);
    drawLinesToTheLeftOf(painter, faces.small, {report.date}, RIGHT_END, HEAD_BASE);
    drawLines(painter, faces.hash, {QStringLiteral("SHA-256  ") + report.hash}, LEFT, FOOT_TOP);
    const QString number = Text::tr("Page %1 of %2").arg(page + 1).arg(pages.size());
    drawLinesToTheLeftOf(painter, faces.small, {number}, RIGHT_END, FOOT_TOP);
    painter.setPen(QPen(PALE_RULE, 14));
    painter.drawLine(QPointF(LEFT, HEAD_RULE), QPointF(RIGHT_END, HEAD_RULE));
    painter.drawLine(QPointF(LEFT, FOOT_RULE), QPointF(RIGHT_END, FOOT_RULE));
}

PageLayout::PageLayout(const Report& report) : d(std::make_unique<Private>(report)) {}

PageLayout::~PageLayout() = default;

int PageLayout::pageCount() const { return static_cast<int>(d->pages.size()); }

void PageLayout::paint(QPainter& painter, int page) const
{
    d->paintFrame(painter, page);
    if (page == 0) {
        d->paintTitle(painter);
    }
    for (const Part& part : d->pages[static_cast<std::size_t>(page)]) {
        d->paintPart(painter, part);
    }
}

} // namespace mrl::report
