#include "hostlib/ui/table/tab_separated.h"

namespace {

const QChar quote = QLatin1Char('"');
const QChar tab = QLatin1Char('\t');
const QChar lineFeed = QLatin1Char('\n');

QString quoted(const QString& cell)
{
    if (!cell.contains(tab) && !cell.contains(lineFeed) && !cell.startsWith(quote)) {
        return cell;
    }
    QString doubled = cell;
    doubled.replace(quote, QStringLiteral("\"\""));
    return quote + doubled + quote;
}

/// Reads one cell. @param at [in, out] where it begins; afterwards the place of what ends it
QString readCell(const QString& text, int& at)
{
    QString cell;
    const bool isQuoted = at < text.size() && text.at(at) == quote && text.indexOf(quote, at + 1) >= 0;
    if (isQuoted) {
        for (++at; at < text.size(); ++at) {
            if (text.at(at) == quote && (at + 1 >= text.size() || text.at(at + 1) != quote)) {
                break;
            }
            at += text.at(at) == quote ? 1 : 0;
            cell += text.at(at);
        }
        ++at;
    }
    for (; at < text.size() && text.at(at) != tab && text.at(at) != lineFeed; ++at) {
        cell += text.at(at);
    }
    return cell;
}

} // namespace

namespace mrl::table {

QString toTabSeparated(const std::vector<QStringList>& block)
{
    QString text;
    for (const QStringList& line : block) {
        for (int i = 0; i < line.size(); ++i) {
            if (i > 0) {
                text += tab;
            }
            text += quoted(line.at(i));
        }
        text += lineFeed;
    }
    return text;
}

std::vector<QStringList> fromTabSeparated(const QString& text)
{
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), lineFeed);
    if (plain.endsWith(lineFeed)) {
        plain.chop(1);
    }
    std::vector<QStringList> block;
    if (text.isEmpty()) {
        return block;
    }
    block.emplace_back();
    for (int at = 0;; ++at) {
        block.back().append(readCell(plain, at));
        if (at >= plain.size()) {
            return block;
        }
        if (plain.at(at) == lineFeed) {
            block.emplace_back();
        }
    }
}

} // namespace mrl::table
