#pragma once

#include <cstddef>
#include <vector>

#include "aluframe/model/model.h"

/// Members of a frame: chains of elements that buckle and are checked as one.
namespace aluframe::members {

/// The chains of two or more elements that belong together, for the elements that are in no member
/// yet. Numbers are the lowest free ones, in the order of the file; a chain runs the way its
/// earliest element does.
///
/// A chain goes on through a node when exactly one other element continues it there: collinear
/// within 1e-3 rad, of kind beam, of the same section, material and member type, its section turned
/// the same way (the elements themselves may point either way). It ends at a node
/// - with a support or a spring,
/// - where one of the two elements is released in any direction,
/// - of a column, where another beam element frames in that no release of a bending moment makes
///   a hinge: a storey ends at the beams that restrain it, a mullion runs on past hinged transoms,
/// - of a beam or an inclined element, where a column frames in: the column carries it.
/// Axial-only elements and elements that carry length factors of their own stand alone: such a
/// factor was meant for the element's own length.
///
/// The model must be consistent, as its reader leaves it. Takes time linear in the elements as long
/// as few meet at a node.
std::vector<model::Member> find_members(const model::Model& model);

/// Adds the members that are found to a model whose file names none (`Model::finds_members`);
/// leaves any other as it is. Doing it twice adds nothing.
///
///     auto model = std::get<model::Model>(io::read_model(path));
///     members::complete(model);
///
/// @return how many were added
std::size_t complete(model::Model& model);

}  // namespace aluframe::members
