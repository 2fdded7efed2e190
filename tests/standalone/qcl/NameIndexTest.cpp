#include "qcl/NameIndex.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {
namespace {

struct Itself {
    std::string_view operator()(const std::string& p_text) const { return p_text; }
};

TEST(NameIndex, FindsEachOfFewAndOfManyNames)
{
    std::vector<std::string> names;
    NameIndex<Itself> index;
    for (std::uint32_t count = 0; count < 5000; ++count)
    {
        EXPECT_EQ(index.find(names, std::to_string(count)), NameIndex<Itself>::k_none);
        names.push_back(std::to_string(count));
        index.addNext(names);
        EXPECT_EQ(index.find(names, std::to_string(count)), count);
    }
    for (std::uint32_t count = 0; count < 5000; ++count)
        EXPECT_EQ(index.find(names, std::to_string(count)), count);
}

TEST(NameIndex, FindsTheNamesThatAreLeftAfterOneWasRemoved)
{
    std::vector<std::string> names;
    NameIndex<Itself> index;
    for (int count = 0; count < 20; ++count)
        names.push_back(std::to_string(count));
    index.rebuild(names);

    names.erase(names.begin() + 3);
    index.rebuild(names);

    EXPECT_EQ(index.find(names, "3"), NameIndex<Itself>::k_none);
    EXPECT_EQ(index.find(names, "2"), 2U);
    EXPECT_EQ(index.find(names, "19"), 18U);
}

TEST(NameIndex, FindsTheEmptyNameOnlyWhereThereIsOne)
{
    std::vector<std::string> names;
    NameIndex<Itself> index;
    EXPECT_EQ(index.find(names, ""), NameIndex<Itself>::k_none);
    names.emplace_back();
    index.addNext(names);
    EXPECT_EQ(index.find(names, ""), 0U);
}

}    // namespace
}    // namespace qen::standalone
