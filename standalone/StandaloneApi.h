#pragma once

/// @file
/// What the standalone host's shared library shows to those that link it.

#if defined(__GNUC__) || defined(__clang__)
#define QEN_STANDALONE_API __attribute__((visibility("default")))
#else
#define QEN_STANDALONE_API
#endif
