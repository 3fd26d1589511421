#include "history/command_name.h"

#include "history/history.h"

namespace {

QString baseName(LCM_Command command)
{
    switch (command) {
    case LCM_Command::Type:
        return LCM_History::tr("Input");
    case LCM_Command::Paste:
        return LCM_History::tr("Paste");
    case LCM_Command::FillDown:
        return LCM_History::tr("Fill down");
    case LCM_Command::NewAction:
        return LCM_History::tr("New action");
    case LCM_Command::AddAllActions:
        return LCM_History::tr("Add all actions");
    case LCM_Command::DeleteActions:
        return LCM_History::tr("Delete actions");
    case LCM_Command::ReinitialiseActions:
        return LCM_History::tr("Reinitialise actions");
    case LCM_Command::NewLoadCase:
        return LCM_History::tr("New load case");
    case LCM_Command::CopyLoadCases:
        return LCM_History::tr("Copy load cases");
    case LCM_Command::DeleteLoadCases:
        return LCM_History::tr("Delete load cases");
    case LCM_Command::CheckAgain:
        return LCM_History::tr("Check again");
    case LCM_Command::Other:
        break;
    }
    return LCM_History::tr("Change");
}

} // namespace

QString lcm_command_name(LCM_Command command, const QString& column, int rows)
{
    const QString name =
        column.isEmpty() ? baseName(command) : LCM_History::tr("%1: %2").arg(baseName(command), column);
    return rows < 2 ? name : LCM_History::tr("%1 (%2 rows)").arg(name).arg(rows);
}
