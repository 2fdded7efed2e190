#include "ListFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;

using ListJson = List;

TEST_F(ListJson, HandsEverythingAboutAVariableToPrograms)
{
    const Outcome run = list({"variables", "vel", "--format", "json"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.out, R"([
  {
    "name": "vel",
    "longName": "Velocity",
    "oldName": "veloc",
    "oldLongName": "",
    "quantity": "Velocity",
    "units": "m s^-1",
    "tensorType": "VECTOR",
    "components": [
      {
        "name": "vel u",
        "longName": "Velocity u",
        "oldName": "veloc u",
        "oldLongName": ""
      },
      {
        "name": "vel v",
        "longName": "Velocity v",
        "oldName": "veloc v",
        "oldLongName": ""
      },
      {
        "name": "vel w",
        "longName": "Velocity w",
        "oldName": "veloc w",
        "oldLongName": ""
      }
    ],
    "scopes": [
      "PHASE",
      "PARTICLE"
    ],
    "generalAvailability": [
      "QEL",
      "RESULTS"
    ],
    "physicalAvailability": [],
    "variableClasses": [],
    "fieldVariable": true,
    "status": "Solved",
    "underRelaxationFactor": "",
    "userLevel": "",
    "outputToPostprocessor": "",
    "file": ")" + m_folder.path() +
                           R"(/VARIABLES.qcl",
    "line": 1
  }
]
)");
}

TEST_F(ListJson, HandsTextOfEveryLanguageToPrograms)
{
    EXPECT_THAT(list({"variables", "höhe", "--format", "json"}).out,
                AllOf(HasSubstr("\"longName\": \"Höhe\",\n"), HasSubstr("\"units\": \"\",\n"),
                      HasSubstr("\"fieldVariable\": false,\n")));
}

TEST_F(ListJson, HandsAQuantityThatIsMissingToProgramsAsNoUnits)
{
    m_folder.write("VARIABLES.qcl", "[/VARIABLE:A]\nTensor Type = SCALAR\n");

    EXPECT_THAT(list({"variables", "--format", "json"}).out, HasSubstr("\"units\": null,\n"));
}

TEST_F(ListJson, HandsEverythingAboutAnOperatorToPrograms)
{
    EXPECT_EQ(list({"operators", "ave", "--format", "json"}).out, R"([
  {
    "name": "ave",
    "longName": "Time Average",
    "tensorType": "SCALAR",
    "dimensionModifier": "[ ]",
    "availability": [
      "GENERAL",
      "STATISTICS"
    ],
    "components": [],
    "file": ")" + m_folder.path() + R"(/VARIABLES.qcl",
    "line": 43
  }
]
)");
}

TEST_F(ListJson, HandsEverythingAboutACallbackToPrograms)
{
    EXPECT_EQ(list({"callbacks", "force", "--format", "json"}).out, R"([
  {
    "name": "force",
    "arguments": 0,
    "fieldValued": true,
    "resultUnits": "kg m s^-2",
    "vectorComponents": true,
    "locatorDimensions": [
      "Surface"
    ],
    "file": ")" + m_folder.path() + R"(/VARIABLES.qcl",
    "line": 53
  }
]
)");
}

TEST_F(ListJson, HandsEverythingAboutAParameterToPrograms)
{
    EXPECT_EQ(list({"parameters", "Speed", "--format", "json"}).out, R"([
  {
    "object": "/FLOW/INLET",
    "parameter": "Speed",
    "type": "Real",
    "quantity": "Velocity",
    "units": "m s^-1",
    "unitsFrom": "",
    "unitsTimes": "",
    "lowerBound": "0 [m s^-1]",
    "upperBound": "340 [m s^-1]",
    "dependsOn": [
      "XYZT"
    ],
    "allowedTexts": [],
    "singleValued": true,
    "kind": ""
  }
]
)");
}

TEST_F(ListJson, HandsUnitsPrefixesAndQuantitiesToPrograms)
{
    EXPECT_EQ(list({"units", "C", "--format", "json"}).out, R"([
  {
    "kind": "unit",
    "name": "C",
    "baseUnits": "K",
    "factor": 1.0,
    "offset": 273.15,
    "takesPrefixes": false,
    "definition": {
      "units": "K",
      "factor": 1.0,
      "offset": 273.15
    }
  },
  {
    "kind": "quantity",
    "name": "Velocity",
    "baseUnits": "m s^-1",
    "units": []
  }
]
)");
    EXPECT_EQ(list({"units", "Y", "--format", "json"}).out, R"([
  {
    "kind": "prefix",
    "name": "y",
    "factor": 1.0000000000000001e-24
  },
  {
    "kind": "quantity",
    "name": "Velocity",
    "baseUnits": "m s^-1",
    "units": []
  }
]
)");
}

TEST_F(ListJson, HandsAnEmptyArrayToProgramsWhenNothingMatches)
{
    const Outcome run = list({"variables", "xyzzy", "--format", "json"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.error, "No variables match 'xyzzy'.\n");
}

}    // namespace
}    // namespace qencheck_test
