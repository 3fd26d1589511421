#pragma once

/// A zip file in memory, as workbooks are, read entry by entry within limits.

#include <QIODevice>

#include <memory>
#include <string>
#include <string_view>

#include "exchange/message.h"

struct zip;
struct zip_file;

namespace mrl::exchange {

/// An entry while it is inflated. Fails when the entry grows beyond the limits.
class ZipEntry : public QIODevice
{
  public:
    /// @param limit bytes that may be inflated
    ZipEntry(zip_file* file, long long limit);
    ~ZipEntry() override;

    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    struct Close
    {
        void operator()(zip_file* file) const;
    };
    std::unique_ptr<zip_file, Close> m_file;
    long long m_left;
};

class ZipArchive
{
  public:
    static constexpr long long MAX_ENTRIES = 10000;
    static constexpr long long MAX_ENTRY_BYTES = 2LL * 1024 * 1024 * 1024; ///< inflated
    static constexpr long long MAX_RATIO =
        300; ///< of an entry's size to what it takes up; for entries above 10 MB

    /// @param bytes have to outlive this
    explicit ZipArchive(std::string_view bytes);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    /// Why the file can't be read; empty when it can.
    const Message& error() const { return m_error; }

    /// An entry by its name; null when there is none, or when it can't be read within the limits.
    std::unique_ptr<ZipEntry> open(const std::string& name) const;

  private:
    Message checkEntries() const;

    zip* m_zip = nullptr; // closed by the destructor; zip_discard is what closes without writing
    Message m_error;
};

} // namespace mrl::exchange
