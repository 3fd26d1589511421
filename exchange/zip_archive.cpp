#include "exchange/zip_archive.h"

#include <zip.h>

#include <algorithm>

namespace mrl::exchange {

namespace {

constexpr zip_uint64_t SMALL = 10UL * 1024 * 1024; // of which a great ratio does no harm

bool isBomb(const zip_stat_t& entry)
{
    return entry.size > SMALL && entry.comp_size > 0 &&
           entry.size / entry.comp_size > static_cast<zip_uint64_t>(ZipArchive::MAX_RATIO);
}

} // namespace

void ZipEntry::Close::operator()(zip_file* file) const { zip_fclose(file); }

ZipEntry::ZipEntry(zip_file* file, long long limit) : m_file(file), m_left(limit)
{
    open(QIODevice::ReadOnly);
}

ZipEntry::~ZipEntry() = default;

qint64 ZipEntry::readData(char* data, qint64 size)
{
    const zip_int64_t count =
        zip_fread(m_file.get(), data, static_cast<zip_uint64_t>(std::max<qint64>(size, 0)));
    // The directory may lie about the size of an entry.
    m_left -= std::max<zip_int64_t>(count, 0);
    if (count < 0 || m_left < 0) {
        setErrorString(count < 0 ? "damaged" : "larger than its directory says");
        return -1;
    }
    return count == 0 && size > 0 ? -1 : count;
}

ZipArchive::ZipArchive(std::string_view bytes)
{
    zip_error_t error{};
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    m_zip = source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &error);
    if (m_zip == nullptr) {
        m_error = {QT_TRANSLATE_NOOP("Exchange", "the zip file can't be read: %1"),
                   {zip_error_strerror(&error)}};
        zip_source_free(source); // an archive that was opened owns it
    } else {
        m_error = checkEntries();
    }
    zip_error_fini(&error);
}

ZipArchive::~ZipArchive()
{
    if (m_zip != nullptr) {
        zip_discard(m_zip);
    }
}

Message ZipArchive::checkEntries() const
{
    const zip_int64_t count = zip_get_num_entries(m_zip, 0);
    if (count > MAX_ENTRIES) {
        return {QT_TRANSLATE_NOOP("Exchange", "the zip file has more than %1 entries"),
                {std::to_string(MAX_ENTRIES)}};
    }
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t entry;
        zip_stat_init(&entry);
        if (zip_stat_index(m_zip, static_cast<zip_uint64_t>(i), 0, &entry) != 0) {
            return {QT_TRANSLATE_NOOP("Exchange", "the directory of the zip file is damaged")};
        }
        if (entry.size > static_cast<zip_uint64_t>(MAX_ENTRY_BYTES) || isBomb(entry)) {
            return {QT_TRANSLATE_NOOP("Exchange",
                                      "the entry %1 of the zip file inflates to %2 bytes, which is refused"),
                    {entry.name, std::to_string(entry.size)}};
        }
    }
    return {};
}

std::unique_ptr<ZipEntry> ZipArchive::open(const std::string& name) const
{
    zip_stat_t entry;
    zip_stat_init(&entry);
    if (m_zip == nullptr || !m_error.empty() || zip_stat(m_zip, name.c_str(), 0, &entry) != 0) {
        return nullptr;
    }
    zip_file_t* file = zip_fopen_index(m_zip, entry.index, 0);
    return file == nullptr ? nullptr : std::make_unique<ZipEntry>(file, static_cast<long long>(entry.size));
}

} // namespace mrl::exchange
