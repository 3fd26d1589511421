#include "hostlib/ui/table/html_table.h"

namespace mrl::table {

namespace {

QString cellText(const QString& text)
{
    return text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>"));
}

} // namespace

QString toHtmlTable(const std::vector<QStringList>& block, Captions captions)
{
    QString html = QStringLiteral("<table border=\"1\">\n");
    QString tag = captions == Captions::Copy ? QStringLiteral("th") : QStringLiteral("td");
    for (const QStringList& line : block) {
        html += QStringLiteral("<tr>");
        for (const QString& cell : line) {
            html += QStringLiteral("<%1>").arg(tag) + cellText(cell) + QStringLiteral("</%1>").arg(tag);
        }
        html += QStringLiteral("</tr>\n");
        tag = QStringLiteral("td");
    }
    return html + QStringLiteral("</table>\n");
}

} // namespace mrl::table
