#pragma once

#include <optional>
#include <string>
#include <vector>

namespace aluframe::platform {

/// The words of the command line in UTF-8, the program's name first. @param argv as `main` has them
std::vector<std::string> command_line(int argc, char** argv);

/// A variable of the environment in UTF-8; nothing when it is not set.
std::optional<std::string> environment_variable(const char* name);

/// The locale that the user's messages are in, such as "zh_CN.UTF-8"; empty when none is named.
std::string locale_of_messages();

}  // namespace aluframe::platform
