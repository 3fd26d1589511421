// The smallest program of another module: makes a project and a load case in it, and reads it back.
#include <cstdio>

#include "hostlib/data/cdb/project.h"
#include "lcdata/load_cases.h"
#include "manager/entry_points.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    const auto project = mrl::cdb::create(argv[1]);
    if (!project.result) {
        std::fprintf(stderr, "%s\n", project.result.text.c_str());
        return 3;
    }
    const int imperfection = 70;
    const bool created = mrl_lc_create_load_case(project.db, 7, imperfection, QStringLiteral("Out of plumb"));
    tagCDB_LC_CTRL record{};
    const bool read =
        mrl_lc_get(project.db, 7, record) && mrl_lc_get_name(record) == QStringLiteral("Out of plumb");
    const bool none = MRL_H_PluginFactory(QStringLiteral("nobody")) == nullptr;
    return created && read && none && mrl_lc_count(project.db) == 1 ? 0 : 1;
}
