#pragma once

#include <string>

namespace aluframe::area_loads {

/// Why an area load cannot be distributed. Thrown inside this library, returned by what it exports.
struct Fault {
  std::string field;  ///< JSON path within the load, such as "/elements/3"; empty: all of it
  std::string text;   ///< what is wrong and what is allowed
};

}  // namespace aluframe::area_loads
