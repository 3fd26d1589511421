#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

struct Transaction::Private
{
    int db;
    std::size_t level = 0; // 0: ended, or never begun

    /// The database while this transaction is still its own.
    Database* database() const
    {
        auto* found = Registry::instance().find(db);
        return found != nullptr && level > 0 && found->transactions().depth() >= level ? found : nullptr;
    }
    /// Ends what was begun inside this one and not ended: it cannot outlive it.
    static void endInner(Database& database, std::size_t level)
    {
        while (database.transactions().depth() > level) {
            database.transactions().rollback();
        }
    }
};

Transaction::Transaction(int db, Pausable pausable) : d(new Private{db})
{
    if (auto* database = Registry::instance().find(db)) {
        static_cast<void>(database->transactions().begin(pausable)); // state() tells
        d->level = database->transactions().depth();
    }
}

Transaction::~Transaction() { rollback(); }

Result Transaction::state() const
{
    if (const auto* database = d->database()) {
        return database->transactions().state();
    }
    return {Code::NoTransaction, "database " + std::to_string(d->db) + ": the transaction has ended"};
}

Result Transaction::commit()
{
    auto* database = d->database();
    if (database == nullptr) {
        return state();
    }
    Private::endInner(*database, d->level);
    d->level = 0;
    return database->transactions().commit();
}

void Transaction::rollback()
{
    if (auto* database = d->database()) {
        Private::endInner(*database, d->level);
        database->transactions().rollback();
    }
    d->level = 0;
}

WriteLockPause::WriteLockPause() { Registry::instance().pauseAll(); }

WriteLockPause::~WriteLockPause() { Registry::instance().resumeAll(); }

} // namespace mrl::cdb
