#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

#include "report/file_report.h"

namespace mrl::report {

/// What the program says to a script, as mrl-lc does.
enum class ExitCode : int {
    Done = 0,
    Refused = 1, ///< the project's state or the wish forbids it
    Usage = 2,   ///< wrong usage
    File = 3     ///< a file could not be read or written
};

struct Arguments
{
    QString project;
    QString output;
    FileKind kind = FileKind::Pdf;
    QString language; ///< "en" or "de"
    QDate date;
};

/// Reads the command line. Answers --help and --version, and tells on standard error what it can't follow.
/// @param today the date that holds where neither --date nor SOURCE_DATE_EPOCH tells one
/// @param arguments [out] as it was when the program is to end
/// @return nothing when the program is to go on
std::optional<ExitCode> readArguments(const QStringList& words, const QDate& today, Arguments& arguments);

/// A line on standard error. What a terminal would take for a command is replaced.
void tell(const QString& text);

} // namespace mrl::report
