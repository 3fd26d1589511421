#include "workbench/exchange/import_proposal.h"

#include <QCoreApplication>
#include <QFile>

#include "exchange/apply_plan.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "hostlib/data/cdb/project.h"

namespace mrl::workbench {

namespace {

constexpr int PROGRESS_STEP = 500; ///< rows

/// @return empty when the file was read
QString readBytes(const QString& name, QByteArray& bytes)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    if (file.size() > exchange::MAX_FILE_BYTES) {
        return QCoreApplication::translate("Workbench", "The file is larger than 256 MiB.");
    }
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

} // namespace

ImportProposal proposeImport(int db, const ImportWish& wish)
{
    ImportProposal proposal;
    QByteArray bytes;
    proposal.error = readBytes(wish.file, bytes);
    if (!proposal.error.isEmpty()) {
        return proposal;
    }
    const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const exchange::Format* found =
        wish.format != nullptr ? wish.format : exchange::formatOfFile(wish.file.toStdString(), view);
    proposal.format = found != nullptr ? found : exchange::formats().front().get();
    exchange::TableCollector collector;
    const auto error = proposal.format->read(view, wish.told, collector);
    proposal.read = std::move(collector.tables());
    if (error) {
        proposal.error = error->message.translated();
        return proposal;
    }
    mrl_cdb_use(db, 0);
    mrl_dlib_ini_switch(db);
    proposal.state = exchange::stateOf(db);
    proposal.plan = exchange::planOf(proposal.state, proposal.read.tables, wish.options);
    return proposal;
}

ImportOutcome applyImport(int db, const ImportProposal& proposal, const ImportProgress& progress)
{
    cdb::Transaction transaction(db); // rolls back unless it is committed
    int done = 0;
    for (const exchange::PlannedRow& row : proposal.plan.rows) {
        if (done % PROGRESS_STEP == 0 && !progress(done)) {
            return ImportOutcome::Cancelled;
        }
        if (!exchange::apply(row, proposal.state, db)) {
            return ImportOutcome::Failed;
        }
        ++done;
    }
    if (!progress(done)) {
        return ImportOutcome::Cancelled;
    }
    return transaction.commit() ? ImportOutcome::Done : ImportOutcome::Failed;
}

} // namespace mrl::workbench
