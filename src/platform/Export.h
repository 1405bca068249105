#pragma once

/// Marks what the shared library exports for hosts. All other names stay hidden.
#if defined(_WIN32) && defined(VEKA_BUILDING)
#define VEKA_API __declspec(dllexport)
#elif defined(VEKA_STATIC)
#define VEKA_API
#elif defined(_WIN32)
#define VEKA_API __declspec(dllimport)
#else
#define VEKA_API __attribute__((visibility("default")))
#endif
