#include "hostlib/ui/table/tab_separated.h"

namespace {

const QChar QUOTE = QLatin1Char('"');
const QChar TAB = QLatin1Char('\t');
const QChar LINE_FEED = QLatin1Char('\n');

QString quoted(const QString& cell)
{
    if (!cell.contains(TAB) && !cell.contains(LINE_FEED) && !cell.startsWith(QUOTE)) {
        return cell;
    }
    QString doubled = cell;
    doubled.replace(QUOTE, QStringLiteral("\"\""));
    return QUOTE + doubled + QUOTE;
}

/// Reads one cell. @param at [in, out] where it begins; afterwards the place of what ends it
QString readCell(const QString& text, int& at)
{
    QString cell;
    const bool isQuoted = at < text.size() && text.at(at) == QUOTE && text.indexOf(QUOTE, at + 1) >= 0;
    if (isQuoted) {
        for (++at; at < text.size(); ++at) {
            if (text.at(at) == QUOTE && (at + 1 >= text.size() || text.at(at + 1) != QUOTE)) {
                break;
            }
            at += text.at(at) == QUOTE ? 1 : 0;
            cell += text.at(at);
        }
        ++at;
    }
    for (; at < text.size() && text.at(at) != TAB && text.at(at) != LINE_FEED; ++at) {
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
                text += TAB;
            }
            text += quoted(line.at(i));
        }
        text += LINE_FEED;
    }
    return text;
}

std::vector<QStringList> fromTabSeparated(const QString& text)
{
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), LINE_FEED);
    if (plain.endsWith(LINE_FEED)) {
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
        if (plain.at(at) == LINE_FEED) {
            block.emplace_back();
        }
    }
}

} // namespace mrl::table
