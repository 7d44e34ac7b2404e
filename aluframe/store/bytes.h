#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <stdexcept>
#include <type_traits>

namespace aluframe::store {

/// Thrown when packed bytes cannot be what the packing wrote: the file is damaged.
class DamagedRow : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes `value` at `out`, low byte first, on any machine. `out` has room for it.
/// @return the place behind it
template <class Unsigned>
std::byte* put(std::byte* out, Unsigned value) {
  static_assert(std::is_unsigned_v<Unsigned>);
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(out, &value, sizeof(Unsigned));
  } else {
    for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
      out[i] = static_cast<std::byte>(value >> (8 * i));
    }
  }
  return out + sizeof(Unsigned);
}

/// Reads values written by `put` one after another and never beyond the end.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::byte> bytes) : rest_(bytes) {}

  template <class Unsigned>
  Unsigned get() {
    static_assert(std::is_unsigned_v<Unsigned>);
    const std::span<const std::byte> bytes = take(sizeof(Unsigned));
    Unsigned value = 0;
    for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
      value = static_cast<Unsigned>(value | static_cast<Unsigned>(bytes[i]) << (8 * i));
    }
    return value;
  }

  /// The next `size` bytes. @throws DamagedRow when fewer are left
  std::span<const std::byte> take(std::size_t size) {
    if (size > rest_.size()) throw DamagedRow("a packed row ends too early");
    const std::span<const std::byte> taken = rest_.first(size);
    rest_ = rest_.subspan(size);
    return taken;
  }

  std::span<const std::byte> rest() const { return rest_; }

 private:
  std::span<const std::byte> rest_;
};

}  // namespace aluframe::store
