#include "qcl/SourceText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <future>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <variant>

namespace qen::standalone {
namespace {

void append(FileBytes& p_bytes, std::string_view p_text)
{
    std::ranges::copy(p_text, p_bytes.room(p_text.size()));
    p_bytes.add(p_text.size());
}

TEST(FileBytes, KeepAllThatWasAddedHoweverOftenTheyGrow)
{
    FileBytes bytes;
    std::string expected;
    for (int i = 0; i < 1000; ++i)
    {
        const std::string text(static_cast<std::size_t>(i % 37), static_cast<char>('a' + i % 26));
        append(bytes, text);
        expected += text;
    }

    EXPECT_EQ(bytes.view(), expected);
}

TEST(FileBytes, CountOnlyWhatWasAdded)
{
    FileBytes bytes("ab");
    std::ranges::copy(std::string_view("cdef"), bytes.room(4));
    bytes.add(2);

    EXPECT_EQ(bytes.view(), "abcd");
}

TEST(FileBytes, GrowBehindAFrontThatWasDropped)
{
    FileBytes bytes("xxab");
    bytes.dropFront(2);
    append(bytes, std::string(100, 'c'));

    EXPECT_EQ(bytes.view(), "ab" + std::string(100, 'c'));
}

TEST(FileBytes, LeaveNothingWhereTheyWereMovedFrom)
{
    FileBytes first("abc");
    const char* const place = first.view().data();
    FileBytes second = std::move(first);
    EXPECT_EQ(second.view().data(), place);
    EXPECT_TRUE(first.view().empty());

    FileBytes third("d");
    third = std::move(second);
    append(second, "e");
    EXPECT_EQ(third.view(), "abc");
    EXPECT_EQ(second.view(), "e");
}

TEST(FileBytes, OfNothingAreEmpty)
{
    EXPECT_TRUE(FileBytes().view().empty());
    EXPECT_TRUE(FileBytes("").view().empty());
}

/// A pipe into which a text is written while it is read: unlike a file, it does not say how much will come.
TEST(ReadBytes, TakesAllThatComesThroughAPipe)
{
    namespace fs = std::filesystem;
    const fs::path path = fs::temp_directory_path() / ("qen-pipe-" + std::to_string(getpid()));
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::string text(300000, 'a');
    for (std::size_t i = 0; i < text.size(); i += 7)
        text[i] = static_cast<char>('b' + i % 20);

    const std::variant<FileBytes, ReadFailure> bytes = [&] {
        const auto writing = std::async(std::launch::async, [&] {
            std::ofstream(path, std::ios::binary)
                .write(text.data(), static_cast<std::streamsize>(text.size()));
        });
        return readBytes(path.string(), text.size(), false);
    }();
    fs::remove(path);

    ASSERT_TRUE(std::holds_alternative<FileBytes>(bytes));
    EXPECT_EQ(std::get<FileBytes>(bytes).view(), text);
}

}    // namespace
}    // namespace qen::standalone
