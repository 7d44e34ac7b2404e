#pragma once

#include <filesystem>
#include <string>

namespace alu_report {

/// The file of a wide name. On systems whose file names are bytes these are UTF-8, whatever the
/// user's locale; what is no Unicode character becomes U+FFFD.
std::filesystem::path FilePath(const std::wstring& name);

}  // namespace alu_report
