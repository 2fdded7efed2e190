#include "lint/LintRules.h"

#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"

#include "VarAvailabilityChecker.h"

#include "PhysicsEvaluator.h"

#include <algorithm>
#include <fmt/format.h>

namespace qen::standalone {
namespace {

/// What a checker needs to be asked for the keywords that it knows.
class NoPhysics final : public PhysicsEvaluator {
public:
    bool evalBool(const std::string&, const std::string&, const ModelQCL*) const override { return false; }
    std::vector<std::string> evalList(const std::string&, const std::string&, const ModelQCL*) const override
    {
        return {};
    }
    void declareBool(const std::string&, bool) const override {}
    void declareList(const std::string&, bool) const override {}
};

std::vector<std::string> knownKeywords()
{
    const NoPhysics physics;
    return VarAvailabilityChecker(nullptr, nullptr, &physics).supportedPhysAvailChecks();
}

/// A piece of "Physical Availability" as the checks read it, who compare what stands behind the '!' exactly.
struct Keyword {
    explicit Keyword(std::string_view p_piece)
        : word(p_piece.substr(std::min(p_piece.find_first_not_of('!'), p_piece.size()))),
          meant(p_piece.substr(std::min(p_piece.find_first_not_of("! \t"), p_piece.size()))),
          holds((p_piece.size() - word.size()) % 2 == 0 ? "always" : "never"),
          signs(static_cast<std::size_t>(std::count(
                    p_piece.begin(), p_piece.end() - static_cast<std::ptrdiff_t>(meant.size()), '!')),
                '!')
    {}

    std::string_view word;
    std::string_view meant;    ///< without blanks behind the '!'
    std::string_view holds;    ///< how often, when no check knows the word
    std::string signs;         ///< every '!' before what is meant
};

bool isOneOf(const std::vector<std::string>& p_known, std::string_view p_word)
{
    return std::ranges::binary_search(p_known, p_word);
}

}    // namespace

void findUnknownAvailabilities(const LintInput& p_input, LintReport& p_report)
{
    const std::vector<std::string> known = knownKeywords();
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& piece : listOf(variable.section, "Physical Availability"))
        {
            const Keyword keyword(piece.text);
            if (!piece.text.empty() && !isOneOf(known, keyword.meant))
                p_report.at(piece,
                            fmt::format("No check knows the physical availability {} of variable {}, so "
                                        "that it {} holds.{}",
                                        inQuotes(piece.text), inQuotes(variable.name), keyword.holds,
                                        hint(keyword.meant, known)));
        }
}

void findBlanksInAvailabilities(const LintInput& p_input, LintReport& p_report)
{
    const std::vector<std::string> known = knownKeywords();
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& piece : listOf(variable.section, "Physical Availability"))
        {
            const Keyword keyword(piece.text);
            if (isOneOf(known, keyword.meant) && keyword.word != keyword.meant)
                p_report.at(piece,
                            fmt::format("The physical availability {} of variable {} has a blank behind "
                                        "its '!', so that it {} holds. Expected {}.",
                                        inQuotes(piece.text), inQuotes(variable.name), keyword.holds,
                                        inQuotes(keyword.signs + std::string(keyword.meant))));
        }
}

}    // namespace qen::standalone
