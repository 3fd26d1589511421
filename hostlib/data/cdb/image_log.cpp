#include "hostlib/data/cdb/image_log.h"

#include <QDir>
#include <QTemporaryFile>

#include <algorithm>

#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

/// Qt gives the file a name only when somebody asks for it.
struct ImageLog::File : QTemporaryFile
{
    using QTemporaryFile::QTemporaryFile;
};

ImageLog::ImageLog(std::string folder, std::size_t mostInMemory)
    : m_folder(std::move(folder)), m_mostInMemory(mostInMemory)
{
}

ImageLog::~ImageLog() = default;

Result ImageLog::add(RecordImage image)
{
    Slot slot;
    slot.size = image.size();
    slot.image = std::move(image);
    m_inMemory += slot.size;
    m_slots.push_back(std::move(slot));
    return limit(m_slots.size());
}

/// Puts images into the file, the first ones first, until the rest fits the memory.
/// @param keep an image that is going to be wanted, and so comes last
Result ImageLog::limit(std::size_t keep)
{
    for (std::size_t i = 0; i < m_slots.size() && m_inMemory > m_mostInMemory; ++i) {
        if (i == keep || m_slots[i].at >= 0) {
            continue;
        }
        if (Result stored = store(m_slots[i]); !stored) {
            return stored;
        }
    }
    return {};
}

Result ImageLog::store(Slot& slot)
{
    const QString folder = QString::fromStdString(m_folder);
    if (!m_file) {
        QDir().mkpath(folder);
        m_file = std::make_unique<File>(folder + QStringLiteral("/history"));
    }
    if (!m_file->isOpen() && !m_file->open()) {
        return failure(Code::InputOutput, m_folder, m_file->errorString().toStdString());
    }
    const std::int64_t at = gap(slot.size);
    std::string bytes = slot.image.takeBytes();
    const auto size = static_cast<qint64>(bytes.size());
    if (!m_file->seek(at) || m_file->write(bytes.data(), size) != size || !m_file->flush()) {
        slot.image.giveBytes(std::move(bytes));
        return failure(Code::DiskFull, m_folder, m_file->errorString().toStdString());
    }
    slot.at = at;
    m_inMemory -= slot.size;
    return {};
}

/// The first place of the file that has room.
std::int64_t ImageLog::gap(std::size_t size) const
{
    std::vector<std::pair<std::int64_t, std::int64_t>> taken;
    for (const Slot& slot : m_slots) {
        if (slot.at >= 0) {
            taken.emplace_back(slot.at, slot.at + static_cast<std::int64_t>(slot.size));
        }
    }
    std::sort(taken.begin(), taken.end());
    std::int64_t at = 0;
    for (const auto& [begin, end] : taken) {
        if (begin - at >= static_cast<std::int64_t>(size)) {
            break;
        }
        at = end;
    }
    return at;
}

Result ImageLog::get(std::size_t index, RecordImage& out)
{
    const Slot& slot = m_slots.at(index);
    out = slot.image;
    if (slot.at < 0) {
        return {};
    }
    std::string bytes(slot.size, '\0');
    const auto size = static_cast<qint64>(bytes.size());
    if (!m_file->seek(slot.at) || m_file->read(bytes.data(), size) != size) {
        out = {};
        return failure(Code::InputOutput, m_folder, m_file->errorString().toStdString());
    }
    out.giveBytes(std::move(bytes));
    return {};
}

Result ImageLog::swap(std::size_t index, int db)
{
    Slot& slot = m_slots.at(index);
    if (slot.at >= 0) {
        RecordImage image;
        if (Result read = get(index, image); !read) {
            return read;
        }
        m_inMemory += slot.size;
        slot.image = std::move(image);
        slot.at = -1;
    }
    Result swapped = swapImage(db, slot.image);
    m_inMemory -= slot.size;
    slot.size = slot.image.size();
    m_inMemory += slot.size;
    // Whether the others find room in the file doesn't change what came of the step.
    static_cast<void>(limit(index));
    return swapped;
}

void ImageLog::forget(const Slot& slot)
{
    if (slot.at < 0) {
        m_inMemory -= slot.size;
    }
}

void ImageLog::cut(std::size_t index)
{
    while (m_slots.size() > index) {
        forget(m_slots.back());
        m_slots.pop_back();
    }
}

void ImageLog::dropFirst()
{
    forget(m_slots.front());
    m_slots.pop_front();
}

std::size_t ImageLog::inFile() const
{
    std::size_t sum = 0;
    for (const Slot& slot : m_slots) {
        sum += slot.at >= 0 ? slot.size : 0;
    }
    return sum;
}

} // namespace mrl::cdb
