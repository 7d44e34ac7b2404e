#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/model/model.h"
#include "aluframe/store/result_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

/// How forces came about where displacements of any size were followed.
inline constexpr const char* large_displacements = texts::translatable("large displacements");

/// Where what a run goes by comes from.
struct SetupOrigins {
  std::vector<std::string> given_settings;      ///< fields of the model's "settings"
  std::optional<std::filesystem::path> forces;  ///< file in place of the model's forces
  /// On request, not by the model: second order, with large displacements or without.
  bool second_order_asked = false;
};

/// The settings that matter for every ratio and where they come from: safety class, ribs, strength
/// ratio, seismic factors, length factors, and how forces come about. `model` has its members.
/// `factors` are those of the model, `analysis` is how its forces come about.
store::RunSetup setup_of(const model::Model& model, const SetupOrigins& origins,
                         const std::vector<members::SegmentFactors>& factors,
                         store::SettingRow analysis);

/// How forces come about. `model` has those that it is given, but none that are computed.
store::SettingRow analysis_setting(const model::Model& model, const SetupOrigins& origins);

}  // namespace aluframe::run
