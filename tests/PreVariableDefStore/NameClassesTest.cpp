#include "StoreTest.h"

#include <string>
#include <vector>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

using Texts = std::vector<std::string>;

class PostVariable : public StoreTest {};
class ReservedName : public StoreTest {};
class SolverInternalVariable : public StoreTest {
protected:
    /// Defines each coordinate under its own name alone, but for one.
    void defineCoordinatesExcept(const std::string& p_missing)
    {
        for (const char* name : {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
            if (name != p_missing)
                m_store.addVariableDefinition(name, scalar());
    }
};
class PhysicalAvailabilities : public StoreTest {
protected:
    void define(const std::string& p_name, const std::string& p_general, const std::string& p_physical)
    {
        m_store.addVariableDefinition(p_name, scalar({{"Field Variable", "T"},
                                                      {"General Availability", p_general},
                                                      {"Physical Availability", p_physical}}));
    }
};

// The post-processor's quantities.

TEST_F(PostVariable, IsOneOfTheFixedQuantities)
{
    for (const char* name : {"Area",
                             "Length",
                             "Normal",
                             "Normal X",
                             "Normal Y",
                             "Normal Z",
                             "X",
                             "Y",
                             "Z",
                             "Connectivity Number",
                             "Edge Length Ratio",
                             "Element Volume Ratio",
                             "Maximum Face Angle",
                             "Minimum Face Angle",
                             "Volume",
                             "Force",
                             "Force X",
                             "Force Y",
                             "Force Z",
                             "Heat Flux",
                             "Mass Flow",
                             "Maximum Edge Length",
                             "Element Volume Inverse"})
        EXPECT_TRUE(m_store.isPostVariable(name)) << name;
}

TEST_F(PostVariable, IsComparedExactly)
{
    for (const char* name : {"normal x", "NORMAL X", "Normal  X", "Normal X ", " Normal X", "NormalX",
                             "Normal W", "x", "area", "Are", "Areas", "", "Minimum Edge Length", "Zz"})
        EXPECT_FALSE(m_store.isPostVariable(name)) << name;
}

TEST_F(PostVariable, HasNothingToDoWithTheDefinitions)
{
    m_store.addVariableDefinition("Pressure", scalar({{"Output to Postprocessor", "Yes"}}));
    m_store.addVariableDefinition("normal x", scalar({{"Long Name", "Normal X"}}));

    EXPECT_FALSE(m_store.isPostVariable("Pressure"));
    EXPECT_FALSE(m_store.isPostVariable("normal x"));
    EXPECT_TRUE(m_store.isPostVariable("Normal X"));
}

// Reserved names.

TEST_F(ReservedName, IsExpressionValueAlone)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_TRUE(m_store.isSolverReservedName("Expression Value"));
    for (const char* name :
         {"expression value", "EXPRESSION VALUE", "Expression", "Expression Value ", "", "TEMP"})
        EXPECT_FALSE(m_store.isSolverReservedName(name)) << name;
}

// Solver-internal variables.

TEST_F(SolverInternalVariable, IsEachCoordinate)
{
    defineCoordinatesExcept("");

    for (const char* name : {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
        EXPECT_TRUE(m_store.isSolverInternalVariable(name)) << name;
    for (const char* name : {"X", "t", "Theta", "axis", ""})
        EXPECT_FALSE(m_store.isSolverInternalVariable(name)) << name;
}

TEST_F(SolverInternalVariable, IsEachLongAndOldNameOfACoordinate)
{
    m_store.addVariableDefinition(
        "x", scalar({{"Long Name", "X Coordinate"}, {"Old Short Name", "XC"}, {"Old Long Name", "Old X"}}));
    defineCoordinatesExcept("x");
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));

    for (const char* name : {"x", "X Coordinate", "XC", "Old X"})
        EXPECT_TRUE(m_store.isSolverInternalVariable(name)) << name;
    for (const char* name : {"TEMP", "Temperature", "", "no such variable"})
        EXPECT_FALSE(m_store.isSolverInternalVariable(name)) << name;
}

TEST_F(SolverInternalVariable, IsNotTheShortNameOfAVariableThatHasACoordinateAsItsLongName)
{
    m_store.addVariableDefinition("YC", scalar({{"Long Name", "y"}, {"Old Long Name", "Old Y"}}));
    defineCoordinatesExcept("y");

    EXPECT_TRUE(m_store.isSolverInternalVariable("y"));
    EXPECT_TRUE(m_store.isSolverInternalVariable("Old Y"));
    EXPECT_FALSE(m_store.isSolverInternalVariable("YC"));
}

class MissingCoordinate : public SolverInternalVariable, public testing::WithParamInterface<const char*> {};

TEST_P(MissingCoordinate, IsNotFoundUntilItIsDefined)
{
    defineCoordinatesExcept(GetParam());
    const std::string missing = GetParam();

    // Whatever name is asked, and however often
    for (const char* asked : {"x", "aaxis", "no such variable", "x"})
        EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.isSolverInternalVariable(asked); }),
                    Optional(IsThrownBy("variableData", "Variable '" + missing + "' does not exist.")));

    m_store.addVariableDefinition(missing, scalar());
    EXPECT_TRUE(m_store.isSolverInternalVariable(missing));
    EXPECT_TRUE(m_store.isSolverInternalVariable("x"));
}

