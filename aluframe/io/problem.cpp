#include "aluframe/io/problem.h"

#include "aluframe/texts/text.h"

namespace aluframe::io {

std::string Fault::message() const {
  std::string where = line == 0 ? "" : texts::translated("line {}", line) + ": ";
  where += place;
  if (!entity.empty()) where += " (" + entity + ")";
  return where + (place.empty() ? "" : ": ") + text;
}

std::string Problem::message() const {
  std::string out = file + ": " + Fault{place, text, line, entity}.message();
  for (const Fault& fault : others) out += '\n' + file + ": " + fault.message();
  if (has_more) out += '\n' + file + ": " + texts::translated("and more faults");
  return out;
}

}  // namespace aluframe::io
