#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace aluframe::store {

/// The XXH3 of what is added to it, piece by piece: it finds any damage, and is no protection
/// against who wants to deceive.
class Digest {
 public:
  Digest();
  ~Digest();
  Digest(const Digest&) = delete;
  Digest& operator=(const Digest&) = delete;

  void add(const void* bytes, std::size_t count);
  template <class Number>
    requires std::is_arithmetic_v<Number>
  void add(Number number) {
    add(&number, sizeof number);
  }
  /// With its length, so that texts do not run into each other.
  void add_text(std::string_view text);

  /// 128 bits as 32 hexadecimal digits.
  std::string text() const;
  /// 64 bits.
  std::uint64_t number() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace aluframe::store
