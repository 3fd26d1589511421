#pragma once

/// All combinations of a situation as graphs, one for each expression.
///
/// A graph has a layer for each unit, in the order of Prepared::units, and a combination is a way through it from the
/// start to the end: an edge lets a unit rest, or lets one of its members act by a pattern. What must be remembered
/// between units (who leads, how many act, which alternative of a bracket was taken ...) makes the nodes of a layer. So
/// the best combination is the longest way, the choices are the number of ways, and the list is a walk; each is exact,
/// and costs as much as there are edges.

#include <string>
#include <vector>

#include "combine/model.h"
#include "combine/pattern.h"
#include "combine/prepare.h"

namespace mrl::combine {

/// A member that acts.
struct Act
{
    int unit = 0;
    int member = 0;
    LCM_Role role = LCM_Role::Others;
    Pattern pattern;

    bool leads() const { return role == LCM_Role::Lead; }
};

struct Edge
{
    int from = 0; ///< nodes are numbered through all layers; 0 is the start
    int to = 0;   ///< greater than `from`
    int act = -1; ///< in Plan::acts; -1: the unit rests
};

/// The combinations of one expression; none where there are no edges and more than one node.
struct Graph
{
    int nodes = 1;
    int end = -1;                ///< the node at which all combinations end; -1: there is none
    std::vector<Edge> edges;     ///< by layer
    std::vector<int> layerStart; ///< of each unit the first of its edges, and the number of edges
};

struct Plan
{
    std::string situation;
    std::vector<std::string> expressions; ///< their names
    Prepared prepared;                    ///< nothing else holds where it was refused
    std::vector<std::string> idle;        ///< actions with load cases that act in no combination
    std::vector<Act> acts;
    std::vector<Graph> graphs; ///< one for each expression

    /// Edges of all graphs: what one response costs beside the pass over its load cases.
    std::size_t cost() const;
};

/// Prepares a model and makes the graphs of a situation. A constant that the model lacks is refused.
Plan plan(const Model& model, const LCM_Situation& situation);

/// Adds the load cases of a member to a key, those of factor 0 left out.
void addShares(const Prepared& prepared, const Member& member, const std::vector<double>& factors, Key& key);

} // namespace mrl::combine
