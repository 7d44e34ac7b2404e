#pragma once

/// HOST_API marks what the host library exports. HOST_BUILDING is defined while it is built.
#if defined(_WIN32)
#if defined(HOST_BUILDING)
#define HOST_API __declspec(dllexport)
#else
#define HOST_API __declspec(dllimport)
#endif
#else
#define HOST_API __attribute__((visibility("default")))
#endif
