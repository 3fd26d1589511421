/// The sample frame, read from its text.

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "combine/checker.h"
#include "tests/combine/samples.h"

namespace {

using namespace samples;

/// The actions of the frame are the default ones of EN 1990; what differs of them stands here.
Action defaultAction(const std::string& name)
{
    const auto variable = [&](Superposition superposition, float psi0, float psi1, float psi2) {
        return Action{name, Category::Variable, superposition, 0, factors(1.5f, 0, psi0, psi1, psi2)};
    };
    if (name == "G" || name == "P") {
        const bool isPrestress = name == "P";
        return {name, isPrestress ? Category::Prestress : Category::Permanent, LC_SUPERPOSITION_PERM, 0,
                factors(isPrestress ? 1.0f : 1.35f, 1)};
    }
    if (name == "SET") {
        return {name, Category::Permanent, LC_SUPERPOSITION_COND, 0, factors(1.35f, 1)};
    }
    if (name == "A" || name == "E") {
        return {name, name == "A" ? Category::Accidental : Category::Seismic, LC_SUPERPOSITION_EXCL, 0,
                factors(1, 0, 0, 0, 0)};
    }
    return name == "Q_E"   ? variable(LC_SUPERPOSITION_COND, 1.0f, 0.9f, 0.8f)
           : name == "Q_H" ? variable(LC_SUPERPOSITION_COND, 0, 0, 0)
           : name == "S"   ? variable(LC_SUPERPOSITION_EXCL, 0.5f, 0.2f, 0)
           : name == "W"   ? variable(LC_SUPERPOSITION_EXCL, 0.6f, 0.2f, 0)
           : name == "T"   ? variable(LC_SUPERPOSITION_EXCL, 0.6f, 0.5f, 0)
                           : variable(LC_SUPERPOSITION_COND, 0.7f, 0.5f, 0.3f);
}

Model frame()
{
    Model model;
    model.constants = {{"KFI", 1.0f}, {"XSI", 0.85f}};
    std::ifstream file(MRL_SAMPLES "/frame.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string step;
        words >> step;
        if (step == "action") {
            std::string name;
            words >> name;
            model.actions.push_back(defaultAction(name));
        } else if (step == "case") {
            LoadCase loadCase;
            words >> loadCase.number >> loadCase.action;
            loadCase.isImperfection = loadCase.action == "IMP";
            loadCase.action = loadCase.isImperfection ? "" : loadCase.action;
            model.loadCases.push_back(loadCase);
        }
    }
    return model;
}

TEST(SampleFrame, Has15233672PersistentChoices)
{
    ASSERT_EQ(frame().loadCases.size(), 38u);
    const Plan made = plan(frame(), situation(PERSISTENT));
    EXPECT_EQ(made.prepared.leftOut.size(), 4u); // the imperfections
    EXPECT_EQ(countChoices(made).all, 15233672);
}

TEST(SampleFrame, Has8501576DifferentVectorsOfFactors)
{
    EXPECT_EQ(countDistinct(plan(frame(), situation(PERSISTENT))).all, 8501576);
}

TEST(SampleFrame, GoverningKeyIsAllowedAndMaximal)
{
    const Model model = frame();
    const LCM_Situation persistent = situation(PERSISTENT);
    const Plan made = plan(model, persistent);
    Envelope envelope(made, numbersOf(model));
    std::vector<double> row;
    std::map<int, double> responses;
    for (const LoadCase& loadCase : model.loadCases) {
        row.push_back((loadCase.number * 37) % 23 - 11);
        responses[loadCase.number] = row.back();
    }
    const auto combination = envelope.combination(row.data(), Envelope::Direction::Max);
    ASSERT_TRUE(combination);
    const Checker checker(model, persistent);
    EXPECT_TRUE(checker.allows(combination->key));
    EXPECT_NEAR(checker.greatest(responses), envelope.value(combination->key, row.data()), 1e-9);
}

} // namespace
