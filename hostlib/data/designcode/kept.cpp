#include "hostlib/data/designcode/kept.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "hostlib/data/designcode/chain.h"
#include "hostlib/data/designcode/designcode_active.h"

namespace mrl::designcode {

namespace {

constexpr const char* CODE = "designcode";
constexpr const char* NAME = "designcode-kept-name";
constexpr const char* FINGERPRINT = "designcode-kept-fingerprint";
constexpr const char* FILES = "designcode-kept-files";
constexpr std::size_t MOST_TOLD = 5; // differences in one line; commands list all

std::string textOfFiles(const std::vector<FileText>& files)
{
    QJsonArray list;
    for (const FileText& file : files) {
        list.append(QJsonObject{{QStringLiteral("name"), QString::fromStdString(nameOfFile(file.file))},
                                {QStringLiteral("text"), QString::fromStdString(file.text)}});
    }
    return QJsonDocument(list).toJson(QJsonDocument::Compact).toStdString();
}

/// A name of a file stands there without a folder: nothing outside the copy is read through it.
std::vector<FileText> filesOfText(const std::string& text)
{
    std::vector<FileText> files;
    const QJsonArray list = QJsonDocument::fromJson(QByteArray::fromStdString(text)).array();
    for (const QJsonValue& each : list) {
        const std::string name = each.toObject().value(QStringLiteral("name")).toString().toStdString();
        if (name.empty() || name.find('/') != std::string::npos) {
            return {};
        }
        files.push_back(
            {name + ".ini", each.toObject().value(QStringLiteral("text")).toString().toStdString()});
    }
    return files;
}

std::optional<DesignCode> readKept(const std::vector<FileText>& files)
{
    if (files.empty()) {
        return std::nullopt;
    }
    const auto baseOf = [&](const std::string& name,
                            const FileText& /*from*/) -> std::variant<FileText, std::string> {
        const auto found = std::find_if(files.begin(), files.end(),
                                        [&](const FileText& file) { return file.file == name + ".ini"; });
        return found != files.end() ? std::variant<FileText, std::string>(*found)
                                    : "the copy has no '" + name + "'";
    };
    auto read = parse(files.front(), baseOf);
    auto* code = std::get_if<DesignCode>(&read);
    return code != nullptr ? std::optional(std::move(*code)) : std::nullopt;
}

KeptReport compared(int db, const DesignCode& kept, const std::string& name)
{
    const auto file = fileOfName(db, name);
    const ReadResult read = file ? designcode::read(*file) : ReadResult(Errors());
    const auto* code = std::get_if<DesignCode>(&read);
    KeptReport report;
    if (code == nullptr) {
        report.state = KeptState::FileAbsent;
        report.text =
            "there is no readable file of the design code '" + name + "' here; the copy in the project holds";
        return report;
    }
    report.differences = designcode::differences(kept, *code);
    report.state = report.differences.empty() ? KeptState::Same : KeptState::Differs;
    if (report.state == KeptState::Differs) {
        report.text = *file + " differs from the copy in the project, which holds: ";
        for (std::size_t i = 0; i < std::min(MOST_TOLD, report.differences.size()); ++i) {
            report.text += (i == 0 ? "" : "; ") + textOf(report.differences[i]);
        }
        const std::size_t more = report.differences.size() - std::min(MOST_TOLD, report.differences.size());
        report.text += more > 0 ? "; and " + std::to_string(more) + " more" : "";
    }
    return report;
}

} // namespace

cdb::Result keep(int db, const DesignCode& code)
{
    cdb::Transaction transaction(db);
    const std::pair<const char*, std::string> facts[] = {
        {NAME, cdb::fact(db, CODE)}, {FINGERPRINT, fingerprint(code)}, {FILES, textOfFiles(code.files)}};
    for (const auto& [name, value] : facts) {
        if (cdb::Result set = cdb::setFact(db, name, value); !set) {
            return set;
        }
    }
    return transaction.commit();
}

std::optional<DesignCode> keptCode(int db)
{
    auto code = readKept(filesOfText(cdb::fact(db, FILES)));
    return code && fingerprint(*code) == cdb::fact(db, FINGERPRINT) ? std::move(code) : std::nullopt;
}

std::string keptFingerprint(int db)
{
    const std::string fingerprint = cdb::fact(db, FINGERPRINT);
    return !fingerprint.empty() && cdb::fact(db, NAME) == cdb::fact(db, CODE) ? fingerprint : std::string();
}

KeptReport keptReport(int db)
{
    const std::string name = cdb::fact(db, CODE);
    const std::string kept = cdb::fact(db, NAME);
    if (kept.empty()) {
        return {};
    }
    if (kept != name) {
        return {KeptState::OtherName,
                "the project names the design code '" + name + "' and keeps a copy of '" + kept +
                    "': the name holds",
                {}};
    }
    const auto code = keptCode(db);
    if (!code) {
        return {KeptState::Broken,
                "the copy of the design code in the project can't be read: the file '" + name + "' holds",
                {}};
    }
    return compared(db, *code, name);
}

const char* wordOf(KeptState state)
{
    switch (state) {
    case KeptState::Same:
        return "same";
    case KeptState::Differs:
        return "differs";
    case KeptState::FileAbsent:
        return "file-absent";
    case KeptState::OtherName:
        return "other-name";
    case KeptState::Broken:
        return "broken";
    case KeptState::None:
        break;
    }
    return "none";
}

} // namespace mrl::designcode
