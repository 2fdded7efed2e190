#include "Qencheck.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace qencheck_test {
namespace {

std::string quoted(const std::string& p_text)
{
    std::string result = "'";
    for (const char letter : p_text)
        result += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return result + "'";
}

}    // namespace

Outcome qencheck(const std::vector<std::string>& p_arguments, const std::vector<std::string>& p_environment)
{
    const TemporaryFolder folder;
    const std::string out = folder.path() + "/out";
    const std::string error = folder.path() + "/error";

    std::string command = "cd " + quoted(QENCHECK_PROJECT) + " && env -u NO_COLOR -u QENCHECK_DEFINITIONS";
    for (const std::string& setting : p_environment)
        command += " " + quoted(setting);
    command += " " + quoted(QENCHECK_COMMAND);
    for (const std::string& argument : p_arguments)
        command += " " + quoted(argument);
    command += " > " + quoted(out) + " 2> " + quoted(error) + " < /dev/null";

    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(out), readFile(error)};
}

std::string readFile(const std::string& p_path)
{
    std::ifstream file(p_path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + p_path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "qencheck-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot make a folder like " + pattern);
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

std::string TemporaryFolder::write(const std::string& p_name, const std::string& p_text) const
{
    const std::string path = m_path + "/" + p_name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << p_text;
    return path;
}

}    // namespace qencheck_test
