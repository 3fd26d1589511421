// What the summary page says about a project.
#include <QApplication>
#include <QLabel>
#include <QPalette>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTranslator>

#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
#include "tests/support/project_test.h"
#include "tests/support/record_layout.h"
#include "workbench/actions_model.h"
#include "workbench/findings_model.h"
#include "workbench/load_cases_model.h"
#include "workbench/summary_page.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

using workbench::ActionsModel;
using workbench::FindingsModel;
using workbench::LoadCasesModel;
using workbench::ProjectSummary;
using workbench::summarise;
using workbench::SummaryPage;

class SummaryTest : public ProjectTest
{
  protected:
    QString shown(const QAbstractItemModel& model, int row, int column) const
    {
        return model.index(row, column).data().toString();
    }
    QStringList headers(const QAbstractItemModel& model) const
    {
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column) {
            texts << model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        }
        return texts;
    }
};

TEST_F(SummaryTest, TellsActionsAndLoadCasesApartFromThoseOfOtherModules)
{
    project.putAction(soundAction(QStringLiteral("G")));
    project.putAction(soundAction(QStringLiteral("Y1")));
    project.putAction(17, soundAction(QStringLiteral("SUP")));
    project.putLoadCase(1, bareLoadCase());
    project.putLoadCase(2, bareLoadCase().kind(1));
    project.putLoadCase(3, bareLoadCase().kind(2));
    project.putLoadCase(4, bareLoadCase().kind(-1));
    const ProjectSummary summary = summarise(db);
    ASSERT_EQ(summary.actions.size(), 1u);
    EXPECT_EQ(summary.actions[0].code, codeOf("G"));
    ASSERT_EQ(summary.loadCases.size(), 2u);
    EXPECT_EQ(summary.foreignLoadCases, 2);
}

TEST_F(SummaryTest, OfSeveralDefinitionsOfAnActionShowsTheOneThatTheManagerShows)
{
    tagCDB_LC_ACT otherKind = soundAction(QStringLiteral("G"));
    otherKind.kind = 2;
    project.putAction(otherKind);
    project.append(LC_KWH_ACTIONS, codeOf("G"), tagCDB_LC_ACT(soundAction(QStringLiteral("G")).gamu(1.2f)));
    project.append(LC_KWH_ACTIONS, codeOf("G"), tagCDB_LC_ACT(soundAction(QStringLiteral("G")).gamu(1.3f)));
    project.putAction(LC_BLANK_WORD, soundAction(QStringLiteral("X")));
    const ProjectSummary summary = summarise(db);
    ASSERT_EQ(summary.actions.size(), 1u) << "neither twice nor without a name";
    EXPECT_EQ(summary.actions[0].record.gamu, 1.3f);
}

TEST_F(SummaryTest, SaysWhyTheDesignCodeCannotBeLoaded)
{
    project.setDesignCode("no-such-code");
    const ProjectSummary summary = summarise(db);
    EXPECT_TRUE(summary.designCodeReason.contains(QStringLiteral("no-such-code")));
    EXPECT_EQ(summary.factors.size(), 7u) << "all factors under their plain names";
    EXPECT_TRUE(summary.findings.empty());
}

TEST_F(SummaryTest, ShowsTheFactorsOfTheDesignCodeUnderItsSymbols)
{
    useCode(DesignCodeBuilder()
                .marks(noLimits().gamu(1.0f).gamf(1.0f).psi0(1.0f))
                .text("TXT_GAMU", "sup")
                .text("TXT_GAMF", "none")
                .add(soundAction(QStringLiteral("G")), {2, 7}));
    ActionsModel model(nullptr);
    const ProjectSummary summary = summarise(db);
    model.show(summary.actions, summary.factors);
    EXPECT_EQ(headers(model),
              (QStringList{"Action", "Description", "Partition", "Superposition", "sup", "Psi0"}));
}

TEST_F(SummaryTest, ShowsTheFactorColumnsThatTheManagerShows)
{
    useCode(DesignCodeBuilder()
                .marks(noLimits().gamu(1.0f).gama(1.0f).psi1(1.0f).psi2(1.0f).psi1s(1.0f))
                .text("TXT_GAMU", "a label of more than 20 bytes")
                .text("TXT_PSI1", "none")
                .add(soundAction(QStringLiteral("G")), {2, 7}));
    ActionsModel model(nullptr);
    const ProjectSummary withLabels = summarise(db);
    model.show(withLabels.actions, withLabels.factors);
    EXPECT_EQ(headers(model), (QStringList{"Action", "Description", "Partition", "Superposition",
                                           "a label of more than", "Gama", "none", "Psi2", "Psi1s"}))
        << "only a safety factor goes with its label";

    useCode(DesignCodeBuilder()
                .marks(noLimits().gamu(1.0f).gama(1.0f))
                .withoutActionsSection()
                .add(soundAction(QStringLiteral("G")), {2, 7}));
    const ProjectSummary without = summarise(db);
    ASSERT_EQ(without.factors.size(), 1u) << "Gama needs the section of the labels";
    EXPECT_EQ(without.factors[0].label, QStringLiteral("Gamu"));
}

