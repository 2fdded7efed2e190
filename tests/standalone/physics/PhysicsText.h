#pragma once

#include "model/ModelTree.h"
#include "physics/PhysicsBook.h"
#include "qcl/QclReader.h"

#include <gtest/gtest.h>

#include <string>

namespace qen::standalone::test {

/// Adds a text of queries to a book and answers what was wrong with it.
inline Diagnostics addQueries(PhysicsBook& p_book, const std::string& p_text,
                              const std::string& p_name = "physics.qcl")
{
    const QclDocument document = readQclText(p_name, p_text);
    EXPECT_TRUE(document.problems.empty()) << "the text of the test is no .qcl";
    Diagnostics problems;
    p_book.addDefinitions(document, problems);
    return problems;
}

/// A book of queries in which nothing is wrong.
inline PhysicsBook physicsOf(const std::string& p_text)
{
    PhysicsBook book;
    for (const Diagnostic& problem : addQueries(book, p_text))
        ADD_FAILURE() << problem.place.line << ": " << problem.message;
    return book;
}

/// The model of a case that is in order.
inline ModelTree modelOf(const std::string& p_text)
{
    const QclDocument document = readQclText("case.qcl", p_text);
    for (const Diagnostic& problem : document.problems)
        ADD_FAILURE() << problem.place.line << ": " << problem.message;
    return ModelTree(document);
}

}    // namespace qen::standalone::test
