#include "cli/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "cli/failure.h"
#include "lcdata/values/records.h"

namespace mrl::cli {

namespace {

constexpr std::size_t BLOCK_BYTES = 1 << 16;

std::size_t widthOf(const std::string& text)
{
    const auto isStart = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; };
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isStart));
}

std::string blanks(const std::string& text, std::size_t width)
{
    const std::size_t used = widthOf(text);
    return std::string(used < width ? width - used : 0, ' ');
}

/// Marks that embed, override or isolate a direction of writing.
bool turnsDirection(QChar c)
{
    const ushort unit = c.unicode();
    return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
}

bool isHarmful(QChar c) { return c.category() == QChar::Other_Control || turnsDirection(c); }

bool isPlain(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20 && byte < 0x7F) || byte == '\n';
}

} // namespace

Output::~Output() { std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout); }

void Output::flush()
{
    const std::size_t size = m_buffer.size();
    const std::size_t written = std::fwrite(m_buffer.data(), 1, size, stdout);
    m_buffer.clear();
    if (written != size) {
        throw Failure{ExitCode::File, std::string("standard output: ") + std::strerror(errno)};
    }
}

void Output::write(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        append(text);
    } else {
        append(printableLines(text));
    }
}

void Output::bytes(std::string_view piece)
{
    if (isatty(STDOUT_FILENO) == 1) {
        write(piece);
    } else {
        append(piece);
    }
}

void Output::append(std::string_view bytes)
{
    m_buffer.append(bytes);
    if (m_buffer.size() >= BLOCK_BYTES) {
        flush();
    }
}

void Output::line(std::string_view text)
{
    write(text);
    write("\n");
}

void Output::finish()
{
    flush();
    if (std::fflush(stdout) != 0) {
        throw Failure{ExitCode::File, std::string("standard output: ") + std::strerror(errno)};
    }
}

std::string jsonText(const Json& value, int indent)
{
    // The writer escapes the control characters below the blank only.
    const std::string text = value.dump(indent, ' ', false, Json::error_handler_t::replace);
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        return text;
    }
    QString safe;
    for (const QChar c : QString::fromStdString(text)) {
        const bool harmful = isHarmful(c) && c != QLatin1Char('\n');
        safe += harmful ? QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')) : QString(c);
    }
    return safe.toStdString();
}

void printJson(const Json& value)
{
    Output out;
    out.line(jsonText(value, 2));
    out.finish();
}

std::string numberText(float value)
{
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
    return std::string(std::begin(text), end);
}

std::string factorText(float value) { return value == LC_UNDEFINED ? "-" : numberText(value); }

Json jsonNumber(float value)
{
    if (!std::isfinite(value)) {
        return nullptr;
    }
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
    double number = 0.0;
    std::from_chars(std::begin(text), end, number);
    return number;
}

Json jsonFactor(float value) { return value == LC_UNDEFINED ? Json(nullptr) : jsonNumber(value); }

std::string printable(const QString& text)
{
    QString clean = text;
    std::replace_if(clean.begin(), clean.end(), isHarmful, QChar('?'));
    return clean.toStdString();
}

std::string printableLines(std::string_view text)
{
    QString clean = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    std::replace_if(
        clean.begin(), clean.end(), [](QChar c) { return isHarmful(c) && c != QLatin1Char('\n'); },
        QChar('?'));
    return clean.toStdString();
}

std::string padded(const std::string& text, std::size_t width) { return text + blanks(text, width); }

std::string paddedLeft(const std::string& text, std::size_t width) { return blanks(text, width) + text; }

std::string Table::lineOf(const std::vector<std::string>& row, const std::vector<std::size_t>& widths) const
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool right = m_columns[i].align == Align::Right;
        line += (i == 0 ? "" : "  ") + (right ? paddedLeft(row[i], widths[i]) : padded(row[i], widths[i]));
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

void Table::print() const
{
    std::vector<std::string> head;
    std::vector<std::size_t> widths;
    for (const Column& column : m_columns) {
        head.push_back(column.title);
        widths.push_back(widthOf(column.title));
    }
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], widthOf(row[i]));
        }
    }
    Output out;
    out.line(lineOf(head, widths));
    for (const auto& row : m_rows) {
        out.line(lineOf(row, widths));
    }
    out.finish();
}

} // namespace mrl::cli
