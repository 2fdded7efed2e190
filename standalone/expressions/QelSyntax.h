#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// @file
/// The characters and names of the expression language.

namespace qen::standalone::qel {

enum CharClass : std::uint8_t {
    k_letter = 1,
    k_digit = 2,
    k_underscore = 4,
    k_blank = 8,    // parts tokens; only the space also joins the words of a name
    k_nameChar = k_letter | k_digit | k_underscore,
};

inline constexpr std::array<std::uint8_t, 256> k_charClasses = [] {
    std::array<std::uint8_t, 256> classes {};
    for (std::size_t c = 'a'; c <= 'z'; ++c)
        classes[c] = k_letter;
    for (std::size_t c = 'A'; c <= 'Z'; ++c)
        classes[c] = k_letter;
    for (std::size_t c = '0'; c <= '9'; ++c)
        classes[c] = k_digit;
    classes['_'] = k_underscore;
    for (const std::size_t c : {0x20U, 0x09U, 0x0AU, 0x0DU})    // space, tab, line feed, carriage return
        classes[c] = k_blank;
    return classes;
}();

inline bool hasClass(char p_char, unsigned p_class)
{
    return (k_charClasses[static_cast<unsigned char>(p_char)] & p_class) != 0;
}

inline bool isAscii(char p_char) { return static_cast<unsigned char>(p_char) < 0x80; }

/// The number of bytes of the letter beyond ASCII that stands at a place of a UTF-8 text; 0 when there is none.
std::size_t foreignLetterAt(const char* p_at, const char* p_end);

/// Whether a character, beside braces, cannot stand in the name of a coordinate frame in an expression.
bool isFrameDelimiter(char p_char);

/// The end of the name that begins at a place; the place itself when none begins there.
inline const char* nameEnd(const char* p_at, const char* p_end)
{
    const char* at = p_at;
    if (at == p_end)
        return p_at;
    if (!hasClass(*at, k_letter) && (isAscii(*at) || foreignLetterAt(at, p_end) == 0))
        return p_at;
    for (;;)
    {
        while (at != p_end && hasClass(*at, k_nameChar))
            ++at;
        if (at == p_end)
            return at;
        if (!isAscii(*at))
        {
            const std::size_t bytes = foreignLetterAt(at, p_end);
            if (bytes == 0)
                return at;
            at += bytes;
            continue;
        }
        if (*at != ' ' || p_end - at < 2)
            return at;
        if (!hasClass(at[1], k_nameChar) && (isAscii(at[1]) || foreignLetterAt(at + 1, p_end) == 0))
            return at;
        ++at;
    }
}

/// One component of a reference: the name, the letters that pick a component of a tensor, the coordinate frame.
struct Component {
    std::string_view name;
    std::string_view selector;
    std::string_view frame;
    bool hasBraces = false;
};

/// Reads a component. Where the text is wrong, `at` stays at the place and `expected` says what was expected there.
struct ComponentReader {
    const char* at;
    const char* end;
    const char* expected = nullptr;

    bool read(Component& p_component);

private:
    bool readBraces(Component& p_component);
};

inline bool ComponentReader::read(Component& p_component)
{
    const char* const begin = at;
    at = nameEnd(at, end);
    if (at == begin)
    {
        expected = "a name";
        return false;
    }
    p_component.name = std::string_view(begin, static_cast<std::size_t>(at - begin));
    return at == end || *at != '{' || readBraces(p_component);
}

/// Reads the components of a reference, parted by dots, and hands on each.
///
/// @return False when the text is wrong at the place where the reader stands.
template <class Take>
bool readReference(ComponentReader& p_reader, const Take& p_take)
{
    for (;;)
    {
        Component component;
        if (!p_reader.read(component))
            return false;
        p_take(component);
        if (p_reader.at == p_reader.end || *p_reader.at != '.')
            return true;
        ++p_reader.at;
    }
}

inline bool readReference(ComponentReader& p_reader)
{
    return readReference(p_reader, [](const Component&) {});
}

/// The components of a well-formed reference from the last to the first, without memory of their own.
class ComponentsFromTheRight {
public:
    explicit ComponentsFromTheRight(std::string_view p_reference) : m_left(p_reference) {}

    /// The next name to the left; none when all have been given.
    std::optional<std::string_view> next();

private:
    std::string_view m_left;
    bool m_done = false;
};

}    // namespace qen::standalone::qel