TEST_F(SummaryTest, ActionsAreShownAsEngineersWriteThem)
{
    // Category Q in load group 1, superposition EXCL: 1 * 256 + 3 * 16 + 2. A stored Gama of 0.001 means 0.
    project.putAction(soundAction(QStringLiteral("Q_1"))
                          .partition(0x132)
                          .gamu(1.35f)
                          .gama(0.001f)
                          .title(QStringLiteral("Traffic")));
    ActionsModel model(nullptr);
    const ProjectSummary summary = summarise(db);
    model.show(summary.actions, summary.factors);
    EXPECT_EQ(shown(model, 0, ActionsModel::Name), QStringLiteral("Q_1"));
    EXPECT_EQ(shown(model, 0, ActionsModel::Title), QStringLiteral("Traffic"));
    EXPECT_EQ(shown(model, 0, ActionsModel::Category), QStringLiteral("variable, group 1"));
    EXPECT_EQ(shown(model, 0, ActionsModel::Superposition), QStringLiteral("EXCL"));
    EXPECT_EQ(shown(model, 0, ActionsModel::FirstFactor), QStringLiteral("1.35"));
    EXPECT_EQ(shown(model, 0, ActionsModel::FirstFactor + 2), QStringLiteral("0.00")) << "Gama";
}

TEST_F(SummaryTest, EveryWordShowsTheBitsOfThePartitionWord)
{
    const std::map<std::string, QString> names{
        {"G", "permanent"},           {"P", "prestress"},           {"Q", "variable"},
        {"A", "accidental"},          {"E", "earthquake"},          {"Q_1", "variable, group 1"},
        {"Q_2", "variable, group 2"}, {"Q_3", "variable, group 3"}, {"Q_4", "variable, group 4"},
        {"Q_5", "variable, group 5"}};
    for (const PartitionWord& expected : partitionWords()) {
        project.putAction(soundAction(QStringLiteral("G")).partition(expected.word));
        ActionsModel model(nullptr);
        const ProjectSummary summary = summarise(db);
        model.show(summary.actions, summary.factors);
        EXPECT_EQ(shown(model, 0, ActionsModel::Category), names.at(expected.partition));
        EXPECT_EQ(shown(model, 0, ActionsModel::Superposition),
                  QString::fromStdString(expected.superposition));
    }
}

TEST_F(SummaryTest, EveryFactorIsShownFromItsPlaceInTheRecord)
{
    project.setDesignCode("no-such-code"); // shows all factors under their plain names
    for (const FactorPlace& place : FACTOR_PLACES) {
        tagCDB_LC_ACT stored = soundAction(QStringLiteral("G"));
        putFloatAt(stored, place.actionByte, 0.5f);
        project.putAction(stored);
        tagCDB_LC_CTRL own = bareLoadCase();
        putFloatAt(own, place.loadCaseByte, place.half == Half::Minor ? 0.5e-4f : 0.5f);
        project.putLoadCase(1, own);
        const ProjectSummary summary = summarise(db);
        ActionsModel actions(nullptr);
        actions.show(summary.actions, summary.factors);
        EXPECT_EQ(shown(actions, 0, headers(actions).indexOf(place.key)), QStringLiteral("0.50"))
            << place.key;
        LoadCasesModel loadCases(nullptr);
        loadCases.show(summary.loadCases, summary.factors, 0, summary.actions);
        EXPECT_EQ(shown(loadCases, 0, headers(loadCases).indexOf(place.key)), QStringLiteral("0.50"))
            << place.key;
    }
}

