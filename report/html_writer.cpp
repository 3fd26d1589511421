#include "report/html_writer.h"

#include "report/assignment_painter.h"
#include "report/words.h"

namespace mrl::report {

namespace {

constexpr int BLOCK = 1 << 16;

constexpr auto STYLE = R"(
body { font: 10pt/1.35 "DejaVu Sans", sans-serif; color: #1a1a1a; max-width: 180mm; margin: 10mm auto; padding: 0 5mm; }
h1 { font-size: 20pt; margin-bottom: 0; }
h2 { font-size: 13pt; margin: 2em 0 .5em; break-after: avoid; }
h3 { font-size: 10pt; margin: 1.4em 0 .3em; break-after: avoid; }
.project { font-size: 13pt; font-weight: bold; color: #5a5a5a; margin: 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; width: 100%; margin: .5em 0; font-size: 8.5pt; font-variant-numeric: tabular-nums; }
thead { display: table-header-group; }
tr { break-inside: avoid; }
thead th { border-bottom: 1.5pt solid #404040; }
th, td { text-align: left; vertical-align: top; padding: .2em .5em; overflow-wrap: break-word; }
tbody th, tbody td { border-bottom: .5pt solid #cfcfcf; }
.r { text-align: right; overflow-wrap: normal; }
tr.mark { background: #fff2d6; print-color-adjust: exact; }
.remark { font-size: 8pt; color: #5a5a5a; }
.warning { border-left: 3pt solid #b35c00; padding-left: .6em; }
.command { font: 8.5pt "DejaVu Sans Mono", monospace; padding-left: 1em; overflow-wrap: anywhere; }
figure { margin: .5em 0; }
svg { width: 100%; height: auto; }
svg text { font-family: "DejaVu Sans", sans-serif; }
footer { border-top: .5pt solid #cfcfcf; margin-top: 3em; font: 7.5pt "DejaVu Sans Mono", monospace; color: #5a5a5a; overflow-wrap: anywhere; }
@page { size: A4; margin: 20mm 15mm 20mm 25mm; }
@media print { body { max-width: none; margin: 0; padding: 0; } svg { break-inside: avoid; } }
)";

class HtmlWriter
{
  public:
    HtmlWriter(const Report& report, const exchange::Sink& sink) : m_report(report), m_sink(sink) {}

    bool run();

    void operator()(const Heading& heading);
    void operator()(const Paragraph& paragraph);
    void operator()(const Table& table);
    void operator()(const Assignment& picture);
    void operator()(const Contents&);

  private:
    void add(const QString& text)
    {
        m_out += text.toUtf8();
        if (m_out.size() > BLOCK) {
            flush();
        }
    }
    void flush()
    {
        m_isFine = m_isFine && m_sink({m_out.constData(), static_cast<std::size_t>(m_out.size())});
        m_out.clear();
    }
    void addRow(const Table& table, const Row& row);
    QString pageStyle() const;

    const Report& m_report;
    const exchange::Sink& m_sink;
    Faces m_faces;
    QByteArray m_out;
    int m_section = 0;
    bool m_isFine = true;
};

/// Head and foot of printed pages, for browsers that have them.
QString HtmlWriter::pageStyle() const
{
    const QString page =
        Text::tr("Page %1 of %2")
            .arg(QStringLiteral("\" counter(page) \""), QStringLiteral("\" counter(pages) \""));
    return QStringLiteral("@page { @bottom-left { content: \"SHA-256 %1\"; font: 6pt monospace; } "
                          "@bottom-right { content: \"%2\"; font: 7pt sans-serif; } "
                          "@top-right { content: \"%3\"; font: 7pt sans-serif; } }\n")
        .arg(m_report.hash, page, m_report.date);
}

bool HtmlWriter::run()
{
    const QString project = m_report.project.toHtmlEscaped();
    add(QStringLiteral("<!DOCTYPE html>\n<html lang=\"%1\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width\">\n"
                       "<meta name=\"generator\" content=\"mrl-report\">\n<title>%2: %3</title>\n<style>")
            .arg(m_report.language, project, m_report.title.toHtmlEscaped()));
    add(QLatin1String(STYLE) + pageStyle() + QStringLiteral("</style>\n</head>\n<body>\n<header>\n"));
    add(QStringLiteral("<h1>%1</h1>\n<p class=\"project\">%2</p>\n<p><time "
                       "datetime=\"%3\">%4</time></p>\n</header>\n<main>\n")
            .arg(m_report.title.toHtmlEscaped(), project, m_report.day.toString(Qt::ISODate),
                 m_report.date.toHtmlEscaped()));
    for (const Block& block : m_report.blocks) {
        if (m_isFine) {
            std::visit(*this, block);
        }
    }
    add(QStringLiteral("</main>\n<footer>SHA-256 %1</footer>\n</body>\n</html>\n").arg(m_report.hash));
    flush();
    return m_isFine;
}

void HtmlWriter::operator()(const Heading& heading)
{
    const QString text = heading.text.toHtmlEscaped();
    add(heading.level == 1 ? QStringLiteral("<h2 id=\"s%1\">%2</h2>\n").arg(++m_section).arg(text)
                           : QStringLiteral("<h3>%1</h3>\n").arg(text));
}

void HtmlWriter::operator()(const Paragraph& paragraph)
{
    static const char* const CLASSES[] = {"plain", "remark", "warning", "command"};
    add(QStringLiteral("<p class=\"%1\">%2</p>\n")
            .arg(QLatin1String(CLASSES[static_cast<std::size_t>(paragraph.style)]),
                 paragraph.text.toHtmlEscaped()));
}

void HtmlWriter::addRow(const Table& table, const Row& row)
{
    QString text = row.isMarked ? QStringLiteral("<tr class=\"mark\">") : QStringLiteral("<tr>");
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const bool isName = !table.hasHead && i == 0;
        const QString cell = row.cells[i].toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
        text += isName ? QStringLiteral("<th scope=\"row\">") + cell + QStringLiteral("</th>")
                       : (table.columns[i].align == Align::Right ? QStringLiteral("<td class=\"r\">")
                                                                 : QStringLiteral("<td>")) +
                             cell + QStringLiteral("</td>");
    }
    add(text + QStringLiteral("</tr>\n"));
}

void HtmlWriter::operator()(const Table& table)
{
    add(QStringLiteral("<table>\n"));
    if (table.hasHead) {
        QString head = QStringLiteral("<thead><tr>");
        for (const Column& column : table.columns) {
            head += QStringLiteral("<th%1>%2</th>")
                        .arg(column.align == Align::Right ? QStringLiteral(" class=\"r\"") : QString(),
                             column.head.toHtmlEscaped());
        }
        add(head + QStringLiteral("</tr></thead>\n"));
    }
    add(QStringLiteral("<tbody>\n"));
    for (std::size_t i = 0; i < table.count && m_isFine; ++i) {
        addRow(table, table.row(i));
    }
    add(QStringLiteral("</tbody>\n</table>\n"));
}

void HtmlWriter::operator()(const Assignment& picture)
{
    add(QStringLiteral("<figure>\n") + QString::fromUtf8(assignmentSvg(picture, m_faces)) +
        QStringLiteral("</figure>\n"));
}

void HtmlWriter::operator()(const Contents&)
{
    QString list = QStringLiteral("<nav><h3>%1</h3>\n").arg(Text::tr("Contents"));
    int section = 0;
    for (const Block& block : m_report.blocks) {
        const auto* heading = std::get_if<Heading>(&block);
        if (heading != nullptr && heading->level == 1) {
            list += QStringLiteral("<div><a href=\"#s%1\">%2</a></div>\n")
                        .arg(++section)
                        .arg(heading->text.toHtmlEscaped());
        }
    }
    add(list + QStringLiteral("</nav>\n"));
}

} // namespace

std::optional<exchange::FormatError> writeHtml(const Report& report, const exchange::Sink& sink)
{
    return HtmlWriter(report, sink).run() ? std::nullopt
                                          : std::optional(exchange::FormatError{"the file can't be written"});
}

} // namespace mrl::report
