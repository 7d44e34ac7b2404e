#pragma once

/// TZ_ALU_API marks what the module exports. TZ_ALU_BUILDING is defined while it is built.
#if defined(_WIN32)
#if defined(TZ_ALU_BUILDING)
#define TZ_ALU_API __declspec(dllexport)
#else
#define TZ_ALU_API __declspec(dllimport)
#endif
#else
#define TZ_ALU_API __attribute__((visibility("default")))
#endif
