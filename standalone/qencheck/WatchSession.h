#pragma once

#include "ExitStatus.h"
#include "FileWatch.h"
#include "ReportDifference.h"
#include "WatchReport.h"

#include "checking/CaseChecker.h"
#include "checking/CaseFollower.h"
#include "definitions/Definitions.h"
#include "qcl/QclDocument.h"
#include "qcl/QclFollower.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace qencheck {

/// A case that is followed while its files are saved: looks at them, checks what a save can have changed, and reports.
///
/// Two things stand until something better comes: the last definitions without errors, and the last text of the case
/// that parses. Only before there was one, a text with syntax errors is checked as far as it could be read, as `check`
/// does.
class WatchSession {
public:
    /// @param p_atEachParameter  Called while parameters are checked. What it throws ends the look, and with it the
    ///                           session's use.
    WatchSession(std::string p_caseFile, std::vector<std::string> p_definitionFolders, WatchReport p_report,
                 std::function<void()> p_atEachParameter);

    /// Reads everything and writes the first report, as `check` does.
    ///
    /// @return False when there is nothing to wait for: the case file itself or one of the definition files cannot be
    ///         read.
    bool begin();

    /// Looks whether files were saved, and if so reports what came of it.
    void look();

    /// Whether to look again soon.
    bool isSettling() const { return m_watch.isSettling(); }

    /// The status that the files earn as they stand now, which is that of `check`.
    ExitStatus status() const;

private:
    using Definitions = qen::standalone::Definitions;
    using QclDocument = qen::standalone::QclDocument;

    bool gatherSaved();
    void take(const std::shared_ptr<const Definitions>& p_definitions,
              const std::shared_ptr<const QclDocument>& p_case, const std::vector<SavedFile>& p_saved);
    void check(const QclDocument& p_case);
    void followFiles();

    /// Whether the latest text of the case was not taken over.
    bool caseStandsBack() const { return m_latestCase != m_case; }

    void writeFirstReport() const;
    void writeReport(bool p_isFirst) const;
    void writeWhatStands(bool p_checked) const;
    void writeWatching() const;
    std::string checkedAgain(bool p_parsesAgain) const;

    std::string m_caseFile;
    std::vector<std::string> m_folders;
    WatchReport m_report;
    std::function<void()> m_atEachParameter;

    FileWatch m_watch;
    std::set<std::string> m_definitionPaths;
    std::set<std::string> m_casePaths;
    std::vector<SavedFile> m_saved;    // told of by the watch, and not read yet

    std::shared_ptr<const Definitions> m_latestDefinitions;    // as they were read last
    std::shared_ptr<const Definitions> m_definitions;    // the last without errors; null when there was none
    qen::standalone::QclFollower m_reader;
    std::shared_ptr<const QclDocument> m_latestCase;    // as it was read last
    std::shared_ptr<const QclDocument> m_case;          // the one that is checked
    bool m_hasParsed = false;                           // some text of the case did

    std::unique_ptr<qen::standalone::CaseFollower> m_follower;    // null before the first check
    qen::standalone::CaseReport m_found;                          // with the problems of the text
    std::vector<ReportedFinding> m_reportedBefore;
    std::vector<ReportedFinding> m_reported;
    bool m_hasChecked = false;
};

}    // namespace qencheck
