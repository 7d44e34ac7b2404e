#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "aluframe/run/document.h"

// The calculation document as a file.

namespace aluframe::document {

/// How far the document derives its checks.
enum class DocumentDetail {
  summary,    ///< not at all
  governing,  ///< the worst check of every element
  full        ///< every check item of every element
};
std::optional<DocumentDetail> parse_document_detail(std::string_view name);

/// False for a file of somebody else's: nothing of it would be left. True where no file stands, for
/// an empty one, for an earlier document, and for what is no ordinary file.
bool may_be_replaced(const std::filesystem::path& html);

/// Writes all of the document, or leaves the file as it was.
/// @param results that the content was gathered by
/// @param go_on called before each section and each derivation, and at the end; what it throws ends
///   the document
/// @throws that; std::runtime_error with the reason when the file cannot be written or a check
///   cannot be explained
void publish_document(const std::filesystem::path& html, const run::DocumentContent& content,
                      const std::filesystem::path& results, DocumentDetail detail,
                      const std::function<void()>& go_on);

}  // namespace aluframe::document
