#pragma once

#include <optional>
#include <vector>

#include "aluframe/model/model.h"

/// What of a model can be changed in its file, and what of it differs from the file.
///
///     const io::Editable saved = io::editable_of(model);
///     ... the user works on the model ...
///     const io::ModelChanges changes = io::changes_since(saved, model);
namespace aluframe::io {

/// What an element has for its design.
struct ElementAttributes {
  model::Number number = 0;
  model::ElementDesign design;
  std::optional<model::MemberType> member_type = std::nullopt;

  friend bool operator==(const ElementAttributes&, const ElementAttributes&) = default;
};

/// The effective length factors that a member of the file is given.
struct MemberFactors {
  model::Number number = 0;
  std::optional<model::ElementDesign::AxisPair> length_factors;

  friend bool operator==(const MemberFactors&, const MemberFactors&) = default;
};

/// All of a model that can be changed in its file.
struct Editable {
  std::optional<model::DesignSettings> settings;
  model::Table<model::Material> materials;
  model::Table<model::Section> sections;
  model::Table<ElementAttributes> elements;
  /// Of the members that the file names: those that are found are not in the file.
  model::Table<MemberFactors> members;
};

/// What is to be different in a model's file: each in place of the one with its number.
struct ModelChanges {
  std::optional<model::DesignSettings> settings = std::nullopt;  ///< nothing: as they are
  std::vector<model::Material> materials = {};
  std::vector<model::Section> sections = {};
  std::vector<ElementAttributes> elements = {};
  std::vector<MemberFactors> members = {};
  /// In place of all combinations and of the rule that makes them; nothing: as they are.
  std::optional<std::vector<model::Combination>> combinations = std::nullopt;

  bool empty() const {
    return !settings && materials.empty() && sections.empty() && elements.empty() &&
           members.empty() && !combinations;
  }
};

ElementAttributes attributes_of(const model::Element& element);
MemberFactors factors_of(const model::Member& member);

/// What the file of a model that was just read or saved holds.
Editable editable_of(const model::Model& model);

/// What of a model differs from what its file holds. Settings that a model is without are the
/// defaults; a file that has some keeps them with these values.
ModelChanges changes_since(const Editable& saved, const model::Model& now);

/// Makes the changes in a model. What it has no entity for is left out.
void apply_changes(const ModelChanges& changes, model::Model& model);

/// Whether both are the same but for the last digits of lengths, which a file in another unit than
/// mm may be unable to hold.
bool same_in_file(const model::Material& a, const model::Material& b);
bool same_in_file(const model::Section& a, const model::Section& b);
bool same_in_file(const model::ElementDesign& a, const model::ElementDesign& b);
bool same_in_file(const ElementAttributes& a, const ElementAttributes& b);
bool same_in_file(const MemberFactors& a, const MemberFactors& b);

}  // namespace aluframe::io
