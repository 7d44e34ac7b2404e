#pragma once

#include <optional>
#include <string>

#include "host/tz_db/load_cases.h"

namespace alu_report {

/// Name of a combination's term, right-aligned in 14 characters, as the host knows it by its kind.
/// A term of an unknown kind raises the release assertion and has an empty name. Nothing when the
/// host lacks a moving-load case: the term is then left out of the list.
std::optional<std::wstring> EntryName(const T_LCOM_ENTRY_D& entry);

}  // namespace alu_report
