#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

/// What certain keys and facts of a project held at one moment, in one block of bytes: what is put back when a step
/// is undone. A key that did not exist then has no record, a fact that was not set an empty value.
class MRL_HOST_API RecordImage
{
  public:
    struct Entry
    {
        Key key;
        std::vector<std::string> records; ///< empty: the key did not exist
    };
    using Facts = std::map<std::string, std::string>;

    /// How many keys it tells of.
    std::size_t keyCount() const { return m_keyCount; }
    bool isEmpty() const { return m_keyCount == 0 && m_facts.empty(); }
    const Facts& facts() const { return m_facts; }
    /// Calls for each key, group by group in ascending order. A result of false ends the walk.
    void forEach(const std::function<bool(const Entry&)>& visit) const;

    /// The block of the records, so that it can be kept elsewhere and given back.
    const std::string& bytes() const { return m_bytes; }
    std::string takeBytes();
    void giveBytes(std::string bytes) { m_bytes = std::move(bytes); }
    /// An image from the block of another one. @return nothing for bytes that are none
    static std::optional<RecordImage> fromBytes(std::string bytes);
    std::size_t size() const { return m_bytes.size(); }

    // For those who make one, keys in the order of forEach.
    void beginKey(const Key& key);
    void addRecord(const void* bytes, int size);
    /// Takes back what was added since the image had this size and so many keys.
    void cut(std::size_t size, std::size_t keyCount);
    void addFact(const std::string& name, const std::string& value) { m_facts[name] = value; }

  private:
    std::string m_bytes;
    std::size_t m_keyCount = 0;
    std::size_t m_countAt = 0; ///< where the number of records of the last key stands
    Facts m_facts;
};

/// Compares two projects bit by bit, so that very many records hold nobody up. Neither may change meanwhile; begin anew
/// then.
class MRL_HOST_API DifferenceScan
{
  public:
    /// @param of its content is noted wherever the other one differs
    DifferenceScan(int of, int other) : m_of(of), m_other(other) {}

    /// Compares so many keys more, or the rest.
    Result advance(int keys);
    bool isDone() const { return m_isDone; }
    /// What was found so far.
    RecordImage takeImage() { return std::move(m_image); }

  private:
    Result begin();
    Result compareGroup(int kwh, int& left);

    int m_of;
    int m_other;
    std::optional<std::set<int>> m_groups; ///< that are left, none before the first step
    int m_next = INT32_MIN;                ///< the first element that is left of the first of them
    bool m_isDone = false;
    RecordImage m_image;
};

/// What a project held wherever another one differs from it.
/// @param of its content is noted. @param other is compared with it. @param out [out] as far as it was read on failure
MRL_HOST_API Result imageOfDifferences(int of, int other, RecordImage& out);

/// What a project holds now where an image tells of it, keys in the same order. @param out [out] as above
MRL_HOST_API Result imageNow(int db, const RecordImage& image, RecordImage& out);

/// Puts an image back, in one transaction; afterwards it holds what stood there before, so that the same call takes
/// it back again. On failure project and image are as they were.
MRL_HOST_API Result swapImage(int db, RecordImage& image);

} // namespace mrl::cdb
