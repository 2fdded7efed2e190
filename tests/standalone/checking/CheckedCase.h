#pragma once

#include "checking/CaseChecker.h"
#include "definitions/Definitions.h"
#include "qcl/QclReader.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace qen::standalone {

/// The shipped definitions, with rules of a test's own added, or with other definitions.
class RulesForTest {
public:
    explicit RulesForTest(const std::string& p_rules, const char* p_file = "RULES.qcl")
    {
        std::string pattern = testing::TempDir() + "/rules-XXXXXX";
        m_folder = mkdtemp(pattern.data());
        std::ofstream(std::filesystem::path(m_folder) / p_file) << p_rules;
        m_definitions.emplace(std::vector<std::string> {QENCHECK_PROJECT "/definitions", m_folder});
    }

    ~RulesForTest() { std::filesystem::remove_all(m_folder); }

    RulesForTest(const RulesForTest&) = delete;
    RulesForTest& operator=(const RulesForTest&) = delete;

    const Definitions& definitions() const { return *m_definitions; }

    CaseReport check(const std::string& p_case) const
    {
        return checkCase(readQclText("case.qcl", p_case), *m_definitions);
    }

private:
    std::string m_folder;
    std::optional<Definitions> m_definitions;
};

MATCHER_P4(FoundAt, line, column, identifier, message, "")
{
    *result_listener << arg.line << ":" << arg.column << " [" << arg.identifier << "] " << arg.message;
    return testing::ExplainMatchResult(line, static_cast<int>(arg.line), result_listener) &&
           testing::ExplainMatchResult(column, static_cast<int>(arg.column), result_listener) &&
           arg.identifier == identifier && testing::ExplainMatchResult(message, arg.message, result_listener);
}

}    // namespace qen::standalone
