#include "qcl/SourceText.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
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

    std::string bytes;
    std::array<char, std::size_t {1} << 16> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get()))
    {
        if (count > p_mostBytes - bytes.size())
            return ReadFailure {ReadFailure::Kind::TooLarge, {}};
        bytes.append(buffer.data(), count);
    }
    if (std::ferror(file.get()))
        return unreadable(errno);
    return bytes;
}

SourceFile sourceFile(const std::string& p_path, std::string p_bytes)
{
    constexpr std::string_view k_byteOrderMark = "\xEF\xBB\xBF";
    if (p_bytes.starts_with(k_byteOrderMark))
        p_bytes.erase(0, k_byteOrderMark.size());

    SourceFile file;
    file.path = p_path;
    file.text = std::move(p_bytes);
    for (std::size_t begin = 0; begin < file.text.size();)
    {
        file.lineStarts.push_back(begin);
        const std::size_t end = file.text.find('\n', begin);
        begin = end == std::string::npos ? file.text.size() : end + 1;
    }
    return file;
}

bool isBinary(const std::string& p_bytes) { return p_bytes.find('\0') != std::string::npos; }

}    // namespace qen::standalone
