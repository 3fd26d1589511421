#pragma once

/// The pieces that the blocks of a report fall into, each of which stays on one page.

#include <memory>
#include <vector>

#include "report/report.h"
#include "report/typography.h"

class QPainter;

namespace mrl::report {

/// A heading and the page that it stands on.
struct Mark
{
    QString text;
    int page = 0;
};

/// A block cut into rows.
class Pieces
{
  public:
    Pieces() = default;
    virtual ~Pieces() = default;
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    virtual std::size_t count() const = 0;
    virtual double height(std::size_t row) const = 0;
    /// @return the height of the row
    virtual double paint(QPainter& painter, double y, std::size_t row) const = 0;

    /// What stands above the first row of each page.
    virtual double headHeight() const { return 0; }
    /// Whether it goes on a new page rather than be broken, where a page can hold it.
    virtual bool staysTogether() const { return false; }
    virtual void paintHead(QPainter&, double) const {}
    /// Below the last row of a page.
    virtual void paintEnd(QPainter&, double) const {}
    /// Space above the block, left out at the top of a page.
    virtual double above() const = 0;
    /// Whether the block stays together with the first row of the next one.
    virtual bool leadsOn() const { return false; }
};

/// The pieces of a block. @param marks the headings of level 1, whose pages are known when it is painted
std::unique_ptr<Pieces> piecesOf(const Block& block, const Faces& faces, const std::vector<Mark>& marks);

} // namespace mrl::report
