#include "exchange/project_content.h"

#include "exchange/all_keys.h"
#include "exchange/raw_records.h"

namespace mrl::exchange {

ProjectContent contentOf(int db, const std::map<std::string, std::string>& facts)
{
    ProjectContent content;
    content.facts = facts;
    for (AllKeys walk(db); walk.next();) {
        content.keys.emplace_hint(content.keys.end(), RecordKey{walk.kwh(), walk.kwl()},
                                  readRecords(db, walk.kwh(), walk.kwl()));
    }
    return content;
}

} // namespace mrl::exchange
