#pragma once

#include <deque>
#include <memory>

#include "hostlib/data/cdb/record_image.h"

namespace mrl::cdb {

/// The images of the steps of a history. What they hold beyond a limit lies in a file that has no name, so that
/// nothing of it stays behind, however the program ends; the oldest steps go there first.
class MRL_HOST_API ImageLog
{
  public:
    static constexpr std::size_t MOST_IN_MEMORY = std::size_t{64} << 20U;

    /// @param folder of the file, made when it is needed first. @param mostInMemory in bytes
    explicit ImageLog(std::string folder, std::size_t mostInMemory = MOST_IN_MEMORY);
    ~ImageLog();
    ImageLog(const ImageLog&) = delete;
    ImageLog& operator=(const ImageLog&) = delete;

    std::size_t count() const { return m_slots.size(); }
    /// Adds an image behind the others.
    /// @return a failure when there is no room for what exceeds the memory; the image is kept in memory then
    Result add(RecordImage image);
    /// An image, to be read. @param out [out] empty on failure
    Result get(std::size_t index, RecordImage& out);
    /// Puts an image back and keeps what stood there in its place: see swapImage.
    Result swap(std::size_t index, int db);
    /// Drops the images from this one on.
    void cut(std::size_t index);
    void dropFirst();
    /// Bytes in memory and in the file.
    std::size_t inMemory() const { return m_inMemory; }
    std::size_t inFile() const;

  private:
    struct Slot
    {
        RecordImage image; ///< without its bytes while they lie in the file
        std::int64_t at = -1;
        std::size_t size = 0;
    };
    struct File;

    Result limit(std::size_t keep);
    Result store(Slot& slot);
    std::int64_t gap(std::size_t size) const;
    void forget(const Slot& slot);

    std::string m_folder;
    std::size_t m_mostInMemory;
    std::size_t m_inMemory = 0;
    std::deque<Slot> m_slots;
    std::unique_ptr<File> m_file;
};

} // namespace mrl::cdb
