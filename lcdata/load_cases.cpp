#include "lcdata/load_cases.h"

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"

int mrl_lc_count(int db)
{
    int count = 0;
    for (LCM_KeyWalk walk(db, LC_KWH_CASES); walk.next();) {
        ++count;
    }
    return count;
}

int mrl_lc_list(int db, std::vector<int>& out)
{
    for (LCM_KeyWalk walk(db, LC_KWH_CASES); walk.next();) {
        out.push_back(walk.kwl());
    }
    return 1;
}

int mrl_lc_getmin(int db)
{
    LCM_KeyWalk walk(db, LC_KWH_CASES);
    return walk.next() ? walk.kwl() : 0;
}

int mrl_lc_getmax(int db)
{
    int kwh = LC_KWH_CASES + 1;
    int kwl = 0;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    return kwh == LC_KWH_CASES ? kwl : -1;
}

bool mrl_lc_exists(int db, int lc)
{
    tagCDB_LC_CTRL rec;
    return mrl_lc_get(db, lc, rec);
}

bool mrl_lc_get(int db, int lc, tagCDB_LC_CTRL& rec)
{
    const LCM_KeyGuard key(db, LC_KWH_CASES, lc);
    int length = sizeof rec;
    if (mrl_cdb_get(db, LC_KWH_CASES, lc, &rec, &length, 0) < CD_END) {
        return true;
    }
    rec = {};
    return false;
}

bool mrl_lc_put(int db, int lc, tagCDB_LC_CTRL& rec)
{
    const LCM_KeyGuard key(db, LC_KWH_CASES, lc);
    const int length = sizeof rec;
    return mrl_cdb_put(db, LC_KWH_CASES, lc, &rec, &length, 0) < CD_END;
}

bool mrl_lc_remove(int db, int lc)
{
    const LCM_KeyGuard key(db, LC_KWH_CASES, lc);
    const int length = 0;
    return mrl_cdb_put(db, LC_KWH_CASES, lc, &length, &length, 0) < CD_END;
}

bool mrl_lc_hasdeadloadfactor(const tagCDB_LC_CTRL& rec)
{
    return rec.dlx != 0.0f || rec.dly != 0.0f || rec.dlz != 0.0f;
}

bool mrl_lc_hasdeadloadfactor(int db, int lc)
{
    tagCDB_LC_CTRL rec;
    return mrl_lc_get(db, lc, rec) && mrl_lc_hasdeadloadfactor(rec);
}

QString mrl_lc_get_name(const tagCDB_LC_CTRL& rec) { return lcm_title_text(rec.title); }

QString mrl_lc_get_name(int db, int lc)
{
    tagCDB_LC_CTRL rec;
    mrl_lc_get(db, lc, rec); // zero, and so without a title, when there is none
    return mrl_lc_get_name(rec);
}
