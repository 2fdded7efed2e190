/// @file
/// A large case that is checked and followed, for a program that counts instructions: callgrind. Run by
/// count_following.sh.
///
/// usage: CountedFollowing PARAMETERS
///
/// Counts, for a case of that many parameters with 30 expressions in a hundred, from its text on: the check from scratch,
/// the first check of a follower, which records what each check reads, and what it takes when one value of a boundary
/// has been changed and the text is saved. They are dumped under the names "scratch 1", "first 1" and "change 1".

#include "Counting.h"

#include "checking/CaseChecker.h"
#include "checking/CaseFollower.h"
#include "definitions/Definitions.h"
#include "qcl/QclFollower.h"
#include "qcl/QclReader.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace qen::standalone;
using qen::benchmarks::counted;

constexpr std::size_t k_parametersOfBoundary = 10;

/// A tank with that many walls; one of them is given another thickness in mm.
std::string largeCase(std::size_t p_walls, std::size_t p_changed, int p_thickness)
{
    std::string text = R"([/FLOW:Large/SIMULATION]
Type = Transient
Duration = 10 [s]

[/FLOW:Large/DOMAIN:Tank/FLUID DEFINITION:Water]
Material = Water
Morphology = Continuous Fluid

[/FLOW:Large/DOMAIN:Tank/FLUID MODELS/HEAT TRANSFER MODEL]
Option = Thermal Energy

[/LIBRARY/MATERIAL:Water]
Option = Pure Substance

[/LIBRARY/QEL/EXPRESSIONS]
Tank Radius = 2 [m]
Ramp Time = 5 [s]
)";
    for (std::size_t wall = 0; wall < p_walls; ++wall)
    {
        const std::string path = "/FLOW:Large/DOMAIN:Tank/BOUNDARY:Wall " + std::to_string(wall);
        text += "\n[" + path + "]\nBoundary Type = Wall\nLocation = Face " + std::to_string(wall) + "\n\n[" +
                path +
                "/WALL]\nOption = No Slip\nRoughness = Rough\nContact Angle = 85 [deg]\n"
                "Sand Grain Roughness = 45 [um] * (1 + abs(x) / Tank Radius)\n\n[" +
                path +
                "/HEAT TRANSFER]\nOption = Heat Transfer Coefficient\n"
                "Heat Transfer Coefficient = 8 [W m^-2 K^-1] * max(0.1, min(1, t / Ramp Time))\n"
                "Outside Temperature = 293.15 [K] + 2 [K] * sin(y / Tank Radius)\nWall Thickness = " +
                std::to_string(wall == p_changed ? p_thickness : 6) + " [mm]\n";
    }
    return text;
}

/// A file that is removed in the end.
class CaseFile {
public:
    CaseFile()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "following-XXXXXX";
        m_folder = mkdtemp(pattern.data());
    }

    ~CaseFile() { std::filesystem::remove_all(m_folder); }

    CaseFile(const CaseFile&) = delete;
    CaseFile& operator=(const CaseFile&) = delete;

    std::string path() const { return m_folder + "/large.qcl"; }
    void save(const std::string& p_text) const { std::ofstream(path()) << p_text; }

private:
    std::string m_folder;
};

bool run(std::size_t p_parameters)
{
    const Definitions definitions({QEN_DEFINITIONS_DIR});
    const std::size_t walls = p_parameters / k_parametersOfBoundary;
    const CaseFile file;
    file.save(largeCase(walls, 0, 6));
    checkCase(readQclText("warm-up.qcl", largeCase(1, 0, 6)), definitions);

    CaseReport scratch;
    counted("scratch 1", [&] { return &(scratch = checkCase(readQclFile(file.path()), definitions)); });

    QclFollower text(file.path());
    CaseFollower follower(definitions);
    CaseReport followed;
    counted("first 1", [&] { return &(followed = follower.update(text.read())); });

    file.save(largeCase(walls, walls / 2, 7));
    counted("change 1", [&] { return &(followed = follower.update(text.read())); });

    const bool right = scratch.findings.empty() && followed.findings.empty() &&
                       followed.parameters == scratch.parameters && follower.checked().size() == 1;
    if (!right)
        std::fprintf(stderr, "Expected no findings and one parameter checked again, not %zu and %zu\n",
                     scratch.findings.size() + followed.findings.size(), follower.checked().size());
    return right;
}

}    // namespace

int main(int p_count, char** p_arguments)
{
    const std::size_t parameters = p_count == 2 ? std::strtoull(p_arguments[1], nullptr, 10) : 0;
    if (parameters < k_parametersOfBoundary)
    {
        std::fprintf(stderr, "usage: CountedFollowing PARAMETERS\n");
        return 2;
    }
    return run(parameters) ? EXIT_SUCCESS : EXIT_FAILURE;
}
