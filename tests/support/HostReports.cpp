#include "support/HostReports.h"

#include "QENAssertImpl.h"

#include "support/HostTextScript.h"

namespace qen {

namespace {

struct Log {
    std::vector<ErrorMsg> reported;
    std::vector<support::FailedAssertion> failedAssertions;
};

Log& theLog()
{
    static Log log;
    return log;
}

}    // namespace

ErrorReporter& ErrorReporter::instance()
{
    static ErrorReporter reporter;
    return reporter;
}

void ErrorReporter::report(const ErrorMsg& p_message)
{
    support::HostTextScript::note("report", std::to_string(p_message.getType()));
    theLog().reported.push_back(p_message);
}

void QENAssertImpl::assertFail(const char* p_message, const char* p_file, int p_line)
{
    theLog().failedAssertions.push_back({p_message, p_file, p_line});
}

namespace support {

const std::vector<ErrorMsg>& HostReports::reported() { return theLog().reported; }

const std::vector<FailedAssertion>& HostReports::failedAssertions() { return theLog().failedAssertions; }

void HostReports::reset() { theLog() = {}; }

}    // namespace support

}    // namespace qen
