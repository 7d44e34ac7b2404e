#pragma once

#include <exception>
#include <string>

namespace aluframe::files {

/// What an exception means to the user: its own words, or what to do where these are a program's.
///
/// - no memory: what the run may be limited to
/// - a fault of the program: that it is one, with the words for whoever mends it
/// - an error of the system: the system's words alone
std::string error_text(const std::exception& error);

}  // namespace aluframe::files
