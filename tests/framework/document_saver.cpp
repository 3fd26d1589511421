// Saves a document without end, to be killed in the middle of it: document_saver FILE
// The two states are told apart by every load case: all hold the same number, and in the even ones the second
// half of them is not there.
#include <cstdio>

#include "host/mrl_cdb.h"
#include "host/mrl_framework.h"
#include "hostlib/ui/framework/project_document.h"

namespace {

constexpr int CASES = 12;
constexpr int COUNT = 400;

void makeState(int db, int state)
{
    const int length = sizeof state;
    const int last = state % 2 ? COUNT : COUNT / 2;
    for (int lc = 1; lc <= COUNT; ++lc) {
        if (lc <= last) {
            mrl_cdb_put(db, CASES, lc, &state, &length, 0);
        } else {
            mrl_cdb_del(db, CASES, lc);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    MRL_H_ShadowDatabase document;
    if (!document.host().open(QString::fromLocal8Bit(argv[1]))) {
        return 3;
    }
    document.addSaveKwh(CASES);
    for (int state = 1;; ++state) {
        makeState(document.index(), state);
        if (document.host().save().outcome != mrl::ui::SaveOutcome::Saved) {
            return 4;
        }
        std::printf("%d\n", state);
        std::fflush(stdout);
    }
}
