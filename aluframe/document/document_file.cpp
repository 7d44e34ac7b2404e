#include "aluframe/document/document_file.h"

#include <fstream>
#include <ostream>
#include <string>
#include <system_error>

#include "aluframe/document/document.h"
#include "aluframe/files/publication.h"

namespace aluframe::document {

namespace {

namespace fs = std::filesystem;

Derivations derivations_of(const run::DocumentContent& content, const fs::path& results,
                           DocumentDetail detail, const std::function<void()>& go_on) {
  if (detail == DocumentDetail::summary) return nullptr;
  const auto of_checks = detail == DocumentDetail::full ? run::DerivationDetail::full
                                                        : run::DerivationDetail::governing;
  return [&content, &results, &go_on,
          of_checks](const std::function<void(const run::ExplainedCheck&)>& take) {
    run::derive_checks(content, results, of_checks, [&](const run::ExplainedCheck& check) {
      go_on();
      take(check);
    });
  };
}

}  // namespace

std::optional<DocumentDetail> parse_document_detail(std::string_view name) {
  if (name == "summary") return DocumentDetail::summary;
  if (name == "governing") return DocumentDetail::governing;
  return name == "full" ? std::optional(DocumentDetail::full) : std::nullopt;
}

bool may_be_replaced(const fs::path& html) {
  std::error_code ignored;
  if (!fs::is_regular_file(html, ignored)) return true;
  // The head of a document names the program.
  constexpr std::size_t head_bytes = 512;
  std::string head(head_bytes, '\0');
  std::ifstream file(html, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(file.gcount()));
  if (head.empty()) return true;
  return head.starts_with("<!DOCTYPE html>") && head.find(generator) != std::string::npos;
}

void publish_document(const fs::path& html, const run::DocumentContent& content,
                      const fs::path& results, DocumentDetail detail,
                      const std::function<void()>& go_on) {
  files::publish_stream(html, [&](std::ostream& out) {
    write_document(out, content, derivations_of(content, results, detail, go_on), go_on);
    go_on();
  });
}

}  // namespace aluframe::document
