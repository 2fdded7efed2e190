#pragma once

#include <string>
#include <vector>

namespace qencheck_test {

/// What one run of the command left behind.
struct Outcome {
    int status = -1;    ///< exit status; -1 when it was ended by a signal
    std::string out;
    std::string error;
};

/// Runs the command in the project's folder, without a terminal and with the default definitions.
///
/// @param p_environment  Further settings, such as "NO_COLOR=1".
Outcome qencheck(const std::vector<std::string>& p_arguments,
                 const std::vector<std::string>& p_environment = {});

std::string readFile(const std::string& p_path);

/// A folder for the files of one test; gone with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return m_path; }

    /// Writes a file into the folder; gives its path.
    std::string write(const std::string& p_name, const std::string& p_text) const;

private:
    std::string m_path;
};

}    // namespace qencheck_test
