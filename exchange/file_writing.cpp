#include "exchange/file_writing.h"

#include <QSaveFile>

namespace mrl::exchange {

std::optional<WriteFailure> writeFile(const WriteBytes& write, const QString& path,
                                      const std::function<bool()>& isSound)
{
    QSaveFile file(path);
    const auto failure = [&] {
        return WriteFailure{Message::verbatim(file.errorString().toStdString()), true};
    };
    if (!file.open(QIODevice::WriteOnly)) {
        return failure();
    }
    bool isWritten = true;
    const auto error = write([&](std::string_view bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        isWritten = file.write(bytes.data(), size) == size;
        return isWritten;
    });
    if (error && isWritten) {
        return WriteFailure{error->message, false};
    }
    if (!isSound()) {
        return WriteFailure{{QT_TRANSLATE_NOOP("Exchange", "the project can't be read whole")}, false};
    }
    // The commit alone doesn't notice that the last block didn't fit.
    if (!isWritten || !file.flush() || !file.commit()) {
        return failure();
    }
    return std::nullopt;
}

std::optional<WriteFailure> writeFile(const Format& format, const Source& source,
                                      const FormatOptions& options, const QString& path,
                                      const std::function<bool()>& isSound)
{
    return writeFile([&](const Sink& sink) { return format.write(source, options, sink); }, path, isSound);
}

} // namespace mrl::exchange
