#include "workbench/designcode/kept_question.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include "hostlib/data/designcode/kept.h"

namespace mrl::workbench {

namespace {

struct KeptQuestion
{
    Q_DECLARE_TR_FUNCTIONS(KeptQuestion)
};

QString textOf(const designcode::KeptReport& report, const QString& name)
{
    switch (report.state) {
    case designcode::KeptState::Differs:
        return KeptQuestion::tr("The design code %1 on this machine differs from the copy in the project.")
            .arg(name);
    case designcode::KeptState::FileAbsent:
        return KeptQuestion::tr(
                   "There is no readable file of the design code %1 on this machine. The copy in "
                   "the project holds.")
            .arg(name);
    case designcode::KeptState::OtherName:
        return KeptQuestion::tr("The project names the design code %1 and keeps a copy of another one. The "
                                "name holds.")
            .arg(name);
    default:
        return KeptQuestion::tr(
                   "The copy of the design code %1 in the project can't be read. The file holds.")
            .arg(name);
    }
}

/// The first differences, and all of them for who wants to read on.
void addDifferences(QMessageBox& box, const std::vector<designcode::Difference>& differences)
{
    constexpr int MOST = 8;
    QStringList lines;
    for (const designcode::Difference& each : differences) {
        lines << QString::fromStdString(designcode::textOf(each));
    }
    box.setInformativeText(lines.mid(0, MOST).join(QLatin1Char('\n')) +
                           (lines.size() > MOST
                                ? QLatin1Char('\n') + KeptQuestion::tr("and %1 more").arg(lines.size() - MOST)
                                : QString()));
    if (lines.size() > MOST) {
        box.setDetailedText(lines.join(QLatin1Char('\n')));
    }
}

} // namespace

KeptAnswer askAboutKeptCode(int db, QWidget* parent)
{
    const designcode::KeptReport report = designcode::keptReport(db);
    if (report.text.empty()) {
        return KeptAnswer::KeepCopy;
    }
    const QString name = QString::fromStdString(cdb::fact(db, "designcode"));
    QMessageBox box(QMessageBox::Information, KeptQuestion::tr("Design code"), textOf(report, name),
                    QMessageBox::NoButton, parent);
    if (report.state != designcode::KeptState::Differs) {
        box.addButton(QMessageBox::Ok);
        box.exec();
        return KeptAnswer::KeepCopy;
    }
    addDifferences(box, report.differences);
    QPushButton* keep = box.addButton(KeptQuestion::tr("&Go on with the copy"), QMessageBox::RejectRole);
    QPushButton* take = box.addButton(KeptQuestion::tr("&Take the file over..."), QMessageBox::AcceptRole);
    box.setDefaultButton(keep);
    box.setEscapeButton(keep);
    box.exec();
    return box.clickedButton() == take ? KeptAnswer::TakeOver : KeptAnswer::KeepCopy;
}

} // namespace mrl::workbench
