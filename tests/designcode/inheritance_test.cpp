// Files that state their differences from a base.
#include <gmock/gmock.h>

#include <map>

#include "designcode/reader_sample.h"
#include "hostlib/data/designcode/effective.h"

using mrl::designcode::DesignCode;
using mrl::designcode::FileText;
using mrl::test::READER_SAMPLE;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string HEAD = "[DESIGN CODE]\nbase = sample\nlabel = Annex\n";

using Files = std::map<std::string, std::string>;

mrl::designcode::ReadResult readWith(const Files& files, const std::string& text)
{
    const auto baseOf = [&](const std::string& name, const FileText&) -> std::variant<FileText, std::string> {
        const auto found = files.find(name);
        if (found == files.end()) {
            return "there is no " + name;
        }
        return FileText{name + ".ini", found->second};
    };
    return mrl::designcode::parse(FileText{"annex.ini", text}, baseOf);
}

DesignCode annex(const std::string& text)
{
    auto result = readWith({{"sample", READER_SAMPLE}}, HEAD + text);
    if (const auto* errors = std::get_if<mrl::designcode::Errors>(&result)) {
        ADD_FAILURE() << errors->front().text();
        return {};
    }
    return std::get<DesignCode>(std::move(result));
}

std::string firstError(const Files& files, const std::string& text)
{
    const auto result = readWith(files, text);
    const auto* errors = std::get_if<mrl::designcode::Errors>(&result);
    return errors == nullptr ? "readable" : errors->front().text();
}

std::vector<std::string> namesOf(const DesignCode& code)
{
    std::vector<std::string> names;
    for (const auto& action : code.actions) {
        names.push_back(action.name);
    }
    return names;
}

} // namespace

TEST(Inheritance, FileWithoutDifferencesSaysWhatItsBaseSays)
{
    const DesignCode code = annex("");
    EXPECT_EQ(code.label, "Annex");
    EXPECT_EQ(code.year, 2002);
    EXPECT_EQ(code.kfi, 1.1f);
    EXPECT_THAT(namesOf(code), ElementsAre("G", "Q", "Q_A"));
    EXPECT_THAT(mrl::designcode::differences(mrl::test::parsed(READER_SAMPLE), code), IsEmpty());
    EXPECT_EQ(mrl::designcode::fingerprint(code),
              mrl::designcode::fingerprint(mrl::test::parsed(READER_SAMPLE)));
}

TEST(Inheritance, StatedValueReplacesThatOfTheBaseAndTellsItsFile)
{
    const DesignCode code = annex("[ACTION Q]\nPsi0 = 0.6 {Table A1.1, one source} but not snow\n");
    EXPECT_EQ(code.actions[1].record.psi0, 0.6f);
    EXPECT_EQ(code.actions[1].record.psi1, 0.5f);
    const auto& origin = code.actions[1].origins[LCM_FactorId::Psi0];
    EXPECT_EQ(origin.file, "annex.ini");
    EXPECT_EQ(origin.line, 5);
    EXPECT_EQ(origin.source.clause, "Table A1.1");
    EXPECT_EQ(origin.source.state, mrl::designcode::State::OneSource);
    EXPECT_EQ(origin.source.note, "but not snow");
    EXPECT_EQ(code.actions[1].origins[LCM_FactorId::Psi1].file, "sample.ini");
}

TEST(Inheritance, ActionIsRemovedByAWordAndAddedBehindAnotherOne)
{
    const DesignCode code = annex("[ACTION Q_A]\nremove = yes\n[ACTION P]\nafter = G\ncategory = P\n"
                                  "superposition = PERM\n");
    EXPECT_THAT(namesOf(code), ElementsAre("G", "P", "Q"));
}

TEST(Inheritance, NoneTakesACombinationValueAway)
{
    const DesignCode code = annex("[COMBINATIONS]\nKFI = none\n");
    EXPECT_FALSE(code.kfi.has_value());
    EXPECT_EQ(code.constants.at("KFI"), 1.0f) << "terms of the base still name it";
    EXPECT_EQ(code.xsi, 0.85f);
}

TEST(Inheritance, TitleMayStandInGerman)
{
    EXPECT_EQ(annex("[ACTION G]\ntitle[de] = Ständige Last\n").actions[0].titles.at("de"), "Ständige Last");
}

