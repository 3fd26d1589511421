#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "report/compose.h"
#include "report/html_writer.h"
#include "report/pdf_writer.h"

namespace {

using mrl::report::Report;
using mrl::report::Table;

constexpr int ROWS_A_PAGE = 60;
constexpr int ROW_HEIGHT = 400;
constexpr int COLUMN_WIDTH = 2500;

bool forget(std::string_view bytes)
{
    bench::keep(bytes);
    return true;
}

/// The report of a project, and the texts of all its tables for the raw sides.
class OfProject : private bench::LoadCases
{
  public:
    explicit OfProject(int count)
        : LoadCases(count),
          m_report(mrl::report::compose(mrl::report::readProject(db, QStringLiteral("p.cdb")),
                                        {QStringLiteral("en"), QDate(2026, 1, 1), false}))
    {
        for (const mrl::report::Block& block : m_report.blocks) {
            if (const auto* table = std::get_if<Table>(&block)) {
                for (std::size_t i = 0; i < table->count; ++i) {
                    m_rows.push_back(table->row(i).cells);
                }
            }
        }
    }

  protected:
    Report m_report;
    std::vector<std::vector<QString>> m_rows;
};

/// A report as PDF, against its texts painted at fixed places, so many rows a page, with nothing measured.
class Pdf : private OfProject
{
  public:
    using OfProject::OfProject;

    void ours()
    {
        const mrl::report::PageLayout pages(m_report);
        bench::require(!mrl::report::writePdf(m_report, pages, forget), "write");
    }
    void raw()
    {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        QPdfWriter writer(&file);
        writer.setResolution(mrl::report::UNITS_PER_INCH);
        QPainter painter(&writer);
        painter.setFont(mrl::report::Faces().cell.font());
        int row = 0;
        for (const auto& cells : m_rows) {
            if (++row % ROWS_A_PAGE == 0) {
                writer.newPage();
            }
            const int y = row % ROWS_A_PAGE * ROW_HEIGHT;
            for (std::size_t i = 0; i < cells.size(); ++i) {
                painter.drawText(QPointF(static_cast<double>(i) * COLUMN_WIDTH, y), cells[i]);
            }
            painter.drawLine(0, y, mrl::report::BODY_WIDTH, y);
        }
    }
};
const bench::Timed<Pdf> PDF("report.pdf", 3.0, {10000, 100000});

/// A report as HTML, its picture included, against its texts joined with the bare tags of cells.
class Html : private OfProject
{
  public:
    using OfProject::OfProject;

    void ours() { bench::require(!mrl::report::writeHtml(m_report, forget), "write"); }
    void raw()
    {
        for (const auto& cells : m_rows) {
            QString line = QStringLiteral("<tr>");
            for (const QString& cell : cells) {
                line += QStringLiteral("<td>") + cell.toHtmlEscaped() + QStringLiteral("</td>");
            }
            const QByteArray bytes = (line + QStringLiteral("</tr>\n")).toUtf8();
            forget({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        }
    }
};
const bench::Timed<Html> HTML("report.html", 4.0, {10000, 100000});

} // namespace
