#include <QString>
#include <cstring>
#include <set>
#include <string>

#include "host/mrl_lib.h"
#include "hostlib/data/settings/settings.h"
#include "lcdata/values/packed_text.h"

namespace {

struct CatalogueEntry
{
    const char* key;
    const char* english;
    const char* german;
};

constexpr CatalogueEntry CATALOGUE[] = {
    {"40X", "Reduction factor ξ", "Reduktionsbeiwert ξ"},
    {"40Z", "Consequence factor KFI", "Konsequenzfaktor KFI"},
};

/// A copy that lives as long as the process, since the caller keeps the pointer.
const char* interned(const char* key)
{
    static std::set<std::string> keys;
    return keys.insert(key).first->c_str();
}

} // namespace

void mrl_lib_ps2qs(const unsigned* text, QString& out) { out = lcm_packed_text(text, LC_TITLE_WORDS); }

const char* mrl_lib_convtext(int /*one*/, int language, const char* key)
{
    for (const CatalogueEntry& entry : CATALOGUE) {
        if (std::strcmp(entry.key, key) == 0) {
            return language == mrl::settings::German ? entry.german : entry.english;
        }
    }
    return interned(key);
}
