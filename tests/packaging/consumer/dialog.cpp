// How a module opens the dialog: dialog PROJECT, on a project with the load cases 1 and 11.
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

#include "host/mrl_widgets.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/load_cases.h"
#include "manager/control_struct.h"
#include "manager/entry_points.h"

namespace {

/// The loads of this module by load case: a load case as such is the manager's, what acts in it is not.
using Loads = std::map<int, double>;

/// Lets the user choose a load case.
/// @return its number; 0 where the user gave up
int chooseLoadCase(QWidget* parent, int db)
{
    MRL_LC_CtrlStruct control;
    control.mode = 0;                         // the load cases ...
    control.singleTab = true;                 // ... and nothing else
    control.options = 1;                      // exactly one has to be selected
    control.loadCases = {mrl_lc_current(db)}; // at first this one
    const int result = mrl_loadcase_manager(parent, db, control);
    return result == 1 ? *control.loadCases.begin() : 0;
}

/// Lets the user edit actions and load cases, and does what is this module's share of it.
/// @return what the dialog gave
int editLoadCases(QWidget* parent, int db, Loads& loads)
{
    MRL_LC_CtrlStruct control;
    control.mode = 0;                         // both tabs, the load cases in front
    control.loadCases = {mrl_lc_current(db)}; // selected at first
    control.actionOptions = 1;                // actions of the design code only
    const int result = mrl_loadcase_manager(parent, db, control);
    if (result == 1) { // accepted, and everything is stored
        for (const LCM_LoadcaseCopy& copy : control.copies) {
            loads[copy.target] = loads[copy.source] * copy.factor;
        }
    } else if (result == MRL_LC_DELETE_UNUSED) { // nothing is stored; the caller knows what is used
        std::vector<int> numbers;
        mrl_lc_list(db, numbers);
        for (const int number : numbers) {
            if (loads.count(number) == 0) {
                mrl_lc_remove(db, number);
            }
        }
    }
    return result; // 0: rejected, the project is as before
}

// From here on it is the trial of this program: somebody who uses the dialog.

constexpr int GIVE_UP = 60000; // milliseconds

/// Does something with the next dialog that opens.
void inNextDialog(const std::function<void(QWidget*)>& act)
{
    const QWidget* const before = QApplication::activeModalWidget();
    QTimer::singleShot(0, qApp, [act, before] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog != nullptr && dialog != before) {
            act(dialog);
        } else {
            inNextDialog(act);
        }
    });
}

void press(QWidget* dialog, const char* button)
{
    for (auto* each : dialog->findChildren<QPushButton*>(QLatin1String(button))) {
        if (each->isVisible()) {
            each->click();
            return;
        }
    }
}

void copyAndAccept(QWidget* dialog)
{
    inNextDialog([](QWidget* number) { press(number, "button_ok"); });
    press(dialog, "button_copy"); // of the selected load case
    press(dialog, "button_ok");
}

void deleteUnused(QWidget* dialog) { QMetaObject::invokeMethod(dialog, "slot_deleteUnusedLoadcases"); }

bool expect(bool good, const char* what)
{
    if (!good) {
        std::fprintf(stderr, "failed: %s\n", what);
    }
    return good;
}

bool tryAll(int db)
{
    QTimer::singleShot(GIVE_UP, [] { std::_Exit(4); });
    mrl_lc_set_current(db, 1);
    Loads loads{{1, 10.0}};
    inNextDialog([](QWidget* dialog) { press(dialog, "button_ok"); });
    bool good = expect(chooseLoadCase(nullptr, db) == 1, "the selected load case comes back");
    inNextDialog([](QWidget* dialog) { press(dialog, "button_cancel"); });
    good = expect(chooseLoadCase(nullptr, db) == 0, "nothing comes back after Cancel") && good;

    inNextDialog(copyAndAccept);
    good = expect(editLoadCases(nullptr, db, loads) == 1, "the dialog is accepted") && good;
    good = expect(mrl_lc_count(db) == 3 && loads.size() == 2, "the copy and its loads are there") && good;
    inNextDialog(deleteUnused);
    good =
        expect(editLoadCases(nullptr, db, loads) == MRL_LC_DELETE_UNUSED, "the caller is to delete") && good;
    return expect(mrl_lc_count(db) == 2 && !mrl_lc_exists(db, 11), "what has no loads is gone") && good;
}

} // namespace

int main(int argc, char** argv)
{
    MRL_QT_Application application(argc, argv);
    if (argc != 2) {
        return 2;
    }
    const mrl::cdb::Opened project = mrl::cdb::open(argv[1]);
    if (!project) {
        std::fprintf(stderr, "%s\n", project.result.text.c_str());
        return 3;
    }
    const bool good = tryAll(project.db);
    mrl::cdb::close(project.db);
    return good ? 0 : 1;
}