INSTANTIATE_TEST_SUITE_P(All, MissingCoordinate,
                         testing::Values("x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"),
                         [](const auto& p_case) { return std::string(p_case.param); });

TEST_F(SolverInternalVariable, ReportsTheFirstCoordinateThatIsMissing)
{
    m_store.addVariableDefinition("x", scalar());
    m_store.addVariableDefinition("z", scalar());

    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.isSolverInternalVariable("x"); }),
                Optional(IsThrownBy("variableData", "Variable 'y' does not exist.")));
}

TEST_F(SolverInternalVariable, IsNotFoundWhileARefusedDefinitionLeavesOnlyTheNameOfACoordinate)
{
    defineCoordinatesExcept("theta");
    EXPECT_THROW(m_store.addVariableDefinition("theta", scalar({{"Long Name", "x"}})), data::duplicate);
    ASSERT_TRUE(m_store.hasVariable("theta"));

    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.isSolverInternalVariable("x"); }),
                Optional(IsThrownBy("variableData", "Variable 'theta' does not exist.")));
}

// Physical availability.

TEST_F(PhysicalAvailabilities, AreThoseOfEveryVariableWithTheKeywordEachOnceInTextOrder)
{
    define("a", "QEL", "SOLID,FLUID");
    define("b", "RESULTS,QEL", "BUOYANT,FLUID");
    define("c", "RESULTS", "POROUS");
    define("d", "", "NEVER");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("QEL"), ElementsAre("BUOYANT", "FLUID", "SOLID"));
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("RESULTS"),
                ElementsAre("BUOYANT", "FLUID", "POROUS"));
}

TEST_F(PhysicalAvailabilities, OfSeveralKeywordsAreThoseOfVariablesWithAtLeastOne)
{
    define("a", "QEL", "SOLID");
    define("b", "RESULTS,OTHER", "POROUS");
    define("c", "OTHER", "BUOYANT");
    define("d", "SOLVER", "NEVER");

    // In any order and with repeats
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities(Texts {"RESULTS", "QEL"}),
                ElementsAre("POROUS", "SOLID"));
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities(Texts {"OTHER", "never", "QEL", "OTHER"}),
                ElementsAre("BUOYANT", "POROUS", "SOLID"));
}

TEST_F(PhysicalAvailabilities, NameANegatedKeywordLikeThePlainOne)
{
    define("a", "QEL", "!SOLID,SOLID");
    define("b", "QEL", "!  FLUID , ! POROUS\tMEDIA,!");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("QEL"),
                ElementsAre("", "FLUID", "POROUSMEDIA", "SOLID"));
}

TEST_F(PhysicalAvailabilities, LoseOnlyTheFirstNegation)
{
    define("a", "QEL", "!!SOLID,A!B");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("QEL"), ElementsAre("!SOLID", "A!B"));
}

TEST_F(PhysicalAvailabilities, KeepTheBlanksOfAPlainKeyword)
{
    define("a", "QEL", "POROUS MEDIA,!POROUS MEDIA");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("QEL"), ElementsAre("POROUS MEDIA", "POROUSMEDIA"));
}

TEST_F(PhysicalAvailabilities, OfNoKnownKeywordAreNone)
{
    define("a", "QEL", "SOLID");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities(Texts {}), IsEmpty());
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("never"), IsEmpty());
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("qel"), IsEmpty());
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("SOLID"), IsEmpty());
    EXPECT_THAT(m_store.referencedPhysicalAvailabilities(Texts {"", "never"}), IsEmpty());
}

TEST_F(PhysicalAvailabilities, OfAKeywordOfVariablesWithoutAnyAreNone)
{
    define("a", "QEL", "");

    EXPECT_THAT(m_store.referencedPhysicalAvailabilities("QEL"), IsEmpty());
}

TEST(SolverInternalNames, GoAlongWithACopyOfTheStore)
{
    PreVariableDefStore store;
    for (const char* name : {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
        store.addVariableDefinition(name, scalar({{"Long Name", std::string("Long ") + name}}));
    ASSERT_TRUE(store.isSolverInternalVariable("Long x"));

    const PreVariableDefStore copy = store;

    EXPECT_TRUE(copy.isSolverInternalVariable("Long x"));
    EXPECT_FALSE(copy.isSolverInternalVariable("Long"));
}

}    // namespace
