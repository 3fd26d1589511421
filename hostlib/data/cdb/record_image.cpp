#include "hostlib/data/cdb/record_image.h"

#include <cstring>
#include <utility>

#include "hostlib/data/cdb/range_reader.h"

namespace mrl::cdb {

namespace {

/// Numbers as they stand in the block, which never leaves the process.
using Number = std::int32_t;

void putNumber(std::string& bytes, Number number)
{
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

/// Reads a block from its beginning, without copying the records.
class BlockReader
{
  public:
    explicit BlockReader(const std::string& bytes) : m_bytes(bytes) {}

    bool atEnd() const { return m_at >= m_bytes.size(); }
    /// Whether everything so far lay within the block.
    bool isWhole() const { return m_whole; }
    Number number()
    {
        Number value = 0;
        if (const char* start = bytes(sizeof value)) {
            std::memcpy(&value, start, sizeof value);
        }
        return value;
    }
    std::string record()
    {
        const auto size = static_cast<std::size_t>(number());
        const char* start = bytes(size);
        return start != nullptr ? std::string(start, size) : std::string();
    }

  private:
    const char* bytes(std::size_t size)
    {
        m_whole = m_whole && size <= m_bytes.size() - m_at;
        const char* start = m_whole ? m_bytes.data() + m_at : nullptr;
        m_at = m_whole ? m_at + size : m_bytes.size();
        return start;
    }

    const std::string& m_bytes;
    std::size_t m_at = 0;
    bool m_whole = true;
};

RecordImage::Entry readEntry(BlockReader& reader)
{
    RecordImage::Entry entry;
    entry.key.kwh = reader.number();
    entry.key.kwl = reader.number();
    for (Number left = reader.number(); left > 0 && reader.isWhole(); --left) {
        entry.records.push_back(reader.record());
    }
    return entry;
}

/// Notes what a reader's database holds under a key. The keys of a reader come in ascending order.
Result noteKey(RangeReader& reader, const Key& key, RecordImage& out)
{
    out.beginKey(key);
    bool here = reader.seek(key.kwl) && reader.kwl() == key.kwl;
    while (here) {
        out.addRecord(reader.bytes(), reader.size());
        here = reader.next() && reader.kwl() == key.kwl;
    }
    return reader.result();
}

Result noteKeys(Database& database, int kwh, const std::vector<int>& kwls, RecordImage& out)
{
    if (kwls.empty()) {
        return {};
    }
    RangeReader reader(database, {kwh, kwls.front(), kwls.back()});
    reader.next();
    for (const int kwl : kwls) {
        if (Result read = noteKey(reader, {kwh, kwl}, out); !read) {
            return read;
        }
    }
    return reader.result();
}

/// Notes the records of one side while they are compared, and keeps those of the keys that differ: reading them again
/// afterwards would cost as much as the comparison.
class DifferingKeys
{
  public:
    DifferingKeys(int kwh, RecordImage& out) : m_kwh(kwh), m_out(out) { keep(); }
    ~DifferingKeys() { m_out.cut(m_size, m_keyCount); }
    DifferingKeys(const DifferingKeys&) = delete;
    DifferingKeys& operator=(const DifferingKeys&) = delete;

    void see(const RangeReader& reader)
    {
        if (!m_open || m_kwl != reader.kwl()) {
            begin(reader.kwl());
        }
        m_out.addRecord(reader.bytes(), reader.size());
    }
    void differs(int kwl)
    {
        if (!m_open || m_kwl != kwl) {
            begin(kwl);
        }
        keep();
    }

  private:
    void begin(int kwl)
    {
        m_out.cut(m_size, m_keyCount);
        m_out.beginKey({m_kwh, kwl});
        m_kwl = kwl;
        m_open = true;
    }
    void keep()
    {
        m_size = m_out.size();
        m_keyCount = m_out.keyCount();
        m_open = false;
    }

    int m_kwh;
    RecordImage& m_out;
    std::size_t m_size = 0; ///< of what is kept
    std::size_t m_keyCount = 0;
    bool m_open = false; ///< a key is noted whose verdict isn't known
    int m_kwl = 0;
};

Result noteFacts(int of, int other, RecordImage& out)
{
    RecordImage::Facts here;
    RecordImage::Facts there;
    if (Result read = facts(of, here); !read) {
        return read;
    }
    if (Result read = facts(other, there); !read) {
        return read;
    }
    for (const auto& [name, value] : there) {
        here.emplace(name, std::string());
    }
    for (const auto& [name, value] : here) {
        const auto found = there.find(name);
        if ((found == there.end() ? std::string() : found->second) != value) {
            out.addFact(name, value);
        }
    }
    return {};
}

/// The keys of an image, group by group.
std::map<int, std::vector<int>> keysOf(const RecordImage& image)
{
    std::map<int, std::vector<int>> keys;
    image.forEach([&](const RecordImage::Entry& entry) {
        keys[entry.key.kwh].push_back(entry.key.kwl);
        return true;
    });
    return keys;
}

Outcome putBack(Database& database, const RecordImage::Entry& entry)
{
    if (entry.records.size() == 1) {
        const std::string& record = entry.records.front();
        return database.put(entry.key, record.data(), static_cast<int>(record.size()));
    }
    Outcome outcome = database.remove(entry.key);
    for (const std::string& record : entry.records) {
        if (outcome == Outcome::Failed) {
            break;
        }
        outcome = database.append(entry.key, record.data(), static_cast<int>(record.size()));
    }
    return outcome;
}

Result writeImage(int db, const RecordImage& image)
{
    auto* database = Registry::instance().find(db);
    Transaction transaction(db);
    if (Result state = transaction.state(); !state) {
        return state;
    }
    Outcome outcome = Outcome::Done;
    image.forEach([&](const RecordImage::Entry& entry) {
        outcome = putBack(*database, entry);
        return outcome != Outcome::Failed;
    });
    if (outcome == Outcome::Failed) {
        return database->transactions().lastFailure();
    }
    for (const auto& [name, value] : image.facts()) {
        if (Result set = setFact(db, name, value); !set) {
            return set;
        }
    }
    return transaction.commit();
}

} // namespace

void RecordImage::forEach(const std::function<bool(const Entry&)>& visit) const
{
    BlockReader reader(m_bytes);
    while (!reader.atEnd() && visit(readEntry(reader))) {
    }
}

std::optional<RecordImage> RecordImage::fromBytes(std::string bytes)
{
    RecordImage image;
    image.m_bytes = std::move(bytes);
    BlockReader reader(image.m_bytes);
    while (!reader.atEnd()) {
        static_cast<void>(readEntry(reader));
        ++image.m_keyCount;
    }
    return reader.isWhole() ? std::optional<RecordImage>(std::move(image)) : std::nullopt;
}

std::string RecordImage::takeBytes() { return std::exchange(m_bytes, {}); }

void RecordImage::beginKey(const Key& key)
{
    putNumber(m_bytes, key.kwh);
    putNumber(m_bytes, key.kwl);
    m_countAt = m_bytes.size();
    putNumber(m_bytes, 0);
    ++m_keyCount;
}

void RecordImage::cut(std::size_t size, std::size_t keyCount)
{
    m_bytes.resize(size);
    m_keyCount = keyCount;
}

void RecordImage::addRecord(const void* bytes, int size)
{
    Number count = 0;
    std::memcpy(&count, m_bytes.data() + m_countAt, sizeof count);
    ++count;
    std::memcpy(m_bytes.data() + m_countAt, &count, sizeof count);
    putNumber(m_bytes, size);
    m_bytes.append(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

Result DifferenceScan::begin()
{
    m_groups.emplace();
    for (const int db : {m_of, m_other}) {
        if (Result read = groups(db, *m_groups); !read) {
            return read;
        }
    }
    return {};
}

/// @param left [in, out] keys that may still be compared
Result DifferenceScan::compareGroup(int kwh, int& left)
{
    const Both both(m_of, m_other);
    if (!both.found) {
        return both.found;
    }
    DifferingKeys differing(kwh, m_image);
    bool isWhole = true;
    Result result = compareRanges(
        *both.first, *both.second, {kwh, m_next},
        [&](const Difference& difference) {
            differing.differs(difference.kwl);
            return true;
        },
        [&](const RangeReader& reader) { differing.see(reader); },
        [&](int key) {
            isWhole = --left > 0 || key == INT32_MAX;
            m_next = isWhole ? INT32_MIN : key + 1;
            return isWhole;
        });
    if (isWhole) {
        m_groups->erase(kwh);
        m_next = INT32_MIN;
    }
    return result;
}

Result DifferenceScan::advance(int keys)
{
    if (!m_groups) {
        if (Result begun = begin(); !begun) {
            return begun;
        }
    }
    while (!m_groups->empty() && keys > 0) {
        if (Result compared = compareGroup(*m_groups->begin(), keys); !compared) {
            return compared;
        }
    }
    if (!m_groups->empty() || m_isDone) {
        return {};
    }
    m_isDone = true;
    return noteFacts(m_of, m_other, m_image);
}

Result imageOfDifferences(int of, int other, RecordImage& out)
{
    DifferenceScan scan(of, other);
    Result result = scan.advance(INT32_MAX);
    out = scan.takeImage();
    return result;
}

Result imageNow(int db, const RecordImage& image, RecordImage& out)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    if (Result settled = database->transactions().settle(); !settled) {
        return settled;
    }
    for (const auto& [kwh, kwls] : keysOf(image)) {
        if (Result read = noteKeys(*database, kwh, kwls, out); !read) {
            return read;
        }
    }
    for (const auto& [name, value] : image.facts()) {
        out.addFact(name, fact(db, name));
    }
    return {};
}

Result swapImage(int db, RecordImage& image)
{
    RecordImage present;
    if (Result read = imageNow(db, image, present); !read) {
        return read;
    }
    if (Result written = writeImage(db, image); !written) {
        return written;
    }
    image = std::move(present);
    return {};
}

} // namespace mrl::cdb