TEST_F(SummaryTest, LoadCasesShowOwnFactorsAndThoseOfTheirActionInGrey)
{
    tagCDB_LC_CTRL own = bareLoadCase().title(QStringLiteral("Own")).deadWeight(0.0f, 0.0f, -1.0f);
    own.gamu = lcm_pack_pair(1.35f, 1.0f);
    own.gamf = 0.5f;
    tagCDB_LC_CTRL bound = bareLoadCase(QStringLiteral("G"));
    bound.gamu = bound.gamf = bound.psi0 = bound.psi1 = bound.psi2 = LC_UNDEFINED;
    tagCDB_LC_CTRL imperfection = bareLoadCase();
    imperfection.action = 70;
    project.putLoadCase(1, own);
    project.putLoadCase(2, bound);
    project.putLoadCase(3, imperfection);
    tagCDB_LC_CTRL lost = bound;
    lost.action = codeOf("XYZ");
    project.putLoadCase(4, lost);
    tagCDB_LC_CTRL copied = bound;
    copied.gamf = 0.9f;
    project.putLoadCase(5, copied);
    project.putAction(soundAction(QStringLiteral("G")).gamu(1.35f).gamf(0.75f));
    LoadCasesModel model(nullptr);
    const ProjectSummary summary = summarise(db);
    model.show(summary.loadCases, summary.factors, 2, summary.actions);
    EXPECT_EQ(shown(model, 0, LoadCasesModel::Action), QStringLiteral("none"));
    EXPECT_EQ(shown(model, 0, LoadCasesModel::Dlz), QStringLiteral("-1.00"));
    EXPECT_EQ(shown(model, 0, LoadCasesModel::FirstFactor), QStringLiteral("1.35"));
    EXPECT_EQ(shown(model, 0, LoadCasesModel::FirstFactor + 2), QStringLiteral("1.00")) << "Gama";
    EXPECT_EQ(shown(model, 1, LoadCasesModel::Action), QStringLiteral("G"));
    const int gamf = LoadCasesModel::FirstFactor + 1;
    EXPECT_EQ(shown(model, 0, gamf), QStringLiteral("0.50"));
    EXPECT_FALSE(model.index(0, gamf).data(Qt::ForegroundRole).isValid()) << "its own";
    EXPECT_EQ(shown(model, 1, gamf), QStringLiteral("0.75"));
    const QColor grey = model.index(1, gamf).data(Qt::ForegroundRole).value<QBrush>().color();
    EXPECT_GT(grey.lightness(), QApplication::palette().text().color().lightness() + 50);
    EXPECT_LT(grey.lightness(), QApplication::palette().base().color().lightness() - 50);
    EXPECT_EQ(model.index(1, gamf).data(Qt::ToolTipRole).toString(),
              QStringLiteral("Factor of the action G"));
    EXPECT_EQ(shown(model, 3, gamf), QString()) << "its action is missing";
    EXPECT_EQ(shown(model, 4, gamf), QStringLiteral("0.75")) << "as the manager shows it";
    EXPECT_EQ(model.index(0, LoadCasesModel::Title).data(Qt::ToolTipRole).toString(), QStringLiteral("Own"));
    EXPECT_EQ(shown(model, 2, LoadCasesModel::Action), QStringLiteral("IMP"));
    EXPECT_TRUE(model.index(1, 0).data(Qt::FontRole).value<QFont>().bold()) << "the current load case";
}

TEST_F(SummaryTest, FindingsNameTheActionAndTheLoadCase)
{
    project.putAction(soundAction(QStringLiteral("G")).gamu(1.0f).gamf(1.2f));
    project.putLoadCase(12, bareLoadCase(QStringLiteral("XYZ")));
    FindingsModel model(nullptr);
    model.show(summarise(db).findings);
    QStringList where;
    for (int row = 0; row < model.rowCount(); ++row) {
        where << shown(model, row, 0);
    }
    EXPECT_TRUE(where.contains(QStringLiteral("Action G")));
    EXPECT_TRUE(where.contains(QStringLiteral("Load case 12")));
}

TEST_F(SummaryTest, FindingsCanBeCheckedAgainOnlyIfTheUserWantsExtras)
{
    SummaryPage page(nullptr);
    auto* link = page.findChild<QLabel*>(QStringLiteral("link_check_again"));
    page.show(summarise(db));
    EXPECT_TRUE(link->isHidden());

    workbench::storeExtras(true);
    page.show(summarise(db));
    workbench::storeExtras(false);
    EXPECT_FALSE(link->isHidden());
    QSignalSpy wanted(&page, &SummaryPage::checkAgain);
    emit link->linkActivated(QStringLiteral("#"));
    EXPECT_EQ(wanted.count(), 1);
}

TEST_F(SummaryTest, FindingsAreToldInGerman)
{
    project.putAction(soundAction(QStringLiteral("Y1")));
    project.putLoadCase(12, bareLoadCase(QStringLiteral("XYZ")));
    // The language counts in which they are read, not that in which they were found.
    FindingsModel model(nullptr);
    model.show(summarise(db).findings);
    QTranslator german;
    ASSERT_TRUE(
        german.load(QStringLiteral("mrl_loadcase_dll_de"),
                    QCoreApplication::applicationDirPath() + QStringLiteral("/../share/mrl/translations")));
    QCoreApplication::installTranslator(&german);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(shown(model, 0, 1),
              QStringLiteral("Namen, die mit Y beginnen, sind reserviert; der Dialog lädt sie nie"));
    EXPECT_EQ(shown(model, 1, 1), QStringLiteral("das Projekt hat keine Einwirkung XYZ"));
}

