#pragma once

#include <filesystem>
#include <iosfwd>

namespace resources {

/// Where a run reads and writes.
struct Paths {
  std::filesystem::path header;  ///< the symbols, see symbols.h
  std::filesystem::path script;  ///< the resources, see script.h
  std::filesystem::path output;  ///< a folder; it gets resource_header.bin and module_resources.cpp
};

/// Turns a script into the source file that the module is built with. Nothing is written unless
/// header and script are right, and a file is either whole or not there.
/// @param errors gets one line when something is wrong
/// @return the program's exit status: 0, or 1 when something is wrong
int compile(const Paths& paths, std::ostream& errors);

}  // namespace resources
