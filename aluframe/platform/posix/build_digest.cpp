#include "aluframe/platform/build_digest.h"

#include <elf.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace aluframe::platform {

namespace {

/// What the numbers of a check come from; the program itself has no name.
constexpr std::array<std::string_view, 3> libraries = {"/libtz_alu.", "/libaluhost.", "/libm."};

bool matters(const char* name) {
  const std::string_view path = name;
  return path.empty() || std::ranges::any_of(libraries, [&](std::string_view library) {
           return path.find(library) != std::string_view::npos;
         });
}

/// FNV-1a.
void mix(std::uint64_t& hash, std::span<const unsigned char> bytes) {
  constexpr std::uint64_t prime = 0x100000001B3;
  for (const unsigned char byte : bytes) hash = (hash ^ byte) * prime;
}

constexpr std::size_t padded(std::size_t size) {
  return (size + 3) / 4 * 4;
}

/// Notes are a head, a padded name and a padded content, one after another.
void mix_build_ids(std::uint64_t& hash, std::span<const unsigned char> notes) {
  while (notes.size() >= sizeof(ElfW(Nhdr))) {
    ElfW(Nhdr) head;
    std::ranges::copy(notes.first(sizeof head), reinterpret_cast<unsigned char*>(&head));
    const std::size_t content = sizeof head + padded(head.n_namesz);
    const std::size_t size = content + padded(head.n_descsz);
    if (size > notes.size()) return;
    if (head.n_type == NT_GNU_BUILD_ID) mix(hash, notes.subspan(content, head.n_descsz));
    notes = notes.subspan(size);
  }
}

extern "C" int mix_object(dl_phdr_info* object, std::size_t, void* hash) {
  if (!matters(object->dlpi_name)) return 0;
  for (const ElfW(Phdr) & part : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
    if (part.p_type != PT_NOTE) continue;
    const auto* notes = reinterpret_cast<const unsigned char*>(object->dlpi_addr + part.p_vaddr);
    mix_build_ids(*static_cast<std::uint64_t*>(hash), {notes, part.p_memsz});
  }
  return 0;
}

}  // namespace

// Of the build ids that the linker has given them; what has none does not count.
std::uint64_t build_digest() {
  std::uint64_t hash = 0xCBF29CE484222325;
  dl_iterate_phdr(mix_object, &hash);
  return hash;
}

}  // namespace aluframe::platform
