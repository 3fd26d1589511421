#include "cli/input_file.h"

#include <QFile>

#include <cstdio>

#include "cli/arguments.h"
#include "cli/failure.h"
#include "exchange/format.h"

namespace mrl::cli {

QByteArray readInput(const std::string& file)
{
    QFile input(qtext(file));
    const bool isOpen =
        file == "-" ? input.open(stdin, QIODevice::ReadOnly) : input.open(QIODevice::ReadOnly);
    const auto fail = [&](const std::string& why) { throw Failure{ExitCode::File, file + ": " + why}; };
    if (!isOpen) {
        fail(input.errorString().toStdString());
    }
    if (!input.isSequential() && input.size() > exchange::MAX_FILE_BYTES) {
        fail("larger than 256 MiB");
    }
    // One byte more tells a file that is too large from one that just fits.
    QByteArray bytes = input.read(exchange::MAX_FILE_BYTES + 1);
    if (input.error() != QFileDevice::NoError) {
        fail(input.errorString().toStdString());
    }
    if (bytes.size() > exchange::MAX_FILE_BYTES) {
        fail("larger than 256 MiB");
    }
    return bytes;
}

} // namespace mrl::cli
