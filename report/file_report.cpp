#include "report/file_report.h"

#include <QFileInfo>

#include "report/html_writer.h"
#include "report/pdf_writer.h"

namespace mrl::report {

std::optional<FileKind> kindOf(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == QLatin1String("pdf")) {
        return FileKind::Pdf;
    }
    const bool isHtml = ending == QLatin1String("html") || ending == QLatin1String("htm");
    return isHtml ? std::optional(FileKind::Html) : std::nullopt;
}

std::optional<exchange::WriteFailure> writeReport(const Report& report, FileKind kind, const QString& path,
                                                  const std::function<bool()>& isSound)
{
    const auto write = [&](const exchange::Sink& sink) {
        return kind == FileKind::Pdf ? writePdf(report, PageLayout(report), sink) : writeHtml(report, sink);
    };
    return exchange::writeFile(write, path, isSound);
}

} // namespace mrl::report
