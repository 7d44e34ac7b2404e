#include "aluframe/store/digest.h"

#include <fmt/format.h>

// The library's own definitions, compiled into this file.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace aluframe::store {

struct Digest::State {
  XXH3_state_t sum;
};

Digest::Digest() : state_(std::make_unique<State>()) {
  XXH3_128bits_reset(&state_->sum);
}

Digest::~Digest() = default;

void Digest::add(const void* bytes, std::size_t count) {
  if (count > 0) XXH3_128bits_update(&state_->sum, bytes, count);
}

void Digest::add_text(std::string_view text) {
  add(text.size());
  add(text.data(), text.size());
}

std::string Digest::text() const {
  const XXH128_hash_t hash = XXH3_128bits_digest(&state_->sum);
  return fmt::format("{:016x}{:016x}", hash.high64, hash.low64);
}

std::uint64_t Digest::number() const {
  return XXH3_128bits_digest(&state_->sum).low64;
}

}  // namespace aluframe::store
