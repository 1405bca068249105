#pragma once

/// Marks what a host may link against; everything else stays hidden in the shared library.
#if defined(_WIN32) && defined(VEKA_BUILDING)
#define VEKA_API __declspec(dllexport)
#elif defined(VEKA_STATIC)
#define VEKA_API
#elif defined(_WIN32)
#define VEKA_API __declspec(dllimport)
#else
#define VEKA_API __attribute__((visibility("default")))
#endif
