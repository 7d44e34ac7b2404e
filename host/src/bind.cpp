#include <stdexcept>

#include "host/host_services.h"

namespace host {

namespace {

HostServices* bound = nullptr;

}  // namespace

void Bind(HostServices& services) {
  bound = &services;
}

void Unbind() {
  bound = nullptr;
}

HostServices& Bound() {
  if (bound == nullptr) throw std::logic_error("no host is bound: call host::Bind first");
  return *bound;
}

}  // namespace host
