#include "cli/design_codes.h"

#include <variant>

#include "cli/failure.h"

namespace mrl::cli {

designcode::DesignCode readDesignCode(const std::string& name)
{
    const auto file = designcode::find(name);
    if (!file) {
        throw Failure{ExitCode::File,
                      name + ": there is no such design code; 'mrl-lc codes' lists those on the path"};
    }
    auto result = designcode::read(*file);
    if (const auto* error = std::get_if<designcode::Error>(&result)) {
        throw Failure{ExitCode::File, error->text()};
    }
    return std::get<designcode::DesignCode>(std::move(result));
}

Json identityJson(const designcode::DesignCode& code)
{
    return {{"name", code.name},     {"file", code.file},     {"label", code.label},
            {"ntcode", code.ntcode}, {"idcode", code.idcode}, {"country", code.country},
            {"year", code.year}};
}

Json warningsJson(const designcode::DesignCode& code)
{
    Json list = Json::array();
    for (const auto& warning : designcode::warnings(code)) {
        list.push_back({{"line", warning.line}, {"text", warning.text}});
    }
    return list;
}

void printWarnings(const designcode::DesignCode& code)
{
    Output out;
    for (const auto& warning : designcode::warnings(code)) {
        out.line("warning: " + designcode::Error{code.file, warning.line, warning.text}.text());
    }
    out.finish();
}

} // namespace mrl::cli
