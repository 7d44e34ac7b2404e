#pragma once

#include <filesystem>

#include "aluframe/run/input.h"
#include "aluframe/services/session.h"

namespace aluframe::run {

/// The path of a file as it is seen from the folder of another.
inline std::filesystem::path seen_from(const std::filesystem::path& other,
                                       const std::filesystem::path& file) {
  return std::filesystem::absolute(file).lexically_normal().lexically_proximate(
      std::filesystem::absolute(other).lexically_normal().parent_path());
}

/// The same through no links.
inline std::filesystem::path truly_seen_from(const std::filesystem::path& other,
                                             const std::filesystem::path& file) {
  // Made absolute first: a relative path to nothing would stay relative.
  const auto real = [](const std::filesystem::path& path) {
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path));
  };
  return real(file).lexically_proximate(real(other).parent_path());
}

/// A session over what `prepare` has made ready, with the results in the file.
inline services::SessionOptions session_options(const Input& input,
                                                const std::filesystem::path& results) {
  services::SessionOptions session;
  session.result_path = results;
  session.selected = input.elements;
  session.combinations = input.combinations;
  session.model_digest = input.digest;
  session.setup = input.setup;
  session.setup.model_file = truly_seen_from(results, input.file).generic_string();
  session.length_factors = input.length_factors;
  session.restrained = input.restrained.elements;
  if (input.origins.forces) {
    session.setup.forces_file = seen_from(results, *input.origins.forces).generic_string();
  }
  return session;
}

}  // namespace aluframe::run