TEST(Inheritance, SituationIsReplacedAsAWholeOrTakenAway)
{
    const std::string terms = "G = 1\nP = 1\nlead = 1\nothers = 1\nA = none\nE = none\n";
    const std::string base = READER_SAMPLE + "[SITUATION a]\nkind = ultimate\n[SITUATION a / 1]\n" + terms +
                             "[SITUATION a / 2]\n" + terms + "[SITUATION b]\nkind = ultimate\n" + terms;
    const auto read = [&](const std::string& text) {
        return std::get<DesignCode>(readWith({{"sample", base}}, HEAD + text));
    };
    const DesignCode replaced = read("[SITUATION a]\nkind = frequent\n" + terms);
    ASSERT_EQ(replaced.situations.size(), 2u);
    EXPECT_EQ(replaced.situations[1].kind, "frequent");
    EXPECT_EQ(replaced.situations[1].expressions.size(), 1u);
    EXPECT_EQ(read("[SITUATION a]\nremove = yes\n").situations.size(), 1u);
    const DesignCode vouched = read("[SITUATION a]\nstate = verified\n");
    EXPECT_EQ(vouched.situations[0].state, "verified");
    EXPECT_EQ(vouched.situations[0].expressions.size(), 2u) << "who vouches changes no term";
}

TEST(Inheritance, FlatTextSaysTheSameWithoutABase)
{
    const DesignCode code = annex("[ACTION Q]\nPsi0 = 0.6\n[ACTION P]\nafter = G\ncategory = P\n"
                                  "superposition = PERM\n");
    const DesignCode flat = mrl::test::parsed(code.flat);
    EXPECT_EQ(flat.files.size(), 1u);
    EXPECT_THAT(mrl::designcode::differences(code, flat), IsEmpty());
    EXPECT_EQ(namesOf(flat), namesOf(code));
}

TEST(Inheritance, CircleIsRefusedWithItsNames)
{
    const Files files{{"a", "[DESIGN CODE]\nbase = b\n"}, {"b", "[DESIGN CODE]\nbase = a\n"}};
    EXPECT_EQ(firstError(files, "[DESIGN CODE]\nbase = a\n"),
              "b.ini:2:8: the bases go round in a circle: a > b > a: take one of them out");
}

TEST(Inheritance, ChainOfMoreThanFifteenBasesIsRefused)
{
    Files files;
    for (int i = 0; i < 40; ++i) {
        files["b" + std::to_string(i)] = "[DESIGN CODE]\nbase = b" + std::to_string(i + 1) + "\n";
    }
    EXPECT_EQ(firstError(files, "[DESIGN CODE]\nbase = b0\n"),
              "b14.ini:2:8: more than 15 bases stand upon each other: name a base further down");
}

TEST(Inheritance, WhatIsNotThereCannotBeRemovedNorStoodBehind)
{
    const Files files{{"sample", READER_SAMPLE}};
    EXPECT_EQ(firstError(files, HEAD + "[ACTION X]\nremove = yes\n"),
              "annex.ini:5:10: the base has no section 'ACTION X' to remove: leave the section out");
    EXPECT_EQ(firstError(files, HEAD + "[ACTION X]\nafter = Y\ncategory = Q\nsuperposition = COND\n"),
              "annex.ini:5:9: there is no action 'Y' to stand behind: name one of the base, or one that "
              "stands above");
}

TEST(Inheritance, ErrorOfTheBaseNamesTheBase)
{
    const Files files{{"sample", mrl::test::sampleWith("Gamu = 1.35", "Gamu = 1,35")}};
    EXPECT_EQ(firstError(files, HEAD),
              "sample.ini:25:8: '1,35' of entry 'Gamu' is no number: write a point: 1.35");
}

TEST(Differences, TellActionsAndFactors)
{
    const auto found = mrl::designcode::differences(
        mrl::test::parsed(READER_SAMPLE),
        annex("[ACTION Q]\nPsi0 = 0.6\n[ACTION Q_A]\nremove = yes\n[COMBINATIONS]\nKFI = none\n"));
    std::vector<std::string> texts;
    for (const auto& each : found) {
        texts.push_back(mrl::designcode::textOf(each));
    }
    EXPECT_THAT(texts, ElementsAre("combinations KFI: not stated, was 1.1", "action Q Psi0: 0.6, was 0.7",
                                   "action Q_A: is gone"));
}
