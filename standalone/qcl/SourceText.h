#pragma once

#include "StandaloneApi.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace qen::standalone {

/// The bytes of a file, which stay where they are when this is moved. What was moved from is empty.
class QEN_STANDALONE_API FileBytes {
public:
    FileBytes() = default;
    explicit FileBytes(std::string_view p_copied);
    FileBytes(FileBytes&& p_other) noexcept { swap(p_other); }
    FileBytes& operator=(FileBytes&& p_other) noexcept
    {
        FileBytes(std::move(p_other)).swap(*this);
        return *this;
    }
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;
    ~FileBytes() = default;

    std::string_view view() const { return {m_memory.get() + m_begin, m_size - m_begin}; }

    /// Leaves bytes at the beginning out; there must be as many.
    void dropFront(std::size_t p_count) { m_begin += p_count; }

    /// Room behind the bytes, for at least as many more. What is written there counts once it is added.
    char* room(std::size_t p_count);
    void add(std::size_t p_count) { m_size += p_count; }

private:
    void swap(FileBytes& p_other) noexcept
    {
        m_memory.swap(p_other.m_memory);
        std::swap(m_capacity, p_other.m_capacity);
        std::swap(m_begin, p_other.m_begin);
        std::swap(m_size, p_other.m_size);
    }

    std::unique_ptr<char[]> m_memory;    // not initialised: a large file is written once
    std::size_t m_capacity = 0;
    std::size_t m_begin = 0;
    std::size_t m_size = 0;    // from the beginning of the memory
};

/// Why there is no text.
struct ReadFailure {
    enum class Kind { Unreadable, TooLarge };

    Kind kind = Kind::Unreadable;
    std::string reason;    ///< of an unreadable file: what the system says
};

/// The bytes of a file, no more of them than is admitted.
///
/// @param p_onlyPlainFile  Refuses devices and pipes, which could make the reader wait.
QEN_STANDALONE_API std::variant<FileBytes, ReadFailure>
readBytes(const std::string& p_path, std::size_t p_mostBytes, bool p_onlyPlainFile);

/// The text of a file from its bytes: a byte order mark is dropped.
FileBytes withoutByteOrderMark(FileBytes p_bytes);

/// Whether bytes are no text at all but hold a zero, as programs, archives and 16-bit encodings do.
bool isBinary(std::string_view p_bytes);

}    // namespace qen::standalone
