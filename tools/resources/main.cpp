// Turns a resource script into the source file that a module carries its resources in.

#include <iostream>

#include "tools/resources/compile.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: resource_compiler RESOURCE_H RC_FILE OUT_DIR\n";
    return 1;
  }
  return resources::compile({argv[1], argv[2], argv[3]}, std::cerr);
}
