#pragma once

#include "host/host_services.h"

namespace aluframe::services {

/// Binds a host for the time of a run.
class Binding {
 public:
  explicit Binding(host::HostServices& services) { host::Bind(services); }
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  ~Binding() { host::Unbind(); }
};

}  // namespace aluframe::services
