#pragma once

#include <cstddef>
#include <string>
#include <variant>

namespace qen::standalone {

/// Why there is no text.
struct ReadFailure {
    enum class Kind { Unreadable, TooLarge };

    Kind kind = Kind::Unreadable;
    std::string reason;    ///< of an unreadable file: what the system says
};

/// The bytes of a file, no more of them than is admitted.
///
/// @param p_onlyPlainFile  Refuses devices and pipes, which could make the reader wait.
std::variant<std::string, ReadFailure> readBytes(const std::string& p_path, std::size_t p_mostBytes,
                                                 bool p_onlyPlainFile);

/// The text of a file from its bytes: a byte order mark is dropped.
std::string withoutByteOrderMark(std::string p_bytes);

/// Whether bytes are no text at all but hold a zero, as programs, archives and 16-bit encodings do.
bool isBinary(const std::string& p_bytes);

}    // namespace qen::standalone
