#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace qen::standalone::test {

/// What a case does for the physics of a keyword.
enum class Setting {
    On,           ///< switches it on
    Off,          ///< does not
    Elsewhere,    ///< switches it on in another domain or fluid
};

/// A small case, and a place in it at which a keyword is asked.
struct KeywordCase {
    const char* keyword;
    Setting setting;
    const char* at;
    std::string text;
};

inline void PrintTo(const KeywordCase& p_case, std::ostream* p_out)
{
    *p_out << p_case.keyword << " at " << p_case.at << " of\n" << p_case.text;
}

/// Cases in which every fluid of a domain behaves alike: keywords about the simulation, the domain, its fluids and what
/// passes between them.
std::vector<KeywordCase> domainKeywordCases();

/// Cases in which a fluid can have models of its own.
std::vector<KeywordCase> fluidKeywordCases();

}    // namespace qen::standalone::test
