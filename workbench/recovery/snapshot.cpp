#include "workbench/recovery/snapshot.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QSaveFile>

#include <cstring>
#include <set>

#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::workbench {

namespace {

const char MAGIC[] = "mrl-workbench snapshot 1\n";
constexpr auto SUM = QCryptographicHash::Sha256;
constexpr int SUM_SIZE = 32;

QByteArray bytesOf(const std::string& text) { return QByteArray(text.data(), static_cast<int>(text.size())); }

template <class Record>
void putRows(QDataStream& out, const std::vector<std::pair<int, Record>>& rows)
{
    out << static_cast<quint32>(rows.size());
    for (const auto& [key, record] : rows) {
        out << key;
        out.writeRawData(reinterpret_cast<const char*>(&record), sizeof record);
    }
}

template <class Record>
void takeRows(QDataStream& in, std::vector<std::pair<int, Record>>& rows)
{
    quint32 count = 0;
    in >> count;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        rows.emplace_back();
        in >> rows.back().first;
        if (in.readRawData(reinterpret_cast<char*>(&rows.back().second), sizeof(Record)) != sizeof(Record)) {
            in.setStatus(QDataStream::ReadPastEnd);
        }
    }
}

QByteArray contentOf(const Snapshot& snapshot)
{
    QByteArray content;
    QDataStream out(&content, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << snapshot.project << snapshot.file.project << snapshot.file.number << snapshot.when;
    out << bytesOf(snapshot.document.bytes()) << static_cast<quint32>(snapshot.document.facts().size());
    for (const auto& [name, value] : snapshot.document.facts()) {
        out << bytesOf(name) << bytesOf(value);
    }
    const MRL_LC_OpenRows& rows = snapshot.rows;
    out << static_cast<qint64>(rows.state) << rows.hasActions << rows.hasLoadCases;
    putRows(out, rows.actions);
    putRows(out, rows.loadCases);
    return content;
}

std::optional<Snapshot> snapshotOf(const QByteArray& content)
{
    QDataStream in(content);
    in.setVersion(QDataStream::Qt_5_15);
    Snapshot snapshot;
    QByteArray records;
    quint32 facts = 0;
    in >> snapshot.project >> snapshot.file.project >> snapshot.file.number >> snapshot.when;
    in >> records >> facts;
    auto image = cdb::RecordImage::fromBytes(records.toStdString());
    if (!image) {
        return std::nullopt;
    }
    snapshot.document = std::move(*image);
    for (quint32 i = 0; i < facts && in.status() == QDataStream::Ok; ++i) {
        QByteArray name;
        QByteArray value;
        in >> name >> value;
        snapshot.document.addFact(name.toStdString(), value.toStdString());
    }
    qint64 state = 0;
    in >> state >> snapshot.rows.hasActions >> snapshot.rows.hasLoadCases;
    snapshot.rows.state = state;
    takeRows(in, snapshot.rows.actions);
    takeRows(in, snapshot.rows.loadCases);
    return in.status() == QDataStream::Ok ? std::optional<Snapshot>(std::move(snapshot)) : std::nullopt;
}

/// Puts a record unless it stands there as the last one of its key, which counts.
template <class Record, class Stored>
bool putRecord(int db, int kwh, int kwl, const Record& record, const std::optional<Stored>& there)
{
    // What is stored counts, bit for bit. NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
    if (there && std::memcmp(&there->record, &record, sizeof record) == 0) {
        return true;
    }
    const int length = sizeof record;
    const bool put = mrl_cdb_put(db, kwh, kwl, &record, &length, 0) == CD_OK;
    mrl_cdb_free_ex(db, kwh, kwl);
    return put;
}

bool applyLoadCases(int db, const MRL_LC_OpenRows& rows)
{
    std::set<int> numbers;
    for (const auto& row : rows.loadCases) {
        numbers.insert(row.first);
    }
    bool fine = true;
    for (LCM_LoadCaseWalk walk(db); fine && walk.next();) {
        const LCM_StoredLoadCase& there = walk.current();
        if (there.isOwn() && numbers.count(there.number) == 0) {
            fine = mrl_cdb_del(db, LC_KWH_CASES, there.number) == CD_OK;
        }
    }
    for (const auto& [number, record] : rows.loadCases) {
        fine = fine && putRecord(db, LC_KWH_CASES, number, record, lcm_stored_load_case(db, number));
    }
    return fine;
}

bool applyActions(int db, const MRL_LC_OpenRows& rows)
{
    std::set<int> codes;
    for (const auto& row : rows.actions) {
        codes.insert(row.first);
    }
    bool fine = true;
    for (const LCM_StoredAction& there : lcm_stored_actions(db)) {
        if (fine && codes.count(there.code) == 0 && !lcm_is_reserved_action(there.code)) {
            fine = mrl_cdb_del(db, LC_KWH_ACTIONS, there.code) == CD_OK;
        }
    }
    for (const auto& [code, record] : rows.actions) {
        fine = fine && putRecord(db, LC_KWH_ACTIONS, code, record, lcm_stored_action(db, code));
    }
    return fine;
}

} // namespace

FileState fileStateOf(int db, const QString& path)
{
    if (const auto version = cdb::versionOf(db)) {
        return {version->project, version->number};
    }
    return {0, QFileInfo(path).lastModified().toMSecsSinceEpoch()};
}

bool writeSnapshot(const QString& file, const Snapshot& snapshot)
{
    const QByteArray content = contentOf(snapshot);
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) {
        return false;
    }
    out.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    out.write(MAGIC);
    out.write(QCryptographicHash::hash(content, SUM));
    out.write(content);
    return out.commit();
}

std::optional<Snapshot> readSnapshot(const QString& file)
{
    QFile in(file);
    constexpr int MAGIC_SIZE = sizeof MAGIC - 1;
    if (!in.open(QIODevice::ReadOnly) || in.read(MAGIC_SIZE) != MAGIC) {
        return std::nullopt;
    }
    const QByteArray sum = in.read(SUM_SIZE);
    const QByteArray content = in.readAll();
    return QCryptographicHash::hash(content, SUM) == sum ? snapshotOf(content) : std::nullopt;
}

cdb::Result applySnapshot(int db, const Snapshot& snapshot)
{
    cdb::Transaction transaction(db);
    cdb::RecordImage document = snapshot.document;
    if (auto swapped = cdb::swapImage(db, document); !swapped) {
        return swapped;
    }
    const MRL_LC_OpenRows& rows = snapshot.rows;
    const bool fine =
        (!rows.hasActions || applyActions(db, rows)) && (!rows.hasLoadCases || applyLoadCases(db, rows));
    if (!fine) {
        const cdb::Result failed = transaction.state();
        return failed ? cdb::Result{cdb::Code::InputOutput, "a record can't be written"} : failed;
    }
    return transaction.commit();
}

} // namespace mrl::workbench
