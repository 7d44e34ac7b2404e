#pragma once

#include <filesystem>
#include <string>

#include "apps/cli/number_ranges.h"
#include "apps/cli/output_table.h"

namespace aluframe::cli {

/// Options that several commands share.
struct CommonOptions {
  NumberRanges elements;
  NumberRanges combinations;
  Format format = Format::table;
};

/// Where the results of a model are kept: beside it, with the extension ".aluresult".
inline std::filesystem::path result_path_of(std::filesystem::path model) {
  return model.replace_extension(".aluresult");
}

}  // namespace aluframe::cli
