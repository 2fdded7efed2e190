#include "qcl/SourceText.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace qen::standalone {

namespace {

ReadFailure unreadable(int p_error)
{
    return {ReadFailure::Kind::Unreadable, std::generic_category().message(p_error)};
}

}    // namespace

std::variant<std::string, ReadFailure> readBytes(const std::string& p_path, std::size_t p_mostBytes,
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

    std::string bytes;
    std::size_t count = 0;
    for (;; stretch = std::max(k_leastStretch, count))
    {
        bytes.resize(count + stretch);
        const std::size_t more = std::fread(bytes.data() + count, 1, stretch, file.get());
        count += more;
        if (count > p_mostBytes)
            return ReadFailure {ReadFailure::Kind::TooLarge, {}};
        if (more < stretch)
            break;
    }
    bytes.resize(count);
    if (std::ferror(file.get()))
        return unreadable(errno);
    return bytes;
}

std::string withoutByteOrderMark(std::string p_bytes)
{
    constexpr std::string_view k_byteOrderMark = "\xEF\xBB\xBF";
    if (p_bytes.starts_with(k_byteOrderMark))
        p_bytes.erase(0, k_byteOrderMark.size());
    return p_bytes;
}

bool isBinary(const std::string& p_bytes) { return p_bytes.find('\0') != std::string::npos; }

}    // namespace qen::standalone
