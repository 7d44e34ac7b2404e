#include "aluframe/points/line_source.h"

namespace aluframe::points {

bool LineSource::next() {
  try {
    return read_line();
  } catch (const std::ios_base::failure&) {  // the buffer's own way to report a read error
    failed_ = true;
    return false;
  }
}

bool LineSource::read_line() {
  using Traits = std::istream::traits_type;
  text_.clear();
  too_long_ = false;
  std::streambuf& buffer = *in_.rdbuf();
  auto c = buffer.sbumpc();
  if (Traits::eq_int_type(c, Traits::eof())) return false;
  ++number_;
  for (; !Traits::eq_int_type(c, Traits::eof()) && c != '\n'; c = buffer.sbumpc()) {
    if (text_.size() < longest_line) {
      text_.push_back(Traits::to_char_type(c));
    } else {
      too_long_ = true;
    }
  }
  if (!too_long_ && text_.ends_with('\r')) text_.pop_back();
  return true;
}

}  // namespace aluframe::points
