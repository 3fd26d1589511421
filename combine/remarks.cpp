#include "combine/remarks.h"

#include <algorithm>
#include <map>

namespace mrl::combine {

namespace {

constexpr std::size_t MOST_TOLD = 10; // of many that have the same thing wrong

/// "1, 2, 3 and 7 more"
std::string listed(const std::vector<int>& numbers)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(numbers.size(), MOST_TOLD); ++i) {
        text += (i == 0 ? "" : ", ") + std::to_string(numbers[i]);
    }
    return numbers.size() > MOST_TOLD ? text + " and " + std::to_string(numbers.size() - MOST_TOLD) + " more"
                                      : text;
}

} // namespace

std::string loadCasesText(const std::vector<int>& numbers)
{
    return (numbers.size() == 1 ? "load case " : "load cases ") + listed(numbers);
}

std::vector<std::string> gathered(const std::vector<Remark>& remarks)
{
    std::vector<std::pair<std::string, std::vector<int>>> reasons;
    std::map<std::string, std::size_t> places;
    for (const Remark& remark : remarks) {
        const auto [place, isNew] = places.emplace(remark.reason, reasons.size());
        if (isNew) {
            reasons.push_back({remark.reason, {}});
        }
        if (remark.number > 0) {
            reasons[place->second].second.push_back(remark.number);
        }
    }
    std::vector<std::string> lines;
    for (const auto& [reason, numbers] : reasons) {
        lines.push_back(numbers.empty() ? reason : loadCasesText(numbers) + ": " + reason);
    }
    return lines;
}

} // namespace mrl::combine
