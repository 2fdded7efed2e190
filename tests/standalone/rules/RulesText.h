#pragma once

#include "qcl/QclReader.h"
#include "rules/RuleBook.h"

#include <gtest/gtest.h>

#include <string>

namespace qen::standalone::test {

/// Adds a text of rules to a book and answers what was wrong with it.
inline Diagnostics addRules(RuleBook& p_book, const std::string& p_text,
                            const std::string& p_name = "rules.qcl")
{
    const QclDocument document = readQclText(p_name, p_text);
    EXPECT_TRUE(document.problems.empty()) << "the text of the test is no .qcl";
    Diagnostics problems;
    p_book.addDefinitions(document, problems);
    return problems;
}

/// A book of rules in which nothing is wrong.
inline RuleBook rulesOf(const std::string& p_text)
{
    RuleBook book;
    for (const Diagnostic& problem : addRules(book, p_text))
        ADD_FAILURE() << problem.place.line << ": " << problem.message;
    return book;
}

}    // namespace qen::standalone::test
