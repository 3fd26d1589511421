#include "hostlib/data/cdb/fact_reader.h"

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

std::string FactReader::fact(const std::string& name)
{
    if (!m_mark.unchanged()) {
        m_known.clear();
        m_mark = m_store.mark();
        m_mark.take();
    }
    if (const auto known = m_known.find(name); known != m_known.end()) {
        return known->second;
    }
    std::vector<Fact> found;
    const Status status = m_store.facts(&name, found);
    if (!m_mark.compare()) {
        m_mark.drop(); // another commit came between
    }
    if (status == Status::None) {
        return m_known[name] = {};
    }
    if (status == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
        return {};
    }
    return check(found.front()) ? m_known[name] = found.front().value : std::string();
}

Result FactReader::facts(std::map<std::string, std::string>& out)
{
    out.clear();
    std::vector<Fact> found;
    if (m_store.facts(nullptr, found) == Status::Failed) {
        return m_failures.keep(m_store.failure());
    }
    for (const Fact& fact : found) {
        if (Result sound = check(fact); !sound) {
            return sound;
        }
        out[fact.name] = fact.value;
    }
    return {};
}

Result FactReader::check(const Fact& fact)
{
    if (fact.checksum == factChecksum(fact.name, fact.value)) {
        return {};
    }
    return m_failures.keep(
        failure(Code::Checksum, m_store.file(), "the fact \"" + fact.name + "\" does not fit its checksum"));
}

} // namespace mrl::cdb
