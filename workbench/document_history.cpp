#include "workbench/document_history.h"

#include <QFile>

#include <algorithm>
#include <tuple>

#include "hostlib/ui/framework/failure_text.h"
#include "workbench/state_folder.h"

namespace mrl::workbench {

namespace {

/// Closes the copy that a command is compared with.
struct Copy
{
    explicit Copy(int of) : opened(cdb::copyOf(of)) {}
    ~Copy() { cdb::close(opened.db); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    cdb::Opened opened;
};

std::vector<std::string> factRecords(const std::string& value)
{
    return value.empty() ? std::vector<std::string>() : std::vector<std::string>{value};
}

std::vector<DocumentHistory::Change> changesIn(const cdb::RecordImage& image)
{
    std::vector<DocumentHistory::Change> changes;
    changes.reserve(image.keyCount() + image.facts().size());
    image.forEach([&](const cdb::RecordImage::Entry& entry) {
        changes.push_back({entry.key, QString(), entry.records, {}});
        return true;
    });
    for (const auto& [name, value] : image.facts()) {
        changes.push_back({{}, QString::fromStdString(name), factRecords(value), {}});
    }
    return changes;
}

bool isBefore(const DocumentHistory::Change& a, const DocumentHistory::Change& b)
{
    return std::tie(a.fact, a.key.kwh, a.key.kwl) < std::tie(b.fact, b.key.kwh, b.key.kwl);
}

/// Takes what an image holds for the end of those changes that it tells of. @param changes in order
void takeAfter(const cdb::RecordImage& image, std::vector<DocumentHistory::Change>& changes)
{
    for (DocumentHistory::Change& found : changesIn(image)) {
        const auto change = std::lower_bound(changes.begin(), changes.end(), found, isBefore);
        if (change != changes.end() && !isBefore(found, *change)) {
            change->after = std::move(found.before);
        }
    }
}

} // namespace

DocumentHistory::DocumentHistory(QObject* parent)
    : QObject(parent), m_images(QFile::encodeName(stateFolder()).toStdString())
{
}

DocumentHistory::~DocumentHistory() = default;

void DocumentHistory::begin(int db)
{
    m_db = db;
    m_steps.clear();
    m_done = 0;
    m_images.cut(0);
    noteVersion();
    emit changed();
}

void DocumentHistory::noteVersion() { m_version = m_db < 0 ? std::nullopt : cdb::versionOf(m_db); }

/// What was changed by nobody's step can't be told from what the steps left, so they can't be taken back any more.
void DocumentHistory::forgetIfChangedElsewhere()
{
    if (m_steps.empty() || (m_version && cdb::versionOf(m_db) == m_version)) {
        return;
    }
    begin(m_db);
    emit dropped(
        tr("The project was changed outside of its history; the earlier steps can't be undone any more."));
}

void DocumentHistory::record(const QString& name, const std::function<void()>& command)
{
    forgetIfChangedElsewhere();
    const Copy before(m_db);
    const auto version = cdb::versionOf(m_db);
    command();
    if (version && cdb::versionOf(m_db) == version) {
        return;
    }
    cdb::RecordImage image;
    const cdb::Result compared =
        before.opened ? cdb::imageOfDifferences(before.opened.db, m_db, image) : before.opened.result;
    if (!compared) {
        begin(m_db);
        emit dropped(ui::failureText(compared));
        return;
    }
    if (!image.isEmpty()) {
        keep(name, std::move(image));
        emit documentChanged();
    }
}

void DocumentHistory::keep(const QString& name, cdb::RecordImage image)
{
    const auto done = static_cast<std::size_t>(m_done);
    m_images.cut(done);
    m_steps.resize(done);
    m_steps.push_back({name, QDateTime::currentDateTime(), image.keyCount() + image.facts().size(), {}});
    ++m_done;
    noteVersion();
    const cdb::Result kept = m_images.add(std::move(image));
    bool lost = false;
    while (!kept && m_images.inMemory() > cdb::ImageLog::MOST_IN_MEMORY && m_steps.size() > 1) {
        m_images.dropFirst();
        m_steps.erase(m_steps.begin());
        --m_done;
        lost = true;
    }
    emit changed();
    if (lost) {
        emit dropped(tr("The oldest steps can't be undone any more: %1").arg(ui::failureText(kept)));
    }
}

QString DocumentHistory::goTo(int done)
{
    if (done < 0 || done > static_cast<int>(m_steps.size()) || done == m_done) {
        return QString();
    }
    forgetIfChangedElsewhere();
    cdb::Result swapped;
    while (swapped && m_done != done && !m_steps.empty()) {
        const bool back = done < m_done;
        swapped = m_images.swap(static_cast<std::size_t>(back ? m_done - 1 : m_done), m_db);
        m_done += swapped ? (back ? -1 : 1) : 0;
    }
    noteVersion();
    emit changed();
    emit documentChanged();
    return swapped ? QString() : ui::failureText(swapped);
}

std::vector<DocumentHistory::Change> DocumentHistory::changesOf(int step)
{
    cdb::RecordImage image;
    if (step < 0 || step >= m_done || !m_images.get(static_cast<std::size_t>(step), image)) {
        return {};
    }
    cdb::RecordImage after;
    static_cast<void>(cdb::imageNow(m_db, image, after));
    std::vector<Change> changes = changesOf(image, after);
    // What a step left is what the next one that touches it found.
    for (int later = m_done - 1; later > step; --later) {
        if (m_images.get(static_cast<std::size_t>(later), after)) {
            takeAfter(after, changes);
        }
    }
    return changes;
}

std::vector<DocumentHistory::Change> DocumentHistory::changesOf(const cdb::RecordImage& before,
                                                                const cdb::RecordImage& after)
{
    std::vector<Change> changes = changesIn(before);
    takeAfter(after, changes);
    return changes;
}

void DocumentHistory::noteEdited(Keys edited)
{
    if (m_done > 0) {
        m_steps[static_cast<std::size_t>(m_done - 1)].edited = std::move(edited);
    }
}

} // namespace mrl::workbench
