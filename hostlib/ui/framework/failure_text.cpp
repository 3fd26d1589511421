#include "hostlib/ui/framework/failure_text.h"

#include <QCoreApplication>

namespace mrl::ui {

namespace {

struct Wording
{
    cdb::Code code;
    const char* sentence;
    bool sayingAll; ///< the reason would only repeat it
};

constexpr Wording WORDINGS[] = {
    {cdb::Code::NoFile, QT_TRANSLATE_NOOP("Failure", "There is no such file or folder."), true},
    {cdb::Code::Exists, QT_TRANSLATE_NOOP("Failure", "The file exists already."), true},
    {cdb::Code::NotAProject, QT_TRANSLATE_NOOP("Failure", "The file is no project."), true},
    {cdb::Code::NewerFormat,
     QT_TRANSLATE_NOOP("Failure", "The project was written by a newer version of this program."), false},
    {cdb::Code::Corrupt, QT_TRANSLATE_NOOP("Failure", "The project is damaged."), false},
    {cdb::Code::Checksum, QT_TRANSLATE_NOOP("Failure", "The project is damaged."), false},
    {cdb::Code::ReadOnly, QT_TRANSLATE_NOOP("Failure", "The file or its folder is read-only."), true},
    {cdb::Code::DiskFull, QT_TRANSLATE_NOOP("Failure", "The disk is full."), true},
    {cdb::Code::Locked, QT_TRANSLATE_NOOP("Failure", "Another program is using the project."), false},
    {cdb::Code::InputOutput, QT_TRANSLATE_NOOP("Failure", "The project could not be read or written."),
     false},
    {cdb::Code::Shared,
     QT_TRANSLATE_NOOP("Failure", "The project lies on a network folder and can only be read there."), false},
    {cdb::Code::OutOfMemory, QT_TRANSLATE_NOOP("Failure", "There is no memory left."), true},
};

} // namespace

QString failureText(const cdb::Result& failure)
{
    QString text = QString::fromStdString(failure.text);
    for (const Wording& wording : WORDINGS) {
        if (wording.code != failure.code) {
            continue;
        }
        // The file stands ahead of the reason, and a reason that repeats the sentence holds no colon.
        const int reason = text.lastIndexOf(QLatin1String(": "));
        const QString below = wording.sayingAll && reason > 0 ? text.left(reason) : text;
        const QString sentence = QCoreApplication::translate("Failure", wording.sentence);
        return below.isEmpty() ? sentence : sentence + QStringLiteral("\n\n") + below;
    }
    return text;
}

} // namespace mrl::ui
