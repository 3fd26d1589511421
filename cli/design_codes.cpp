#include "cli/design_codes.h"

#include <QDir>
#include <variant>

#include "cli/arguments.h"
#include "cli/failure.h"

namespace mrl::cli {

LCM_RecodeCode recodeCodeOf(const designcode::DesignCode& code)
{
    LCM_RecodeCode result{dataOf(code), {}};
    for (const designcode::DefaultAction& action : code.actions) {
        for (const int number : action.oldNumbers) {
            result.oldNumbers.emplace(number, action.code);
        }
    }
    return result;
}

std::string storedCodeName(const std::string& code)
{
    return code.find('/') == std::string::npos ? code : QDir().absoluteFilePath(qtext(code)).toStdString();
}

std::string textOf(const designcode::Errors& errors)
{
    std::string text;
    for (const designcode::Error& error : errors) {
        text += (text.empty() ? "" : "\nmrl-lc: ") + error.text();
    }
    return text;
}

designcode::DesignCode readDesignCode(const std::string& name)
{
    const auto file = designcode::find(name);
    if (!file) {
        throw Failure{ExitCode::File,
                      name + ": there is no such design code; 'mrl-lc codes' lists those on the path"};
    }
    auto result = designcode::read(*file);
    if (const auto* errors = std::get_if<designcode::Errors>(&result)) {
        throw Failure{ExitCode::File, textOf(*errors)};
    }
    return std::get<designcode::DesignCode>(std::move(result));
}

Json identityJson(const designcode::DesignCode& code)
{
    return {{"name", code.name},     {"file", code.file},     {"label", code.label},
            {"ntcode", code.ntcode}, {"idcode", code.idcode}, {"country", code.country},
            {"year", code.year}};
}

Json findingJson(const CodeFinding& finding)
{
    return {{"line", finding.line}, {"rule", finding.rule},     {"text", finding.text},
            {"file", finding.file}, {"column", finding.column}, {"cure", finding.cure}};
}

Json warningsJson(const designcode::DesignCode& code)
{
    Json list = Json::array();
    for (const CodeFinding& finding : findingsOf(code)) {
        list.push_back(findingJson(finding));
    }
    return list;
}

void printWarnings(const designcode::DesignCode& code)
{
    Output out;
    for (const CodeFinding& finding : findingsOf(code)) {
        out.line("warning: " + textOf(finding));
    }
    out.finish();
}

} // namespace mrl::cli
