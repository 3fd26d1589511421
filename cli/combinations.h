#pragma once

/// What the commands about combinations read of a project.

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/command_project.h"
#include "combine/plan.h"
#include "combine/project/project_model.h"
#include "combine/response_file.h"

namespace mrl::cli {

/// A situation with its plan. Its plan can be valued: nothing of it was refused.
struct PlannedSituation
{
    const LCM_Situation* situation = nullptr;
    combine::Plan plan;

    /// The name of an expression for people and JSON; empty where the situation has just one without a name.
    const std::string& expression(int number) const
    {
        return plan.expressions[static_cast<std::size_t>(number)];
    }
    bool hasCombination() const;
};

/// The actions and load cases of a project, and the situations of its design code. Every failure is thrown.
class Combinations
{
  public:
    explicit Combinations(const Project& project);

    /// Plans a situation. The load cases that take no part in it are told on standard error, each once.
    PlannedSituation plan(const std::string& name) const;
    /// The names of all situations.
    std::vector<std::string> names() const;
    const combine::Model& model() const { return m_project.model; }

  private:
    const LCM_Situation& require(const std::string& name) const;
    void tellLeftOut(const std::vector<combine::Remark>& remarks) const;

    std::string m_file;
    std::vector<LCM_Situation> m_situations;
    combine::ProjectModel m_project;
    mutable std::set<std::string> m_told; ///< notes that were printed
};

/// Opens a file of responses that has a column for every load case of the situations.
std::unique_ptr<combine::ResponseFile> openResponses(const std::string& file, const std::string& numbers,
                                                     const Combinations& combinations,
                                                     const std::vector<PlannedSituation>& situations);

/// A line on standard error that is no failure.
void note(const std::string& text);

} // namespace mrl::cli
