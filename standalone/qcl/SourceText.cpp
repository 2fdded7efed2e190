#include "qcl/SourceText.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qen::standalone {

namespace {

ReadFailure unreadable(int p_error)
{
    return {ReadFailure::Kind::Unreadable, std::generic_category().message(p_error)};
}

}    // namespace

FileBytes::FileBytes(std::string_view p_copied)
{
    if (!p_copied.empty())
        std::memcpy(room(p_copied.size()), p_copied.data(), p_copied.size());
    add(p_copied.size());
}

char* FileBytes::room(std::size_t p_count)
{
    if (m_capacity - m_size < p_count)
    {
        const std::size_t capacity = std::max(m_size + p_count, 2 * m_capacity);
        std::unique_ptr<char[]> memory = std::make_unique_for_overwrite<char[]>(capacity);
        if (m_size != 0)
            std::memcpy(memory.get(), m_memory.get(), m_size);
        m_memory = std::move(memory);
        m_capacity = capacity;
    }
    return m_memory.get() + m_size;
}

std::variant<FileBytes, ReadFailure> readBytes(const std::string& p_path, std::size_t p_mostBytes,
                                               bool p_onlyPlainFile)
{
    namespace fs = std::filesystem;

    std::error_code failure;
    const fs::file_status status = fs::status(p_path, failure);
    if (failure)
        return ReadFailure {ReadFailure::Kind::Unreadable, failure.message()};
    if (fs::is_directory(status))
        return unreadable(EISDIR);
    if (p_onlyPlainFile && !fs::is_regular_file(status))
        return ReadFailure {ReadFailure::Kind::Unreadable, "Not a plain file"};

    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    const File file(std::fopen(p_path.c_str(), "rb"), &std::fclose);
    if (!file)
        return unreadable(errno);

    // A plain file says how large it is, though it may grow meanwhile; a byte more shows the end.
    constexpr std::size_t k_leastStretch = std::size_t {1} << 16;
    std::size_t stretch = k_leastStretch;
    if (fs::is_regular_file(status))
        if (const std::uintmax_t size = fs::file_size(p_path, failure); !failure)
            stretch = std::max<std::size_t>(stretch, std::min<std::uintmax_t>(size, p_mostBytes) + 1);
    if (std::setvbuf(file.get(), nullptr, _IONBF, 0) != 0)
        return unreadable(errno);

    FileBytes bytes;
    for (bool isWhole = false; !isWhole; stretch = std::max(k_leastStretch, bytes.view().size()))
    {
        const std::size_t more = std::fread(bytes.room(stretch), 1, stretch, file.get());
        bytes.add(more);
        if (bytes.view().size() > p_mostBytes)
            return ReadFailure {ReadFailure::Kind::TooLarge, {}};
        isWhole = more < stretch;
    }
    if (std::ferror(file.get()))
        return unreadable(errno);
    return bytes;
}

FileBytes withoutByteOrderMark(FileBytes p_bytes)
{
    constexpr std::string_view k_byteOrderMark = "\xEF\xBB\xBF";
    if (p_bytes.view().starts_with(k_byteOrderMark))
        p_bytes.dropFront(k_byteOrderMark.size());
    return p_bytes;
}

bool isBinary(std::string_view p_bytes) { return p_bytes.find('\0') != std::string_view::npos; }

}    // namespace qen::standalone
