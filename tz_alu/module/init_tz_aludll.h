#pragma once

#include "tz_alu/tz_alu_api.h"

/// Does nothing. A host calls it to make sure that the module is loaded: loading registers the
/// module with the framework, and its resource symbols with the host's resource manager under the
/// name "tz_alu".
extern "C" TZ_ALU_API void Init_tz_aludll();
