#pragma once

/// Marks what the shared libraries show; everything else is hidden in them.
#if defined(__GNUC__) && !defined(_WIN32)
#define KT7_API __attribute__((visibility("default")))
#else
#define KT7_API
#endif
