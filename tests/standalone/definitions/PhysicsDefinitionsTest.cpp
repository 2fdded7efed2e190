#include "definitions/Definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::Contains;
using testing::Field;
using testing::IsEmpty;

TEST(Definitions, TellOfAQueryThatIsAskedAndNotDefined)
{
    // Given physics that take one query back, and define another that nobody asks
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(testing::TempDir()) / "qen-physics";
    fs::create_directories(folder);
    const std::string shipped = QENCHECK_PROJECT "/definitions";
    for (const char* file : {"UNITS.qcl", "RULES.qcl", "VARIABLES.qcl"})
        fs::copy_file(fs::path(shipped) / file, folder / file, fs::copy_options::overwrite_existing);
    std::ofstream(folder / "PHYSICS.qcl") << "[/QUERY:isSimTypetransient]\n"
                                             "Object = {FLOW}/SIMULATION\n"
                                             "Parameter = Type\n"
                                             "Is = Transient\n";

    const Definitions definitions({folder.string()});

    // Then each of the others is an error with its name
    EXPECT_TRUE(definitions.hasErrors());
    EXPECT_THAT(
        definitions.problems(),
        Contains(Field(&Finding::message,
                       "The physics query 'isRFR' is asked and no file defines it. Expected a section "
                       "'/QUERY:isRFR' in PHYSICS.qcl.")));
    EXPECT_THAT(definitions.problems(),
                Not(Contains(Field(&Finding::message, testing::HasSubstr("isSimTypetransient")))));
    fs::remove_all(folder);
}

TEST(Definitions, ThatAreShippedHaveNoProblem)
{
    const Definitions definitions({QENCHECK_PROJECT "/definitions"});

    EXPECT_THAT(definitions.problems(), IsEmpty());
    EXPECT_THAT(definitions.physics().undefinedQueries(), IsEmpty());
}

}    // namespace
}    // namespace qen::standalone
