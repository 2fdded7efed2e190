#include "CheckMessages.h"
#include "DataError.h"
#include "ExpressionsError.h"

#include "DimExprChecker/DimExprErrors.h"
#include "DimExprChecker/ExpectedMessages.h"
#include "DimExprChecker/MessageCatalogue.h"
#include "support/Matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace qen {
namespace {

using expected::Thrown;
using testing::ElementsAre;

std::string camelCase(const std::string& p_identifier)
{
    std::string result;
    bool wordStarts = true;
    for (const char c : p_identifier)
    {
        if (c != '-')
            result += wordStarts ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        wordStarts = c == '-';
    }
    return result;
}

const std::type_info& classOf(Thrown p_thrown)
{
    switch (p_thrown)
    {
    case Thrown::Warning:
        return typeid(DimExprErrors::dxwarning);
    case Thrown::Bounds:
        return typeid(DimExprErrors::bounds_error);
    case Thrown::Units:
        return typeid(DimExprErrors::units_error);
    case Thrown::DynamicQuantity:
        return typeid(DimExprErrors::dynamic_quant_error);
    case Thrown::DataError:
        return typeid(data::error);
    case Thrown::Name:
        return typeid(expressions::name);
    case Thrown::Error:
        break;
    }
    return typeid(DimExprErrors::dxerror);
}

struct Origin {
    const char* className;
    const char* method;
};

Origin originOf(Thrown p_thrown)
{
    switch (p_thrown)
    {
    case Thrown::DataError:
        return {"DimExprChecker", "extractBoundValue"};
    case Thrown::Name:
        return {"SplitVariableName", "SplitVariableName"};
    default:
        return {"DimExprChecker", "checkParam"};
    }
}

/// The catalogue's row with that text.
const messages::Row& rowSaying(const std::string& p_text)
{
    const auto* const row = std::ranges::find_if(
        messages::k_catalogue, [&](const messages::Row& p_row) { return p_row.text == p_text; });
    if (row == messages::k_catalogue.end())
        throw std::runtime_error("No row of the catalogue says: " + p_text);
    return *row;
}

/// Raises a row that only a running test knows.
[[noreturn]] void raiseAtRunTime(const messages::Row& p_row, const std::vector<messages::Value>& p_values)
{
    using messages::Raises;
    switch (p_row.raises)
    {
    case Raises::Warning:
        throw messages::problem<Raises::Warning>(p_row, p_values);
    case Raises::Bounds:
        throw messages::problem<Raises::Bounds>(p_row, p_values);
    case Raises::Units:
        throw messages::problem<Raises::Units>(p_row, p_values);
    case Raises::DynamicQuantity:
        throw messages::problem<Raises::DynamicQuantity>(p_row, p_values);
    case Raises::InvalidBound:
        throw messages::problem<Raises::InvalidBound>(p_row, p_values);
    case Raises::Name:
        throw messages::problem<Raises::Name>(p_row, p_values);
    case Raises::Error:
        break;
    }
    throw messages::problem<Raises::Error>(p_row, p_values);
}

class CatalogueMessage : public testing::TestWithParam<expected::Message> {};

TEST_P(CatalogueMessage, StandsThereOnceWithItsText)
{
    const auto& all = CheckMessages::all();

    EXPECT_EQ(std::ranges::count(all, std::string(GetParam().text), &CheckMessage::text), 1);

    const CheckMessage* const message = CheckMessages::find(GetParam().identifier);
    ASSERT_NE(message, nullptr);
    EXPECT_STREQ(message->text, GetParam().text);
    EXPECT_STREQ(message->identifier, GetParam().identifier);
}

TEST_P(CatalogueMessage, HasTheLevelOfItsRecord)
{
    const CheckMessage* const message = CheckMessages::find(GetParam().identifier);

    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->level,
              GetParam().thrown == Thrown::Warning ? ExpressionErrors::Warning : ExpressionErrors::Error);
}

