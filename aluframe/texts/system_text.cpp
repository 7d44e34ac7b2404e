#include "aluframe/texts/system_text.h"

#include "aluframe/texts/text.h"

namespace aluframe::texts {

namespace {

/// What files most often fail with, in the system's words.
[[maybe_unused]] constexpr const char* usual_texts[] = {
    translatable("No such file or directory"),
    translatable("Permission denied"),
    translatable("Is a directory"),
    translatable("Not a directory"),
    translatable("No space left on device"),
    translatable("Disk quota exceeded"),
    translatable("File too large"),
    translatable("File exists"),
    translatable("File name too long"),
    translatable("Read-only file system"),
    translatable("Too many levels of symbolic links"),
    translatable("Too many open files"),
    translatable("Input/output error"),
    translatable("Operation not permitted"),
    translatable("Cannot allocate memory"),
    translatable("No such device or address"),
    translatable("Broken pipe"),
    translatable("Text file busy"),
    translatable("Device or resource busy"),
};

}  // namespace

std::string system_text(const std::error_code& error) {
  return std::string(translation_of(error.message()));
}

std::string system_text(int error) {
  return system_text(std::error_code(error, std::generic_category()));
}

}  // namespace aluframe::texts
