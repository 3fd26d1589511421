#pragma once

#include <memory>
#include <vector>

#include "cli/commands/command.h"

namespace mrl::cli {

/// Every command of the program, in the order of its help.
std::vector<CommandGroup> allCommands();

// One maker a command; each command's class lives in the file of the same name.
std::unique_ptr<Command> codesCommand();
std::unique_ptr<Command> codeShowCommand();
std::unique_ptr<Command> codeCheckCommand();
std::unique_ptr<Command> codeDiffCommand();
std::unique_ptr<Command> codeListCommand();
std::unique_ptr<Command> codeNewCommand();
std::unique_ptr<Command> newCommand();
std::unique_ptr<Command> infoCommand();
std::unique_ptr<Command> recodeCommand();
std::unique_ptr<Command> whyCommand();
std::unique_ptr<Command> actionListCommand();
std::unique_ptr<Command> actionShowCommand();
std::unique_ptr<Command> actionCreateCommand();
std::unique_ptr<Command> actionCreateAllCommand();
std::unique_ptr<Command> actionSetCommand();
std::unique_ptr<Command> caseListCommand();
std::unique_ptr<Command> caseShowCommand();
std::unique_ptr<Command> caseCreateCommand();
std::unique_ptr<Command> caseInitCommand();
std::unique_ptr<Command> caseSetCommand();
std::unique_ptr<Command> caseRemoveCommand();
std::unique_ptr<Command> caseCurrentCommand();
std::unique_ptr<Command> caseSetCurrentCommand();
std::unique_ptr<Command> getCommand();
std::unique_ptr<Command> putCommand();
std::unique_ptr<Command> delCommand();
std::unique_ptr<Command> keysCommand();
std::unique_ptr<Command> checkCommand();
std::unique_ptr<Command> verifyCommand();
std::unique_ptr<Command> combineCommand();
std::unique_ptr<Command> envelopeCommand();
std::unique_ptr<Command> exportCommand();
std::unique_ptr<Command> importCommand();
std::unique_ptr<Command> diffCommand();
std::unique_ptr<Command> mergeCommand();
std::unique_ptr<Command> applyCommand();
std::unique_ptr<Command> caseRenumberCommand();
std::unique_ptr<Command> actionRemoveCommand();

} // namespace mrl::cli
