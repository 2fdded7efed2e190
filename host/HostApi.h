#pragma once

/// @file
/// Visibility of the host's classes. Type information and symbols cross the border between library and host in both
/// directions, so every class declared here is visible whatever the compiler's default is.

#if defined(__GNUC__) || defined(__clang__)
#define QEN_HOST_API __attribute__((visibility("default")))
#else
#define QEN_HOST_API
#endif
