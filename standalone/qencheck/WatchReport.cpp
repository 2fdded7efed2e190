#include "WatchReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace qencheck {
namespace {

constexpr const char* k_bold = "1";
constexpr const char* k_red = "1;31";
constexpr const char* k_green = "1;32";

constexpr std::size_t k_namedFiles = 3;

std::string clockTime(std::time_t p_when)
{
    std::tm time {};
    localtime_r(&p_when, &time);
    return fmt::format("{:02}:{:02}:{:02}", time.tm_hour, time.tm_min, time.tm_sec);
}

/// "a.qcl, b.qcl and c.qcl", "a.qcl, b.qcl, c.qcl and 2 more".
std::string listed(const std::vector<std::string>& p_names)
{
    const std::size_t named = std::min(p_names.size(), k_namedFiles);
    std::string text;
    for (std::size_t number = 0; number < named; ++number)
    {
        if (number > 0)
            text += number + 1 == p_names.size() ? " and " : ", ";
        text += p_names[number];
    }
    return p_names.size() > named ? fmt::format("{} and {} more", text, p_names.size() - named) : text;
}

}    // namespace

void WatchReport::writeHead(std::time_t p_when, const std::vector<SavedFile>& p_saved,
                            const std::string& p_outcome) const
{
    const std::string head = fmt::format("---- {} {}{}{}", clockTime(p_when), inWords(p_saved),
                                         p_outcome.empty() ? "" : ": ", p_outcome);
    fmt::print(m_stream, "\n{}\n", m_text.coloured(k_bold, head));
}

std::string WatchReport::writeFindings(const std::vector<ReportedFinding>& p_before,
                                       const std::vector<ReportedFinding>& p_now) const
{
    const ReportDifference changes = difference(p_before, p_now);
    for (std::size_t number = 0; number < p_now.size(); ++number)
        m_text.write(p_now[number].finding,
                     changes.isNew[number] ? m_text.coloured(k_red, "new:") + " " : std::string());
    for (const std::size_t number : changes.gone)
        m_text.writeMessage(p_before[number].finding, m_text.coloured(k_green, "gone:") + " ");

    if (changes.appeared == 0 && changes.gone.empty())
        return " (nothing new)";
    return fmt::format(" ({} new, {} gone)", changes.appeared, changes.gone.size());
}

void WatchReport::writeLine(const std::string& p_line) const { fmt::print(m_stream, "{}\n", p_line); }

std::string inWords(const std::vector<SavedFile>& p_saved)
{
    std::vector<std::string> saved;
    std::vector<std::string> gone;
    for (const SavedFile& file : p_saved)
        (file.exists ? saved : gone).push_back(file.path);

    std::string text;
    if (!saved.empty())
        text = listed(saved) + " saved";
    if (!gone.empty())
        text += (text.empty() ? "" : ", ") + listed(gone) + " gone";
    return text;
}

}    // namespace qencheck
