#include "cli/completion.h"

#include <CLI/CLI.hpp>
#include <QStringList>
#include <algorithm>
#include <functional>
#include <map>

#include "cli/exchange_options.h"
#include "cli/failure.h"
#include "cli/project_records.h"
#include "cli/words.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

namespace {

using Words = std::vector<std::string>;

/// A command line as far as it is typed.
struct Typed
{
    CLI::App* command = nullptr;         ///< the innermost one
    const CLI::Option* option = nullptr; ///< the last word is its value
    Words positionals;                   ///< of the command, without the last word
    std::string last;
};

bool isOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

CLI::App* subcommandOf(CLI::App& command, const std::string& word)
{
    const auto all = command.get_subcommands({});
    const auto found =
        std::find_if(all.begin(), all.end(), [&](auto* each) { return each->get_name() == word; });
    return found != all.end() ? *found : nullptr;
}

Typed read(CLI::App& program, const Words& words)
{
    Typed typed{&program, nullptr, {}, words.back()};
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        if (typed.option != nullptr) {
            typed.option = nullptr;
        } else if (isOption(words[i])) {
            const auto* option = typed.command->get_option_no_throw(words[i]);
            typed.option = option != nullptr && option->get_items_expected_max() > 0 ? option : nullptr;
        } else if (CLI::App* const sub = subcommandOf(*typed.command, words[i])) {
            typed.command = sub;
        } else {
            typed.positionals.push_back(words[i]);
        }
    }
    return typed;
}

/// The words of an option that takes one of some words; its check names them in braces.
Words wordsOfCheck(const CLI::Option& option)
{
    const QString type = QString::fromStdString(option.get_type_name());
    const auto from = type.indexOf(QLatin1Char('{'));
    const auto to = type.indexOf(QLatin1Char('}'));
    Words words;
    if (from >= 0 && to > from) {
        for (const QString& word : type.mid(from + 1, to - from - 1).split(QLatin1Char(','))) {
            words.push_back(word.toStdString());
        }
    }
    return words;
}

Words codes()
{
    Words names;
    for (const designcode::Found& each : designcode::list()) {
        names.push_back(each.name);
    }
    return names;
}

/// What a list of a project holds; empty where it can't be read.
Words ofProject(const Typed& typed, const std::function<Words(int db)>& list)
{
    if (typed.positionals.empty()) {
        return {};
    }
    try {
        return list(Project::openForReading(typed.positionals.front()).db());
    } catch (const Failure&) {
        return {};
    }
}

Words actions(int db)
{
    Words names;
    for (const LCM_StoredAction& action : lcm_stored_actions(db)) {
        names.push_back(actionName(action.code));
    }
    return names;
}

Words situations(int db)
{
    const auto loaded = designcode::ofDatabase(db);
    Words names;
    if (loaded.code != nullptr) {
        for (const LCM_Situation& each : loaded.code->situations) {
            names.push_back(each.name);
        }
    }
    return names;
}

Words factorKeys()
{
    Words keys;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        keys.emplace_back(factor.key);
    }
    return keys;
}

/// What stands in place of an argument, by the name that its help shows; files where nothing else is known.
Words valuesOf(const Typed& typed, const std::string& argument)
{
    static const std::map<std::string, std::function<Words(const Typed&)>> SOURCES{
        {"action", [](const Typed& t) { return ofProject(t, actions); }},
        {"code", [](const Typed&) { return codes(); }},
        {"format", [](const Typed&) { return formatNames(); }},
        {"situation", [](const Typed& t) { return ofProject(t, situations); }},
        {"CODE", [](const Typed&) { return codes(); }},
        {"FACTOR", [](const Typed&) { return factorKeys(); }},
        {"FILE", [](const Typed&) { return Words{":projects"}; }},
        {"HEX", [](const Typed&) { return Words(); }},
        {"KWH", [](const Typed&) { return Words(); }},
        {"KWL", [](const Typed& t) { return ofProject(t, actions); }},
        {"NAME", [](const Typed& t) { return ofProject(t, actions); }},
        {"NR", [](const Typed&) { return Words(); }},
    };
    const auto source = SOURCES.find(argument);
    return source != SOURCES.end() ? source->second(typed) : Words{":files"};
}

Words valuesOf(const Typed& typed, const CLI::Option& option)
{
    const Words checked = wordsOfCheck(option);
    return checked.empty() ? valuesOf(typed, option.get_single_name()) : checked;
}

/// The positional argument that the last word would be; null when there is no further one.
const CLI::Option* nextPositional(const Typed& typed)
{
    const auto all =
        typed.command->get_options([](const CLI::Option* option) { return option->get_positional(); });
    std::size_t left = typed.positionals.size();
    for (const CLI::Option* option : all) {
        const auto most = static_cast<std::size_t>(std::max(option->get_items_expected_max(), 1));
        if (left < most) {
            return option;
        }
        left -= most;
    }
    return nullptr;
}

Words optionsOf(CLI::App& command)
{
    Words lines;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            lines.push_back("--" + name + "\t" + option->get_description());
        }
    }
    return lines;
}

Words candidates(const Typed& typed)
{
    if (typed.option != nullptr) {
        return valuesOf(typed, *typed.option);
    }
    if (isOption(typed.last) || typed.last == "-") {
        return optionsOf(*typed.command);
    }
    const auto commands = typed.command->get_subcommands({});
    if (commands.empty()) {
        const CLI::Option* const positional = nextPositional(typed);
        return positional != nullptr ? valuesOf(typed, *positional) : optionsOf(*typed.command);
    }
    Words lines;
    for (const CLI::App* each : commands) {
        lines.push_back(each->get_name() + "\t" + each->get_description());
    }
    return lines;
}

} // namespace

std::vector<std::string> completions(CLI::App& program, const std::vector<std::string>& words)
{
    if (words.empty()) {
        return {};
    }
    const Typed typed = read(program, words);
    Words lines = candidates(typed);
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [&](const std::string& line) {
                                   return line.front() != ':' && line.rfind(typed.last, 0) != 0;
                               }),
                lines.end());
    return lines;
}

} // namespace mrl::cli
