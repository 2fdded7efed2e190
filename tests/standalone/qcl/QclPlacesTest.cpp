#include "QclTestSupport.h"

#include <gtest/gtest.h>
#include <string>

namespace qen::standalone {
namespace {

void expectPlace(const SourcePlace& p_place, std::uint32_t p_line, std::uint32_t p_column)
{
    EXPECT_EQ(p_place.line, p_line);
    EXPECT_EQ(p_place.column, p_column);
}

TEST(QclPlaces, AreThoseOfPathNameAndValue)
{
    const QclDocument document = read("\n  [ /A:x ]\n  p q  =  12\n");
    const QclObject& object = document.objects.at(0);
    expectPlace(object.place, 2, 5);
    expectPlace(object.parameters.at(0).place(), 3, 3);
    expectPlace(object.parameters.at(0).placeInValue(0), 3, 11);
    expectPlace(object.parameters.at(0).placeInValue(1), 3, 12);
}

TEST(QclPlaces, OfAnObjectAreThoseOfItsFirstHeader)
{
    const QclDocument document = read("[/A]\n[/B]\n[/A]\n");
    expectPlace(document.objects.at(0).place, 1, 2);
}

TEST(QclPlaces, InAContinuedValueAreFoundOnEachLine)
{
    //                                 value: "1 + 22 * t", its pieces on lines 2, 3 and 5
    const QclDocument document = read("[/A]\np = 1 + \\\n    22 \\\n \\\n  * t \\\n\n");
    const QclParameter& parameter = document.objects.at(0).parameters.at(0);
    ASSERT_EQ(parameter.value(), "1 + 22 * t");
    ASSERT_EQ(parameter.pieces().size(), 3U);
    expectPlace(parameter.placeInValue(0), 2, 5);
    expectPlace(parameter.placeInValue(3), 2, 8);
    expectPlace(parameter.placeInValue(4), 3, 5);
    expectPlace(parameter.placeInValue(6), 3, 7);
    expectPlace(parameter.placeInValue(7), 5, 3);
    expectPlace(parameter.placeInValue(9), 5, 5);
}

TEST(QclPlaces, BehindTheEndOfAValueAreThePlaceBehindItsLastByte)
{
    const QclDocument document = read("[/A]\np = 123\n");
    const QclParameter& parameter = document.objects.at(0).parameters.at(0);
    expectPlace(parameter.placeInValue(3), 2, 8);
    expectPlace(parameter.placeInValue(1000), 2, 8);
}

TEST(QclPlaces, OfAnEmptyValueIsThePlaceBehindTheEqualsSign)
{
    const QclDocument document = read("[/A]\np =\n");
    expectPlace(document.objects.at(0).parameters.at(0).placeInValue(0), 2, 4);
}

TEST(QclPlaces, ColumnsCountBytes)
{
    const QclDocument document = read("[/A]\n\xC3\xA4 = 1\n");
    expectPlace(document.objects.at(0).parameters.at(0).placeInValue(0), 2, 6);
}

TEST(QclPlaces, LinesOfAFileAreGivenWithoutTheirEnds)
{
    const QclDocument document = read("[/A]\r\np = 1\n\nq = 2");
    const SourceFile& file = document.files.at(0);
    EXPECT_EQ(file.path, "case.qcl");
    EXPECT_EQ(file.lineCount(), 4U);
    EXPECT_EQ(file.line(1), "[/A]");
    EXPECT_EQ(file.line(2), "p = 1");
    EXPECT_EQ(file.line(3), "");
    EXPECT_EQ(file.line(4), "q = 2");
    EXPECT_EQ(file.line(0), "");
    EXPECT_EQ(file.line(5), "");
}

}    // namespace
}    // namespace qen::standalone
