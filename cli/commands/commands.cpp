#include "cli/commands/commands.h"

namespace mrl::cli {

namespace {

template <class... Commands>
CommandGroup group(std::string name, std::string description, Commands... commands)
{
    CommandGroup result{std::move(name), std::move(description), {}};
    (result.commands.push_back(std::move(commands)), ...);
    return result;
}

} // namespace

std::vector<CommandGroup> allCommands()
{
    std::vector<CommandGroup> groups;
    groups.push_back(group("", "", newCommand(), infoCommand(), checkCommand(), verifyCommand(),
                           exportCommand(), importCommand(), diffCommand(), mergeCommand(), applyCommand()));
    groups.push_back(group("action", "List, show, create and change the actions of a project",
                           actionListCommand(), actionShowCommand(), actionCreateCommand(),
                           actionCreateAllCommand(), actionSetCommand(), actionRemoveCommand()));
    groups.push_back(group("case", "List, show, create, change and remove the load cases of a project",
                           caseListCommand(), caseShowCommand(), caseCreateCommand(), caseInitCommand(),
                           caseSetCommand(), caseRemoveCommand(), caseRenumberCommand(), caseCurrentCommand(),
                           caseSetCurrentCommand()));
    groups.push_back(group("", "", combineCommand(), envelopeCommand(), codesCommand()));
    groups.push_back(group("code", "Show, judge, compare and write design codes", codeShowCommand(),
                           codeCheckCommand(), codeDiffCommand(), codeListCommand(), codeNewCommand()));
    groups.push_back(group("", "", recodeCommand(), whyCommand()));
    groups.push_back(group("", "", keysCommand(), getCommand(), putCommand(), delCommand()));
    return groups;
}

} // namespace mrl::cli
