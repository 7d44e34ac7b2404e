#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

#include "aluframe/model/plain_text.h"

namespace aluframe::store {

/// A name or a sentence of a result file. Models hold lines of plain text only; another program may
/// have changed the file, and what it wrote is not to look like lines of ours.
inline std::string stored_line(const SQLite::Column& column) {
  return model::without_control_characters(column.getString());
}

}  // namespace aluframe::store
