#include "qcl/PlainText.h"

#include <cstdint>
#include <cstring>

namespace qen::standalone {

namespace {

/// The length of the UTF-8 sequence at the beginning of a text; 0 when there is none.
std::size_t sequenceLength(std::string_view p_text)
{
    const auto byte = [&](std::size_t p_at) {
        return p_at < p_text.size() ? static_cast<unsigned char>(p_text[p_at]) : 0U;
    };
    const auto continues = [&](std::size_t p_at) { return (byte(p_at) & 0xC0U) == 0x80U; };

    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return continues(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF)
    {
        const bool overlong = lead == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = lead == 0xED && byte(1) > 0x9F;
        return continues(1) && continues(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4)
    {
        const bool overlong = lead == 0xF0 && byte(1) < 0x90;
        const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
        return continues(1) && continues(2) && continues(3) && !overlong && !beyond ? 4 : 0;
    }
    return 0;
}

/// U+0000 to U+001F and U+007F to U+009F, the tab apart.
bool isControlCharacter(std::string_view p_sequence)
{
    const auto lead = static_cast<unsigned char>(p_sequence[0]);
    if (p_sequence.size() == 1)
        return (lead < 0x20 && lead != '\t') || lead == 0x7F;
    return lead == 0xC2 && static_cast<unsigned char>(p_sequence[1]) < 0xA0;
}

constexpr std::size_t k_word = sizeof(std::uint64_t);

/// Whether the eight bytes are ASCII without control characters.
bool isPlainWord(const char* p_bytes)
{
    constexpr std::uint64_t k_each = 0x0101010101010101U;
    constexpr std::uint64_t k_highBits = 0x80 * k_each;

    std::uint64_t word = 0;
    std::memcpy(&word, p_bytes, k_word);
    // In a word without high bits, adding carries into no other byte, and the high bit tells the larger ones.
    return (word & k_highBits) == 0 && ((word + (0x80 - 0x20) * k_each) & k_highBits) == k_highBits &&
           ((word + (0x80 - 0x7F) * k_each) & k_highBits) == 0;
}

/// The length of a stretch at the beginning of a text that is ASCII without control characters: all of the text, or the
/// words of eight bytes before the first that is not.
std::size_t plainBytes(std::string_view p_text)
{
    std::size_t at = 0;
    for (; at + k_word <= p_text.size(); at += k_word)
        if (!isPlainWord(p_text.data() + at))
            return at;
    const bool wasLong = at != 0;    // the last word then overlaps the one before
    return wasLong && isPlainWord(p_text.data() + p_text.size() - k_word) ? p_text.size() : at;
}

}    // namespace

TextFault findTextFault(std::string_view p_line)
{
    for (std::size_t at = plainBytes(p_line); at < p_line.size();)
    {
        const std::size_t length = sequenceLength(p_line.substr(at));
        if (length == 0)
            return {TextFault::Kind::NotUtf8, at};
        if (isControlCharacter(p_line.substr(at, length)))
            return {TextFault::Kind::ControlCharacter, at};
        at += length;
    }
    return {};
}

TextContents contentsOf(std::string_view p_text)
{
    // Without branches, so that compilers take many bytes at once.
    unsigned char others = 0;
    unsigned char percents = 0;
    for (const char character : p_text)
    {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPrintable = static_cast<unsigned char>(byte - 0x20) < 0x7F - 0x20;
        others |= static_cast<unsigned char>(!(isPrintable | (byte == '\n') | (byte == '\t')));
        percents |= static_cast<unsigned char>(byte == '%');
    }
    return {others == 0, percents != 0};
}

std::string inQuotes(std::string_view p_text)
{
    constexpr std::size_t k_mostCharacters = 80;

    std::size_t characters = 0;
    std::size_t end = 0;
    for (; end < p_text.size(); ++end)
    {
        const bool begins = (static_cast<unsigned char>(p_text[end]) & 0xC0U) != 0x80U;
        if (begins && ++characters > k_mostCharacters)
            break;
    }

    std::string result = "'";
    result.append(p_text.substr(0, end));
    result += end < p_text.size() ? "...'" : "'";
    return result;
}

}    // namespace qen::standalone
