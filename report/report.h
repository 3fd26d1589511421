#pragma once

/// A report as data: what html_writer.h and pdf_writer.h write and page_layout.h shows.

#include <QDate>
#include <QString>

#include <functional>
#include <variant>
#include <vector>

#include "report/assignment.h"

namespace mrl::report {

enum class Align { Left, Right };

struct Column
{
    QString head;
    double width = 0; ///< in mm of a page; 0: an equal share of what the others leave
    Align align = Align::Left;
};

struct Row
{
    std::vector<QString> cells; ///< a line feed begins a new line
    bool isMarked = false;      ///< deserves a look, and is set off from the others
};

/// A table whose rows are made when they are wanted, so that one of 100,000 rows takes no memory.
struct Table
{
    std::vector<Column> columns;
    std::size_t count = 0;
    std::function<Row(std::size_t)> row; ///< gives the same each time; holds what it needs alive
    bool hasHead = true;
};

struct Heading
{
    int level = 1; ///< 1 or 2
    QString text;
};

enum class Style {
    Plain,
    Remark,  ///< small print
    Warning, ///< set off from the others
    Command  ///< to be typed as it stands
};

struct Paragraph
{
    Style style = Style::Plain;
    QString text;
};

/// The headings of level 1 and where they stand.
struct Contents
{
};

using Block = std::variant<Heading, Paragraph, Table, Assignment, Contents>;

struct Report
{
    QString title;
    QString project;  ///< the name of its file
    QString date;     ///< for people
    QDate day;        ///< the same
    QString language; ///< "en" or "de"
    QString hash;     ///< SHA-256 of the project's content, 64 hexadecimal digits
    std::vector<Block> blocks;
};

} // namespace mrl::report
