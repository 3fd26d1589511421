#include "cli/content_io.h"

#include "cli/failure.h"
#include "cli/key_text.h"
#include "exchange/raw_records.h"
#include "hostlib/data/cdb/record_image.h"

namespace mrl::cli {

namespace {

exchange::ProjectContent contentOf(const cdb::RecordImage& image)
{
    exchange::ProjectContent content;
    content.facts = image.facts();
    image.forEach([&](const cdb::RecordImage::Entry& entry) {
        if (!entry.records.empty()) { // a key that exists on the other side alone
            content.keys.emplace_hint(content.keys.end(), exchange::RecordKey{entry.key.kwh, entry.key.kwl},
                                      entry.records);
        }
        return true;
    });
    return content;
}

} // namespace

exchange::ProjectContent readContent(const std::string& file)
{
    const Project project = Project::openForReading(file);
    exchange::ProjectContent content = exchange::contentOf(project.db(), project.facts());
    project.throwOnError();
    return content;
}

std::pair<exchange::ProjectContent, exchange::ProjectContent> differingContent(const Project& a,
                                                                               const Project& b)
{
    cdb::RecordImage before;
    cdb::RecordImage after;
    cdb::Result read = cdb::imageOfDifferences(a.db(), b.db(), before);
    if (read) {
        read = cdb::imageNow(b.db(), before, after);
    }
    if (!read) {
        throw Failure{ExitCode::File, read.text};
    }
    return {contentOf(before), contentOf(after)};
}

void writeKey(const exchange::RecordKey& key, const exchange::KeyRecords& records, const Project& project)
{
    bool fine = true;
    if (records.empty()) {
        fine = mrl_cdb_del(project.db(), key.kwh, key.kwl) == 0;
    }
    for (std::size_t i = 0; i < records.size() && fine; ++i) {
        const std::string& bytes = records[i];
        fine = i == 0 ? exchange::putRecord(project.db(), key.kwh, key.kwl, bytes)
                      : static_cast<bool>(cdb::append(project.db(), key.kwh, key.kwl, bytes.data(),
                                                      static_cast<int>(bytes.size())));
    }
    if (!fine) {
        project.refuse("the key " + keyText(key.kwh, key.kwl) + " could not be written");
    }
}

void writeContent(const exchange::ProjectContent& content, const Project& project)
{
    for (const auto& [name, value] : content.facts) {
        if (!cdb::setFact(project.db(), name, value)) {
            project.refuse("the fact " + name + " could not be written");
        }
    }
    for (const auto& [key, records] : content.keys) {
        writeKey(key, records, project);
    }
    project.throwOnError();
}

} // namespace mrl::cli
