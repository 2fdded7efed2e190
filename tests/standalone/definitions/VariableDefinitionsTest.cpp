#include "definitions/VariableDefinitions.h"

#include "qcl/QclReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

/// Loads one file's text into a store.
struct Loaded {
    explicit Loaded(const std::string& p_text) : document(readQclText("VARIABLES.qcl", p_text))
    {
        VariableDefinitions definitions;
        definitions.add(document, problems);
        definitions.fill(store, problems);
    }

    QclDocument document;
    PreVariableDefStore store;
    std::vector<Finding> problems;
};

auto problemAt(std::uint32_t p_line, std::uint32_t p_column, Severity p_severity,
               const std::string& p_message)
{
    return AllOf(Field(&Finding::line, p_line), Field(&Finding::column, p_column),
                 Field(&Finding::severity, p_severity), Field(&Finding::message, p_message),
                 Field(&Finding::file, "VARIABLES.qcl"));
}

TEST(VariableDefinitions, GoIntoTheStoreInTheOrderOfTheFile)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\nLong Name = Static Pressure\n"
                        "[/VARIABLE:Density]\nTensor Type = SCALAR\n");

    EXPECT_THAT(loaded.problems, IsEmpty());
    EXPECT_THAT(loaded.store.getAllVariableShortNames(), ElementsAre("Pressure", "Density"));
    EXPECT_TRUE(loaded.store.hasVariable("Static Pressure"));
}

TEST(VariableDefinitions, ShowWhatTheStoreThrowsAtTheSection)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\n"
                        "\n[/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Pressure\n"
                        "[/VARIABLE:Density]\nTensor Type = SCALAR\n");

    EXPECT_THAT(loaded.problems, ElementsAre(problemAt(4, 2, Severity::Error,
                                                       "Duplicate definition of variable 'Pressure'.")));
    EXPECT_TRUE(loaded.store.hasVariable("Density"));
}

TEST(VariableDefinitions, ShowWhatTheStoreReportsAtTheSection)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\nGeneral Availability = QEL\n");

    EXPECT_THAT(loaded.problems,
                ElementsAre(problemAt(
                    1, 2, Severity::Warning,
                    "Error in definition of variable 'Pressure'.\nThis variable has QEL availability "
                    "but does not have a \"Field Variable\" parameter.\nA value of \"True\" has been "
                    "assumed but this may not be correct.")));
}

TEST(VariableDefinitions, RefuseAKeyThatNoDefinitionHas)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\n  Long Nam = Static\n");

    EXPECT_THAT(
        loaded.problems,
        ElementsAre(problemAt(3, 3, Severity::Error,
                              "Unknown key 'Long Nam' in the definition '/VARIABLE:Pressure'. Did you mean "
                              "'Long Name'?")));
}

TEST(VariableDefinitions, RefuseASectionThatDefinesNothing)
{
    const Loaded loaded("[/VARIABEL:Pressure]\nTensor Type = SCALAR\n[/VARIABLE]\nTensor Type = SCALAR\n");

    EXPECT_THAT(
        loaded.problems,
        ElementsAre(problemAt(1, 2, Severity::Error,
                              "'/VARIABEL:Pressure' defines nothing that is known here. Expected "
                              "'/VARIABLE:name'."),
                    problemAt(3, 2, Severity::Error,
                              "'/VARIABLE' defines nothing that is known here. Expected '/VARIABLE:name'.")));
}

TEST(VariableDefinitions, OfALaterFileReplaceThoseOfAnEarlierOne)
{
    const QclDocument first =
        readQclText("a.qcl", "[/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Pressure\n");
    const QclDocument second =
        readQclText("b.qcl", "[/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Static Pressure\n");
    VariableDefinitions definitions;
    std::vector<Finding> problems;

    definitions.add(first, problems);
    definitions.add(second, problems);
    PreVariableDefStore store;
    definitions.fill(store, problems);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_TRUE(store.hasVariable("Static Pressure"));
    EXPECT_FALSE(store.hasVariable("Pressure"));
}

}    // namespace
}    // namespace qen::standalone
