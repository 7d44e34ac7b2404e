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
/// within 1e-3 rad and of the same member type, or without such a one through a kink of up to 15°;
/// of kind beam, of the same section and material. The elements may point either way, and their
/// sections may be turned against each other. It ends at a node
/// - with a support or a spring,
/// - where one of the two elements is released in any direction,
/// - where something holds it: an element from which the frame leads to a support past the chain.
///   Brackets, arms and what else the chain alone carries hold nothing. Straight on, columns are
///   held by beam elements that no release of a bending moment makes hinges (a storey ends at the
///   beams that restrain it, a mullion runs on past hinged transoms), beams and inclined elements
///   by columns; at a kink whatever frames in holds.
/// Axial-only elements and elements that carry length factors of their own stand alone: such a
/// factor was meant for the element's own length.
///
/// The model must be consistent, as its reader leaves it.
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
