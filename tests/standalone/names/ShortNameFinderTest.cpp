#include "DataError.h"
#include "PreVariableDefStore.h"

#include "model/ModelTree.h"
#include "names/ShortNameFinder.h"
#include "world/World.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace qen::standalone::test {
namespace {

/// A few variables, and an additional one.
class ShortName : public testing::Test {
protected:
    ShortName()
    {
        define("T", {{"Long Name", "Temperature"}, {"Old Short Name", "Temp"}, {"Tensor Type", "SCALAR"}});
        define("initcartcrd", {{"Long Name", "Initial Cartesian Coordinates"},
                               {"Tensor Type", "VECTOR"},
                               {"Component Short Names", "initcartcrd x, initcartcrd y, initcartcrd z"},
                               {"Component Long Names", "Initial Cartesian Coordinates X, Initial Cartesian "
                                                        "Coordinates Y, Initial Cartesian Coordinates Z"}});
        define("vel", {{"Long Name", "Velocity"},
                       {"Tensor Type", "VECTOR"},
                       {"Component Short Names", "u, v, w"},
                       {"Component Long Names", "Velocity u, Velocity v, Velocity w"}});
        m_model.setParameter("/LIBRARY/ADDITIONAL VARIABLE:Dye", "Tensor Type", "VECTOR");
        m_world.variables = &m_variables;
        m_world.model = &m_model;
    }

    void define(const std::string& p_name, const std::map<std::string, std::string>& p_definition)
    {
        m_variables.addVariableDefinition(p_name, p_definition);
    }

    std::string of(const std::string& p_fullName) const
    {
        const WorldScope scope(m_world);
        return ShortNameFinder(m_variables).shortName(p_fullName);
    }

    PreVariableDefStore m_variables;
    ModelTree m_model;
    World m_world;
};

TEST_F(ShortName, IsThatOfTheVariableWhateverItsNameIs)
{
    EXPECT_EQ(of("T"), "T");
    EXPECT_EQ(of("Temperature"), "T");
    EXPECT_EQ(of("Temp"), "T");
}

TEST_F(ShortName, IsThatOfTheRootWithoutPrefixesAndSuffix)
{
    EXPECT_EQ(of("Water.Temperature"), "T");
    EXPECT_EQ(of("Water.Salt.Temperature"), "T");
    EXPECT_EQ(of("Temperature.Gradient"), "T");
    EXPECT_EQ(of("Water.Temperature.Gradient{x}"), "T");
}

TEST_F(ShortName, OfAVectorIsNoneOfAComponent)
{
    EXPECT_EQ(of("Velocity"), "vel");
    EXPECT_EQ(of("Water.Velocity{x:Rotor}"), "vel");
    EXPECT_EQ(of("Initial Cartesian Coordinates"), "initcartcrd");
}

TEST_F(ShortName, OfAComponentIsItsOwn)
{
    EXPECT_EQ(of("initcartcrd x"), "initcartcrd x");
    EXPECT_EQ(of("Initial Cartesian Coordinates X"), "initcartcrd x");
    EXPECT_EQ(of("Initial Cartesian Coordinates Z"), "initcartcrd z");
    EXPECT_EQ(of("Water.Velocity v"), "v");
}

TEST_F(ShortName, OfAnAdditionalVariableIsItsName)
{
    EXPECT_EQ(of("Dye"), "Dye");
    EXPECT_EQ(of("Water.Dye.Gradient"), "Dye");
    EXPECT_EQ(of("Water.Dye X"), "Dye X");
}

TEST_F(ShortName, OfAnExpressionValueIsItsName) { EXPECT_EQ(of("Expression Value"), "Expression Value"); }

TEST_F(ShortName, OfAnUnknownNameIsItsLastComponent)
{
    EXPECT_EQ(of("Nonsense"), "Nonsense");
    EXPECT_EQ(of("Water.Nonsense"), "Nonsense");
    EXPECT_EQ(of("Water.Nonsense{x}"), "Nonsense");
}

TEST_F(ShortName, OfATextThatIsNoNameIsTheText)
{
    EXPECT_EQ(of(""), "");
    EXPECT_EQ(of("Water..Temperature"), "Water..Temperature");
    EXPECT_EQ(of("2 * Temperature"), "2 * Temperature");
}

TEST_F(ShortName, OfANameWhoseDefinitionWasRefusedIsTheName)
{
    EXPECT_THROW(define("p", {{"Long Name", "Temperature"}, {"Tensor Type", "SCALAR"}}), data::duplicate);

    EXPECT_EQ(of("p"), "p");
}

}    // namespace
}    // namespace qen::standalone::test
