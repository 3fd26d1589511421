#include "cli/finding.h"

#include "cli/output.h"

namespace mrl::cli {

namespace {

std::string lineOf(const Finding& finding)
{
    std::string line = finding.subject;
    for (const std::string& part : {finding.name, finding.field}) {
        line += part.empty() ? "" : " " + part;
    }
    return line + ": " + finding.message;
}

Json jsonOf(const Finding& finding)
{
    const auto orNull = [](const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); };
    return {{"subject", finding.subject},
            {"name", orNull(finding.name)},
            {"field", orNull(finding.field)},
            {"message", finding.message}};
}

} // namespace

ExitCode report(const std::vector<Finding>& findings, const std::string& file, bool json)
{
    Output out;
    if (json) {
        Json list = Json::array();
        for (const Finding& finding : findings) {
            list.push_back(jsonOf(finding));
        }
        out.line(Json{{"file", file}, {"findings", list}}.dump(2));
    } else {
        for (const Finding& finding : findings) {
            out.line(lineOf(finding));
        }
        const std::size_t count = findings.size();
        out.line(count == 0 ? "No findings."
                            : std::to_string(count) + (count == 1 ? " finding." : " findings."));
    }
    out.finish();
    return findings.empty() ? ExitCode::Done : ExitCode::Refused;
}

} // namespace mrl::cli