TEST_F(SummaryTest, SoundProjectHasNoFindings)
{
    project.putAction(soundAction(QStringLiteral("G")));
    project.putLoadCase(1, mrl::test::following(QStringLiteral("G")));
    EXPECT_TRUE(summarise(db).findings.empty());
}

TEST_F(SummaryTest, PageShowsFactsAndCounts)
{
    project.putAction(soundAction(QStringLiteral("G")));
    project.putLoadCase(1, mrl::test::following(QStringLiteral("G")));
    const struct
    {
        int raw;
        int gravity;
        char rest[344];
    } system{1, -2, {}};
    project.put(LC_KWH_SYSTEM, 0, system);
    SummaryPage page(nullptr);
    page.show(summarise(db));
    const auto fact = [&](const char* name) { return page.findChild<QLabel*>(QLatin1String(name))->text(); };
    EXPECT_EQ(fact("fact_designcode"), QStringLiteral("Sample"));
    EXPECT_EQ(fact("fact_system"), QStringLiteral("plane structure"));
    EXPECT_EQ(fact("fact_gravity"), QStringLiteral("\u2212Y"));
    EXPECT_EQ(fact("fact_current"), QStringLiteral("none"));
    auto* tabs = page.findChild<QTabWidget*>();
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("Actions (1)"));
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Load cases (1)"));
    EXPECT_EQ(tabs->tabText(2), QStringLiteral("Findings (none)"));
    EXPECT_EQ(page.findChild<QTableView*>(QStringLiteral("table_actions"))->editTriggers(),
              QAbstractItemView::NoEditTriggers);
}

TEST_F(SummaryTest, TellsTheTrapsOfTheDesignCodeWhereItIsWanted)
{
    useCode(withoutLines(smallCode(), "Psi2 = 0.3"));
    workbench::storeExtras(true);
    const ProjectSummary summary = summarise(db);
    workbench::storeExtras(false);
    FindingsModel model(nullptr);
    model.show(summary.findings);
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        EXPECT_EQ(shown(model, row, 0), "Design code");
        texts << shown(model, row, 1);
    }
    EXPECT_FALSE(texts.filter("Psi2 is marked, but not stated").isEmpty()) << texts.join('\n').toStdString();
    EXPECT_TRUE(summarise(db).findings.empty());
}

/// Psi0 of W is 0.6 in the design code, and 0.5 in the project.
class OriginsInTheSummary : public SummaryTest
{
  protected:
    OriginsInTheSummary()
    {
        project.setDesignCode("en1990");
        project.putAction(soundAction(QStringLiteral("W")));
        project.putLoadCase(1, bareLoadCase(QStringLiteral("W")));
    }
    ~OriginsInTheSummary() override { workbench::storeExtras(false); }
};

TEST_F(OriginsInTheSummary, OfAFactorIsToldAndADifferenceIsSlanted)
{
    workbench::storeExtras(true);
    const ProjectSummary summary = summarise(db);
    ActionsModel actions(nullptr);
    actions.show(summary.actions, summary.factors, summary.origins);
    LoadCasesModel loadCases(nullptr);
    loadCases.show(summary.loadCases, summary.factors, 0, summary.actions, summary.origins);
    const int factor = headers(actions).indexOf(QString::fromUtf8("ψ0"));
    const QString origin =
        QString::fromUtf8("W ψ0 0.5: yours; the code says 0.6 (en1990, Table A1.1, verified)");
    EXPECT_EQ(actions.index(0, factor).data(Qt::ToolTipRole).toString(), origin);
    EXPECT_EQ(actions.index(0, factor).data(Qt::AccessibleDescriptionRole).toString(), origin);
    EXPECT_TRUE(actions.index(0, factor).data(Qt::FontRole).value<QFont>().italic());
    EXPECT_FALSE(actions.index(0, ActionsModel::Name).data(Qt::ToolTipRole).isValid());
    const int same = headers(loadCases).indexOf(QString::fromUtf8("ψ0"));
    EXPECT_TRUE(loadCases.index(0, same).data(Qt::ToolTipRole).toString().endsWith(origin));
    EXPECT_TRUE(loadCases.index(0, same).data(Qt::FontRole).value<QFont>().italic());
    EXPECT_EQ(loadCases.index(0, same).data(Qt::AccessibleDescriptionRole).toString(), origin);
}

TEST_F(OriginsInTheSummary, IsToldOnlyWhereItIsWanted)
{
    workbench::storeExtras(false);
    EXPECT_TRUE(summarise(db).origins.empty());
}

} // namespace mrl::test
