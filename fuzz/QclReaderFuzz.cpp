/// @file
/// Reads arbitrary bytes as a text of objects, and stops where the document does not hold what it promises: every place
/// lies inside its file, every value is what stands at its places, and within its limits.

#include "qcl/QclReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace qen::standalone;

namespace {

void require(bool p_holds, const char* p_what)
{
    if (p_holds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", p_what);
    std::abort();
}

/// What stands in the file from a place on to the end of the line.
std::string_view textAt(const QclDocument& p_document, const SourcePlace& p_place)
{
    require(p_place.file < p_document.files.size(), "the place is in a file of the document");
    const SourceFile& file = p_document.files[p_place.file];
    require(p_place.line >= 1 && p_place.line <= file.lineCount(), "the place is on a line of its file");
    const std::string_view line = file.line(p_place.line);
    require(p_place.column >= 1 && p_place.column <= line.size() + 1,
            "the place is in its line or right behind it");
    return line.substr(p_place.column - 1);
}

void checkParameter(const QclDocument& p_document, const QclParameter& p_parameter, const QclLimits& p_limits)
{
    require(textAt(p_document, p_parameter.place()).starts_with(p_parameter.name()),
            "a name stands at its place");
    require(!p_parameter.name().empty() && p_parameter.name().size() <= p_limits.nameBytes,
            "a name keeps its limit");
    require(p_parameter.value().size() <= p_limits.valueBytes, "a value keeps its limit");
    const std::vector<QclParameter::Piece> pieces = p_parameter.pieces();
    require(!pieces.empty() && pieces.front().offset == 0, "a value has a first piece");

    std::string reassembled;
    for (std::size_t number = 0; number < pieces.size(); ++number)
    {
        const QclParameter::Piece& piece = pieces[number];
        const std::size_t end =
            number + 1 < pieces.size() ? pieces[number + 1].offset : p_parameter.value().size();
        require(piece.offset <= end, "pieces stand in order");
        const std::string_view text = textAt(p_document, piece.place);
        require(end - piece.offset <= text.size(), "a piece ends on its line");
        reassembled += text.substr(0, end - piece.offset);
    }
    require(reassembled == p_parameter.value(), "the pieces make up the value");

    for (std::size_t offset = 0; offset < p_parameter.value().size(); ++offset)
        require(textAt(p_document, p_parameter.placeInValue(offset)).starts_with(p_parameter.value()[offset]),
                "each byte of a value stands at its place");
    textAt(p_document, p_parameter.placeInValue(p_parameter.value().size()));
}

void checkDocument(const QclDocument& p_document, const QclLimits& p_limits)
{
    require(!p_document.files.empty(), "there is a file");

    std::set<std::string_view> paths;
    for (const QclObject& object : p_document.objects)
    {
        require(paths.insert(object.path).second, "an object has one entry");
        require(object.path.size() <= p_limits.pathBytes, "a path keeps its limit");
        require(textAt(p_document, object.place).starts_with(object.path), "a path stands at its place");

        std::set<std::string_view> names;
        for (const QclParameter& parameter : object.parameters)
        {
            require(names.insert(parameter.name()).second, "a parameter has one entry");
            checkParameter(p_document, parameter, p_limits);
        }
    }

    require(p_document.problems.size() <= p_limits.problems + 1, "problems keep their limit");
    for (std::size_t number = 0; number < p_document.problems.size(); ++number)
    {
        const Diagnostic& problem = p_document.problems[number];
        require(!problem.identifier.empty() && !problem.message.empty(), "a problem says what it is");
        require(problem.message.size() < 2000, "a problem's message is short");
        if (problem.place.line == 0)
            continue;
        require(problem.length <= textAt(p_document, problem.place).size(), "a problem points into its line");
        require(number == 0 || p_document.problems[number - 1].place <= problem.place,
                "problems stand in the order of the text");
    }
}

}    // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* p_data, std::size_t p_size)
{
    const std::string text(reinterpret_cast<const char*>(p_data), p_size);

    QclLimits limits;
    limits.includeDepth = 0;    // no input reaches other files
    checkDocument(readQclText("fuzz.qcl", text, limits), limits);

    // The same with limits that small inputs reach.
    limits.fileBytes = 200;
    limits.valueBytes = 20;
    limits.nameBytes = 8;
    limits.pathBytes = 24;
    limits.pathLevels = 3;
    limits.problems = 4;
    limits.shortValueBytes = 10;
    checkDocument(readQclText("fuzz.qcl", text, limits), limits);
    return 0;
}
