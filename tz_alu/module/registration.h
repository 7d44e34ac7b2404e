#pragma once

namespace alu_module {

/// Starts the module as an extension of the framework, and registers its dialogs with the framework
/// and its resource symbols with the host's resource manager. Dialogs that cannot be registered are
/// told on standard error: the checks run without them.
/// @return false when the framework does not start the module, which then must not be used
bool Start() noexcept;

/// Ends what `Start` started.
void End() noexcept;

}  // namespace alu_module
