#pragma once

/// @file
/// What leaves the library: everything else in it is hidden.

#if defined(__GNUC__) || defined(__clang__)
#define QEN_PREVARIABLES_API __attribute__((visibility("default")))
#else
#define QEN_PREVARIABLES_API
#endif
