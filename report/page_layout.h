#pragma once

/// A report as pages, to be painted on paper or on a screen.

#include <memory>
#include <vector>

#include "report/report.h"
#include "report/typography.h"

class QPainter;

namespace mrl::report {

/// Breaks a report into pages once; then any page can be painted. No row is broken across pages, each page that goes on
/// with a table begins with its head, and no heading stands alone at the foot.
class PageLayout
{
  public:
    /// @param report outlives this. Needs an application and a font.
    explicit PageLayout(const Report& report);
    ~PageLayout();
    PageLayout(const PageLayout&) = delete;
    PageLayout& operator=(const PageLayout&) = delete;

    int pageCount() const;
    /// Paints a page, from 0 up, in units of typography.h with its left upper corner at 0, 0.
    void paint(QPainter& painter, int page) const;

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace mrl::report
