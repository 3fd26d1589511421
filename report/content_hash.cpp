#include "report/content_hash.h"

#include <QCryptographicHash>

#include "exchange/format.h"
#include "hostlib/data/cdb/project.h"

namespace mrl::report {

QString contentHash(int db)
{
    exchange::Source source;
    source.db = db;
    source.sheets = {exchange::Sheet::Actions, exchange::Sheet::LoadCases};
    source.whole = true;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool isRead = static_cast<bool>(cdb::facts(db, source.facts));
    const auto error = exchange::formatOfName("json")->write(source, {}, [&](std::string_view bytes) {
        hash.addData(bytes.data(), static_cast<int>(bytes.size()));
        return true;
    });
    return isRead && !error ? QString::fromLatin1(hash.result().toHex()) : QString();
}

} // namespace mrl::report