TEST_P(CatalogueMessage, NamesItsPlaceholdersInTheirOrder)
{
    const CheckMessage* const message = CheckMessages::find(GetParam().identifier);
    ASSERT_NE(message, nullptr);
    const std::vector<std::string> names(message->placeholders.begin(), message->placeholders.end());

    ASSERT_EQ(static_cast<int>(names.size()), GetParam().placeholders);
    for (int i = 1; i <= GetParam().placeholders; ++i)
    {
        const std::string& name = names[static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(name == "parameter", i == GetParam().parameterAt) << name;
        EXPECT_EQ(name == "object", i == GetParam().objectAt) << name;
        EXPECT_FALSE(name.empty());
    }
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

TEST_P(CatalogueMessage, IsThrownAsItsClassWithItsPlaceholdersFilled)
{
    // Given a value for each placeholder, and the text with these values in it
    std::vector<std::string> values;
    std::string text = GetParam().text;
    for (int i = 1; i <= GetParam().placeholders; ++i)
    {
        values.push_back("value " + std::string(1, static_cast<char>('A' + i - 1)));
        text.replace(text.find("%" + std::to_string(i)), 2, values.back());
    }

    // When the row is raised, then class, origin and text are those of the message
    try
    {
        raiseAtRunTime(rowSaying(GetParam().text), {values.begin(), values.end()});
    }
    catch (const Error& thrown)
    {
        EXPECT_STREQ(typeid(thrown).name(), classOf(GetParam().thrown).name());
        EXPECT_EQ(thrown.getMessage(), text);
        EXPECT_EQ(thrown.getClass(), originOf(GetParam().thrown).className);
        EXPECT_EQ(thrown.getMethod(), originOf(GetParam().thrown).method);
        EXPECT_EQ(static_cast<int>(thrown.getType()), 4);
    }
}

INSTANTIATE_TEST_SUITE_P(AllTexts, CatalogueMessage, testing::ValuesIn(expected::k_messages),
                         [](const auto& p_info) { return camelCase(p_info.param.identifier); });

TEST(MessageCatalogue, HoldsNothingElse) { EXPECT_EQ(CheckMessages::all().size(), 65U); }

TEST(MessageCatalogue, OnlyTheParameterNameClashIsAWarning)
{
    std::vector<std::string> warnings;
    for (const CheckMessage& message : CheckMessages::all())
        if (message.level == ExpressionErrors::Warning)
            warnings.emplace_back(message.identifier);

    EXPECT_THAT(warnings, ElementsAre("parameter-name-clash"));
}

TEST(MessageCatalogue, OnlyOneMessageIsAboutADynamicQuantity)
{
    std::vector<std::string> found;
    for (const messages::Row& row : messages::k_catalogue)
        if (row.raises == messages::Raises::DynamicQuantity)
            found.emplace_back(row.text);

    EXPECT_THAT(found, ElementsAre("Invalid dynamic units ('%1') set for parameter '%2' in object '%3'. "
                                   "Expected units: '%4'."));
}

TEST(MessageCatalogue, IdentifiersAreDistinctWords)
{
    std::set<std::string> seen;
    for (const CheckMessage& message : CheckMessages::all())
    {
        const std::string identifier = message.identifier;
        EXPECT_TRUE(seen.insert(identifier).second) << identifier << " is there twice";
        EXPECT_TRUE(std::ranges::all_of(identifier, [](char c) {
            return c == '-' || (c >= 'a' && c <= 'z');
        })) << identifier;
        EXPECT_FALSE(identifier.starts_with('-') || identifier.ends_with('-')) << identifier;
    }
}

TEST(MessageCatalogue, KnowsNoOtherIdentifier)
{
    EXPECT_EQ(CheckMessages::find("no-such-message"), nullptr);
    EXPECT_EQ(CheckMessages::find(""), nullptr);
    EXPECT_EQ(CheckMessages::find("Wrong-Units"), nullptr);
}

TEST(MessageCatalogue, FillsAPlaceholderThatAnEarlierValueBringsAlong)
{
    const auto thrown = support::thrownBy<DimExprErrors::dxerror>([] {
        messages::raise<messages::Msg::FieldValuedFunction>(std::string("ave %2"), std::string("Speed"),
                                                            std::string("/FLOW:F"));
    });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(),
              "The function 'ave Speed' referenced by parameter 'Speed' in object '/FLOW:F' "
              "is field valued, but the parameter is defined to be \"Single Valued\".");
}

TEST(MessageCatalogue, WarnsOfAValueTooManyAndStillThrows)
{
    std::string text;

    const std::string printed = support::standardErrorOf([&] {
        try
        {
            raiseAtRunTime(
                rowSaying(
                    "Invalid units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'."),
                {"m", "Speed", "/FLOW:F", "m s^-1", "one too many"});
        }
        catch (const DimExprErrors::units_error& thrown)
        {
            text = thrown.getMessage();
        }
    });

    EXPECT_EQ(text,
              "Invalid units ('m') set for parameter 'Speed' in object '/FLOW:F'. Expected units: 'm s^-1'.");
    EXPECT_EQ(printed, "Warning: token %5 was not used in the message: \"one too many\"\n");
}

TEST(MessageCatalogue, ListsNamesSortedAndOnceForUnavailableVariables)
{
    const auto thrown = support::thrownBy<DimExprErrors::dxerror>([] {
        messages::raise<messages::Msg::UnavailableVariables>(
            std::string("Speed"), std::string("/FLOW:F"),
            std::vector<std::string> {"temperature", "density", "temperature", "Yplus"});
    });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(),
              "Parameter 'Speed' in object '/FLOW:F' has been assigned an expression that "
              "references the following unavailable variables:   Yplus,density,temperature");
}

TEST(MessageCatalogue, ListsNamesSortedAndOnceForAdditionalVariablesThatAreNotAllowed)
{
    const auto thrown = support::thrownBy<DimExprErrors::dxerror>([] {
        messages::raise<messages::Msg::AVsNotAllowed>(std::string("Speed"), std::string("/FLOW:F"),
                                                      std::vector<std::string> {"Smoke", "Dye", "Smoke"});
    });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(
        thrown->getMessage(),
        "Parameter 'Speed' in object '/FLOW:F' has been assigned an expression that references additional "
        "variables. This is not allowed for this parameter. The additional variables referenced are:  "
        "Dye,Smoke.");
}

}    // namespace
}    // namespace qen
