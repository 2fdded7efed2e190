#include "WatchSession.h"

#include "CaseStatus.h"
#include "ProgressLine.h"
#include "WatchedFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <utility>

namespace qencheck {

using qen::standalone::CaseFollower;
using qen::standalone::Definitions;
using qen::standalone::Diagnostic;
using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::Severity;

namespace {

bool parses(const QclDocument& p_case)
{
    return std::none_of(p_case.problems.begin(), p_case.problems.end(),
                        [](const Diagnostic& p_problem) { return p_problem.severity == Severity::Error; });
}

/// Whether the file that was asked for cannot be read at all, while those that it includes are another matter.
bool isUnreadable(const QclDocument& p_case)
{
    return std::any_of(p_case.problems.begin(), p_case.problems.end(), [](const Diagnostic& p_problem) {
        return p_problem.place.file == 0 && p_problem.place.line == 0;
    });
}

bool isMissingAFile(const Definitions& p_definitions)
{
    const std::vector<Finding>& problems = p_definitions.problems();
    return std::any_of(problems.begin(), problems.end(), [](const Finding& p_problem) {
        return p_problem.identifier == "missing-definitions" || p_problem.identifier == "definition-folder";
    });
}

template <class T>
void append(std::vector<T>& p_to, std::vector<T> p_more)
{
    p_to.insert(p_to.end(), std::make_move_iterator(p_more.begin()), std::make_move_iterator(p_more.end()));
}

bool sameDefinitions(const Definitions& p_a, const Definitions& p_b)
{
    return sameReading(p_a.files(), p_a.problems(), p_b.files(), p_b.problems());
}

bool sameCase(const QclDocument& p_a, const QclDocument& p_b)
{
    return sameReading(filesOf(p_a), problemsOf(p_a), filesOf(p_b), problemsOf(p_b));
}

FileTexts allFiles(const Definitions& p_definitions, const QclDocument& p_case)
{
    FileTexts files = p_definitions.files();
    append(files, filesOf(p_case));
    return files;
}

/// What keeps a text of a case from being checked.
std::string faultOf(const QclDocument& p_case)
{
    if (couldNotBeRead(p_case))
        return "a file cannot be read";
    const auto errors =
        std::count_if(p_case.problems.begin(), p_case.problems.end(),
                      [](const Diagnostic& p_problem) { return p_problem.severity == Severity::Error; });
    return "the text holds " + counted(static_cast<std::size_t>(errors), "syntax error");
}

}    // namespace

WatchSession::WatchSession(std::string p_caseFile, std::vector<std::string> p_definitionFolders,
                           WatchReport p_report, std::function<void()> p_atEachParameter)
    : m_caseFile(std::move(p_caseFile)), m_folders(std::move(p_definitionFolders)), m_report(p_report),
      m_atEachParameter(std::move(p_atEachParameter)), m_reader(m_caseFile)
{}

bool WatchSession::begin()
{
    m_latestDefinitions = std::make_shared<const Definitions>(m_folders);
    m_latestCase = std::make_shared<const QclDocument>(m_reader.read());
    m_hasParsed = parses(*m_latestCase);
    m_case = m_latestCase;
    if (!m_latestDefinitions->hasErrors())
    {
        m_definitions = m_latestDefinitions;
        check(*m_case);
    }
    writeFirstReport();

    if (isMissingAFile(*m_latestDefinitions) || isUnreadable(*m_latestCase))
        return false;
    followFiles();
    writeWatching();
    return true;
}

void WatchSession::look()
{
    const bool isNews = gatherSaved();
    if (!isNews && (m_saved.empty() || m_watch.isSettling()))
        return;

    const auto isIn = [this](const std::set<std::string>& p_paths) {
        return std::any_of(m_saved.begin(), m_saved.end(),
                           [&](const SavedFile& p_file) { return p_paths.contains(p_file.path); });
    };
    std::shared_ptr<const Definitions> definitions;
    if (isIn(m_definitionPaths))
        definitions = std::make_shared<const Definitions>(m_folders);
    std::shared_ptr<const QclDocument> document;
    if (isIn(m_casePaths))
        document = std::make_shared<const QclDocument>(m_reader.read());

    const bool isGood = (!definitions || !definitions->hasErrors()) && (!document || parses(*document));
    if (!isGood && m_watch.isOutdated())
        return;    // half a save: the watch will tell of the rest

    if (definitions && sameDefinitions(*definitions, *m_latestDefinitions))
        definitions.reset();
    if (document && sameCase(*document, *m_latestCase))
        document.reset();
    const std::vector<SavedFile> saved = std::exchange(m_saved, {});
    if (definitions || document)
        take(definitions, document, saved);
}

ExitStatus WatchSession::status() const
{
    if (!m_latestDefinitions || m_latestDefinitions->hasErrors())
        return k_couldNotCheck;
    if (caseStandsBack())
        return couldNotBeRead(*m_latestCase) || m_found.internalError ? k_couldNotCheck : k_errorsFound;
    return statusOf(*m_case, m_found);
}

/// Adds what the watch tells of to what was not read yet.
///
/// @return Whether it told of anything.
bool WatchSession::gatherSaved()
{
    std::vector<SavedFile> news = m_watch.look();
    for (const SavedFile& file : news)
        std::erase_if(m_saved, [&](const SavedFile& p_known) { return p_known.path == file.path; });
    append(m_saved, news);
    return !news.empty();
}

/// Takes over what was read, checks what there is to check, and reports.
///
/// @param p_definitions  Null when they are the same as before; likewise the case.
void WatchSession::take(const std::shared_ptr<const Definitions>& p_definitions,
                        const std::shared_ptr<const QclDocument>& p_case,
                        const std::vector<SavedFile>& p_saved)
{
    const std::time_t when = std::time(nullptr);
    const std::shared_ptr<const Definitions> definitionsBefore = m_latestDefinitions;
    const std::shared_ptr<const QclDocument> caseBefore = m_latestCase;
    const bool newDefinitions = p_definitions && !p_definitions->hasErrors();
    const bool newCase = p_case && (parses(*p_case) || !m_hasParsed);
    const bool parsesAgain = newCase && caseStandsBack();
    if (p_definitions)
        m_latestDefinitions = p_definitions;
    if (p_case)
        m_latestCase = p_case;
    followFiles();

    if (newDefinitions)
    {
        m_follower.reset();    // which looks at the old ones
        m_definitions = p_definitions;
    }
    m_hasParsed = m_hasParsed || (newCase && parses(*p_case));
    const std::shared_ptr<const QclDocument> toCheck = newCase ? p_case : m_case;
    const bool isFirstCheck = !m_hasChecked;
    const bool checks = m_definitions && (newDefinitions || newCase);
    if (checks)
        check(*toCheck);
    m_case = toCheck;    // only now: the follower may look at the one before until it is told of the next

    m_report.writeHead(when,
                       withOtherText(p_saved, allFiles(*definitionsBefore, *caseBefore),
                                     allFiles(*m_latestDefinitions, *m_latestCase)),
                       checks && !isFirstCheck ? checkedAgain(parsesAgain) : std::string());
    if (p_definitions && !newDefinitions)
        m_report.text().write(p_definitions->problems());
    if (p_case && !newCase)
        m_report.text().write(problemsOf(*p_case));
    if (checks)
        writeReport(isFirstCheck);
    writeWhatStands(checks);
}

void WatchSession::check(const QclDocument& p_case)
{
    if (!m_follower)
        m_follower = std::make_unique<CaseFollower>(*m_definitions);
    {
        ProgressLine progress(m_caseFile);
        m_found = m_follower->update(p_case, [&](std::size_t p_done, std::size_t p_all) {
            progress.update(p_done, p_all);
            m_atEachParameter();
        });
    }
    append(m_found.findings, problemsOf(p_case));
    qen::standalone::sortByPlace(m_found.findings);

    m_reportedBefore = std::exchange(m_reported, withLinesAsSubjects(m_definitions->problems()));
    append(m_reported, withSubjects(m_found.findings, p_case));
    m_hasChecked = true;
}

void WatchSession::followFiles()
{
    const auto takePaths = [](std::set<std::string>& p_set, const std::vector<std::string>& p_paths) {
        p_set = {p_paths.begin(), p_paths.end()};
    };
    takePaths(m_definitionPaths, pathsOf(m_latestDefinitions->files(), m_latestDefinitions->problems()));
    for (const std::string& path : qen::standalone::definitionFiles(m_folders))
        m_definitionPaths.insert(path);
    takePaths(m_casePaths, pathsOf(filesOf(*m_latestCase), problemsOf(*m_latestCase)));

    std::vector<std::string> all(m_definitionPaths.begin(), m_definitionPaths.end());
    all.insert(all.end(), m_casePaths.begin(), m_casePaths.end());
    m_watch.follow(all);
}

void WatchSession::writeFirstReport() const
{
    if (m_definitions)
        return writeReport(true);
    m_report.text().write(m_latestDefinitions->problems());
    writeWhatStands(false);
}

/// Writes the findings and the summary.
///
/// @param p_isFirst  There is nothing to compare with.
void WatchSession::writeReport(bool p_isFirst) const
{
    std::string remark;
    if (p_isFirst)
        for (const ReportedFinding& reported : m_reported)
            m_report.text().write(reported.finding);
    else
        remark = m_report.writeFindings(m_reportedBefore, m_reported);
    m_report.text().writeSummary(m_caseFile, m_found, remark);
}

/// Says what could not be taken over, and what stands instead.
void WatchSession::writeWhatStands(bool p_checked) const
{
    if (m_latestDefinitions != m_definitions)
    {
        const char* const consequence = !m_definitions ? "nothing was checked."
                                        : p_checked    ? "the last good ones were used."
                                                    : "nothing was checked, the last good ones still stand.";
        m_report.writeLine(std::string("The definitions hold errors: ") + consequence);
    }
    if (caseStandsBack())
    {
        const std::string consequence =
            p_checked ? "the last good text was checked."
            : m_hasChecked
                ? "nothing was checked, the last good text still stands: " + m_report.text().found(m_found)
                : "the last good text still stands.";
        m_report.writeLine(fmt::format("{}: {}: {}", m_caseFile, faultOf(*m_latestCase), consequence));
    }
}

void WatchSession::writeWatching() const
{
    const std::size_t included = m_casePaths.size() - m_casePaths.count(m_caseFile);
    const std::string files = included == 0
                                  ? m_caseFile + " and"
                                  : fmt::format("{}, {} and", m_caseFile, counted(included, "included file"));
    m_report.writeLine(fmt::format("Watching {} the definitions. Ctrl-C ends.", files));
}

/// Which part of the case a save had checked again.
std::string WatchSession::checkedAgain(bool p_parsesAgain) const
{
    return fmt::format("{}{} of {} checked again", p_parsesAgain ? "it parses again, " : "",
                       m_follower->checked().size(), counted(m_found.parameters, "parameter"));
}

}    // namespace qencheck
