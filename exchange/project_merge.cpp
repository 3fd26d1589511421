#include "exchange/project_merge.h"

#include <set>

#include "exchange/project_diff.h"
#include "exchange/raw_records.h"
#include "lcdata/values/records.h"

namespace mrl::exchange {

namespace {

constexpr std::size_t WORD = 4;
constexpr std::size_t TITLE_BYTES = LC_TITLE_WORDS * WORD;

/// The sizes of the fields of a record one behind the other: words, and the title whole.
std::size_t fieldSize(std::size_t at, std::size_t size)
{
    return at + TITLE_BYTES == size ? TITLE_BYTES : WORD;
}

const KeyRecords& recordsAt(const ProjectContent& content, const RecordKey& key)
{
    static const KeyRecords NONE;
    const auto found = content.keys.find(key);
    return found == content.keys.end() ? NONE : found->second;
}

/// The three states of one thing, and what comes of them.
template <class Value>
struct ThreeWay
{
    const Value& base;
    const Value& ours;
    const Value& theirs;

    bool isClear() const { return ours == theirs || ours == base || theirs == base; }
    const Value& merged(Side winner) const
    {
        if (isClear()) {
            return ours == base ? theirs : ours;
        }
        return winner == Side::Ours ? ours : theirs;
    }
};

class Merger
{
  public:
    Merger(const ProjectContent& base, const ProjectContent& ours, const ProjectContent& theirs, Side winner)
        : m_base(base), m_ours(ours), m_theirs(theirs), m_winner(winner)
    {
    }

    Merge run()
    {
        mergeFacts();
        std::set<RecordKey> keys;
        for (const ProjectContent* side : {&m_base, &m_ours, &m_theirs}) {
            for (const auto& entry : side->keys) {
                keys.insert(keys.end(), entry.first);
            }
        }
        for (const RecordKey& key : keys) {
            const ThreeWay<KeyRecords> records{recordsAt(m_base, key), recordsAt(m_ours, key),
                                               recordsAt(m_theirs, key)};
            KeyRecords result = records.isClear() ? records.merged(m_winner) : mergeKey(key, records);
            if (!result.empty()) {
                m_merge.content.keys.emplace_hint(m_merge.content.keys.end(), key, std::move(result));
            }
        }
        return std::move(m_merge);
    }

  private:
    void mergeFacts()
    {
        std::set<std::string> names;
        for (const ProjectContent* side : {&m_base, &m_ours, &m_theirs}) {
            for (const auto& entry : side->facts) {
                names.insert(entry.first);
            }
        }
        const auto valueAt = [](const ProjectContent& content, const std::string& name) {
            const auto found = content.facts.find(name);
            return found == content.facts.end() ? std::string() : found->second;
        };
        for (const std::string& name : names) {
            const std::string base = valueAt(m_base, name);
            const std::string ours = valueAt(m_ours, name);
            const std::string theirs = valueAt(m_theirs, name);
            const ThreeWay<std::string> fact{base, ours, theirs};
            if (!fact.isClear()) {
                m_merge.conflicts.push_back({"fact", name, "value", base, ours, theirs});
            }
            if (!fact.merged(m_winner).empty()) {
                m_merge.content.facts[name] = fact.merged(m_winner);
            }
        }
    }
    /// A key that both sides changed differently.
    KeyRecords mergeKey(const RecordKey& key, const ThreeWay<KeyRecords>& records)
    {
        if (!haveSameFields(key, records)) {
            addConflict(key, records, isRemoved(records) ? "presence" : "bytes");
            return records.merged(m_winner);
        }
        std::string merged = records.ours.front();
        bool isClear = true;
        for (std::size_t at = 0; at < merged.size(); at += fieldSize(at, merged.size())) {
            const std::size_t size = fieldSize(at, merged.size());
            const std::string base = records.base.front().substr(at, size);
            const std::string ours = records.ours.front().substr(at, size);
            const std::string theirs = records.theirs.front().substr(at, size);
            const ThreeWay<std::string> field{base, ours, theirs};
            isClear = isClear && field.isClear();
            merged.replace(at, size, field.merged(m_winner));
        }
        if (!isClear) {
            addCellConflicts(key, records);
        }
        return {merged};
    }
    static bool isRemoved(const ThreeWay<KeyRecords>& records)
    {
        return records.ours.empty() || records.theirs.empty();
    }
    /// Whether all three hold one action or one load case of this system.
    static bool haveSameFields(const RecordKey& key, const ThreeWay<KeyRecords>& records)
    {
        const auto isOne = [&](const KeyRecords& side) {
            const std::string subject = subjectOf(key, side).subject;
            return side.size() == 1 && subject != "record" &&
                   side.front().size() ==
                       (subject == "action" ? sizeof(tagCDB_LC_ACT) : sizeof(tagCDB_LC_CTRL));
        };
        return isOne(records.base) && isOne(records.ours) && isOne(records.theirs);
    }
    void addConflict(const RecordKey& key, const ThreeWay<KeyRecords>& records, const std::string& value)
    {
        const KeySubject subject = subjectOf(key, records.ours.empty() ? records.theirs : records.ours);
        const auto text = [&](const KeyRecords& side) {
            std::string all;
            for (const auto& [name, cell] : valuesOf(key, side)) {
                all += cell.empty() ? "" : (all.empty() ? "" : ", ") + name + " " + cell;
            }
            return side.empty() ? "removed" : all;
        };
        m_merge.conflicts.push_back({subject.subject, subject.name, value, text(records.base),
                                     text(records.ours), text(records.theirs)});
    }
    /// The cells that both changed differently; the bytes where no cell tells.
    void addCellConflicts(const RecordKey& key, const ThreeWay<KeyRecords>& records)
    {
        const auto base = valuesOf(key, records.base);
        const auto ours = valuesOf(key, records.ours);
        const auto theirs = valuesOf(key, records.theirs);
        const KeySubject subject = subjectOf(key, records.ours);
        bool found = false;
        for (std::size_t i = 0; i < base.size(); ++i) {
            const ThreeWay<std::string> cell{base[i].second, ours[i].second, theirs[i].second};
            if (!cell.isClear()) {
                m_merge.conflicts.push_back(
                    {subject.subject, subject.name, base[i].first, cell.base, cell.ours, cell.theirs});
                found = true;
            }
        }
        if (!found) {
            m_merge.conflicts.push_back({subject.subject, subject.name, "bytes", toHex(records.base.front()),
                                         toHex(records.ours.front()), toHex(records.theirs.front())});
        }
    }

    const ProjectContent& m_base;
    const ProjectContent& m_ours;
    const ProjectContent& m_theirs;
    Side m_winner;
    Merge m_merge;
};

} // namespace

Merge mergeOf(const ProjectContent& base, const ProjectContent& ours, const ProjectContent& theirs,
              Side winner)
{
    return Merger(base, ours, theirs, winner).run();
}

} // namespace mrl::exchange
