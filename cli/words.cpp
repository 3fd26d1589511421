#include "cli/words.h"

#include <algorithm>

#include "cli/output.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

const std::map<std::string, int>& partitionIds()
{
    static const std::map<std::string, int> ids{{"G", 1},    {"P", 2},    {"Q", 3},    {"A", 4},
                                                {"E", 5},    {"Q_1", 49}, {"Q_2", 50}, {"Q_3", 51},
                                                {"Q_4", 52}, {"Q_5", 53}};
    return ids;
}

const std::map<std::string, int>& superpositionIds()
{
    static const std::map<std::string, int> ids{{"PERM", 0}, {"COND", 1}, {"EXCL", 2}, {"UNSI", 3},
                                                {"USEX", 4}, {"ALEX", 5}, {"EXEX", 6}, {"PERC", 8}};
    return ids;
}

std::string wordOf(const std::map<std::string, int>& ids, int id)
{
    const auto it =
        std::find_if(ids.begin(), ids.end(), [id](const auto& entry) { return entry.second == id; });
    return it == ids.end() ? std::to_string(id) : it->first;
}

const std::map<std::string, int>& gravityAxes()
{
    static const std::map<std::string, int> axes{{"+X", 1},  {"-X", -1}, {"+Y", 2},
                                                 {"-Y", -2}, {"+Z", 3},  {"-Z", -3}};
    return axes;
}

const std::map<std::string, int>& rawSystemClasses()
{
    static const std::map<std::string, int> classes{{"spatial", 0}, {"plane", 1}, {"plate", 20}};
    return classes;
}

std::string systemName(int systemClass)
{
    switch (systemClass) {
    case 0:
        return "spatial";
    case 1:
        return "plane";
    case 3:
        return "plate";
    default:
        return std::to_string(systemClass);
    }
}

std::string actionName(int code) { return printable(lcm_code_name(code)); }

std::string actionWordText(int word)
{
    switch (word) {
    case LC_ACTION_NONE:
        return {};
    case LC_ACTION_IMPERFECTION:
        return "IMP";
    default:
        return printable(lcm_word_name(word));
    }
}

} // namespace mrl::cli
