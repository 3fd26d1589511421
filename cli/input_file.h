#pragma once

#include <QByteArray>

#include <string>
#include <string_view>

namespace mrl::cli {

/// A whole file, or standard input for "-". Throws Failure when it can't be read or is larger than what formats take.
QByteArray readInput(const std::string& file);

inline std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace mrl::cli
