#pragma once

/// All combinations of a small model, written apart from combine/: every selection of load cases of every action is
/// made, with every leading action and every first short-term one, and those that the situation forbids are thrown out
/// afterwards.

#include <functional>
#include <vector>

#include "combine/model.h"

namespace oracle {

struct Found
{
    int expression = 0;
    std::vector<double> factors; ///< of the load cases, in the order of Model::loadCases
};

/// The number of selections that `all` goes through, for one expression; at most `limit` is counted.
double selections(const mrl::combine::Model& model, const LCM_Situation& situation);

/// Tells every choice once.
void all(const mrl::combine::Model& model, const LCM_Situation& situation,
         const std::function<void(const Found&)>& tell);

} // namespace oracle
