#pragma once

#include "host/framework/resources.h"

/// The module's dialogs and binary data. Its definition is made from `tz_alu.rc` and `resource.h`
/// when the module is built.
extern const MODULE_RESOURCES kModuleResources;
