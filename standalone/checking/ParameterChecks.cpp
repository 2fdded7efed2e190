#include "checking/ParameterChecks.h"

#include "checking/ExpressionFindings.h"
#include "checking/MessageLog.h"
#include "checking/ModelFindings.h"
#include "checking/NameFindings.h"
#include "checking/RecordPlaces.h"
#include "model/UpdateRecord.h"

#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"

#include "Error.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <string>
#include <unordered_map>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";

using Records = std::vector<ExpressionErrors::ExprError>;

/// What an exception says.
std::string describe(const std::exception_ptr& p_exception)
{
    try
    {
        std::rethrow_exception(p_exception);
    }
    catch (const Error& error)
    {
        return error.getMessage();
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
    catch (...)
    {
        return "an exception of unknown type";
    }
}

/// The check of some parameters, from the first change to the last finding.
class ParameterChecks {
public:
    ParameterChecks(CaseWorld& p_case, const std::vector<ParameterToCheck>& p_parameters,
                    const std::function<void()>& p_onFollowed)
        : m_case(p_case), m_parameters(p_parameters), m_onFollowed(p_onFollowed), m_world(p_case.world()),
          m_hasException(p_parameters.size(), false)
    {
        m_checked.findings.resize(p_parameters.size());
        if (m_parameters.size() > 1)
            for (std::size_t i = 0; i < m_parameters.size(); ++i)
                m_numbers.emplace(key(m_parameters[i].parameter.objectPath, m_parameters[i].parameter.name),
                                  i);
        m_world.onAssertion = [this](const std::string& p_message, const std::string& p_file, int p_line) {
            m_checked.internalError = true;
            m_checked.ofCase.push_back(
                {Severity::Error,
                 "internal-error",
                 "Internal error: " + p_message + " (" + p_file + ", line " + std::to_string(p_line) + ").",
                 ParameterFinding::At::Nothing,
                 {}});
        };
    }

    CheckedParameters run()
    {
        const WorldScope world(m_world);
        const ScopedCheckMessageListener listener(&m_messages);

        for (std::size_t i = 0; i < m_parameters.size(); ++i)
            addWhatTheRulesSay(i);

        DimExprChecker checker = m_case.makeChecker();
        DimExprCheckScheduler scheduler(&m_case.model(), &m_case.definitions().rules(), nullptr, &checker);
        follow(scheduler);
        const std::vector<Records> records = byParameter(runDeferred(checker, scheduler));

        for (std::size_t i = 0; i < m_parameters.size(); ++i)
            addWhatElseIsFound(i, records[i]);
        return std::move(m_checked);
    }

private:
    void addWhatTheRulesSay(std::size_t p_number)
    {
        const ParameterToCheck& checked = m_parameters[p_number];
        ParameterFindings& findings = m_checked.findings[p_number];
        if (checked.hasKnownPath)
            addRuleFindings(checked.parameter, m_case.model(), m_case.definitions().rules(),
                            m_case.definitions().units(), findings);
        if (checked.isTooLong)
            findings.push_back(atName(Severity::Error, "limit-list-length",
                                      "The list of " + checked.parameter.described() +
                                          " is too long to be checked: " +
                                          std::to_string(checked.parameter.value.size()) + " bytes with " +
                                          std::to_string(std::count(checked.parameter.value.begin(),
                                                                    checked.parameter.value.end(), ',')) +
                                          " commas."));
    }

    /// Has the scheduler follow each parameter as a change of it. An exception ends the check of its parameter alone.
    void follow(DimExprCheckScheduler& p_scheduler)
    {
        UpdateRecord changes;
        std::string inObject;
        for (const ParameterToCheck& checked : m_parameters)
        {
            const CaseParameter& parameter = checked.parameter;
            if (parameter.objectPath != inObject)
            {
                if (!inObject.empty())
                    changes.endObject(inObject);
                inObject = parameter.objectPath;
                changes.beginObject(inObject);
            }
            changes.changeParameter(parameter.objectPath, parameter.name, parameter.value);
        }
        if (!inObject.empty())
            changes.endObject(inObject);

        CatchingHandler handler(p_scheduler, *this);
        changes.replay(handler);
    }

    class CatchingHandler final : public QCLUpdateHandler {
    public:
        CatchingHandler(QCLUpdateHandler& p_target, ParameterChecks& p_checks)
            : m_target(p_target), m_checks(p_checks)
        {}

        void onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                           const std::string& p_value, bool p_flag) override
        {
            const std::size_t number = m_next++;
            if (m_checks.m_onFollowed)
                m_checks.m_onFollowed();
            if (m_checks.m_parameters[number].isTooLong)
                return;
            try
            {
                m_target.onParamChange(p_objectPath, p_paramName, p_value, p_flag);
            }
            catch (...)
            {
                m_checks.addException(number, std::current_exception());
            }
        }

    private:
        QCLUpdateHandler& m_target;
        ParameterChecks& m_checks;
        std::size_t m_next = 0;
    };

    /// Checks what was deferred in one run; if that throws, in one run per parameter, so that the exception is told
    /// of the parameter that causes it and of no other.
    Records runDeferred(DimExprChecker& p_checker, DimExprCheckScheduler& p_scheduler)
    {
        try
        {
            p_scheduler.runDeferredChecks();
            return {p_checker.beginExprError(), p_checker.endExprError()};
        }
        catch (...)
        {
            Records records;
            for (std::size_t i = 0; i < m_parameters.size(); ++i)
                runOne(i, records);
            return records;
        }
    }

    void runOne(std::size_t p_number, Records& p_records)
    {
        if (m_parameters[p_number].isTooLong)
            return;
        const CaseParameter& parameter = m_parameters[p_number].parameter;
        DimExprChecker checker = m_case.makeChecker();
        DimExprCheckScheduler scheduler(&m_case.model(), &m_case.definitions().rules(), nullptr, &checker);
        try
        {
            scheduler.checkParam(parameter.objectPath, parameter.name);
            scheduler.runDeferredChecks();
        }
        catch (...)
        {
            addException(p_number, std::current_exception());
        }
        p_records.insert(p_records.end(), checker.beginExprError(), checker.endExprError());
    }

    void addException(std::size_t p_number, const std::exception_ptr& p_exception)
    {
        if (m_hasException[p_number])
            return;    // told of when the parameter was followed
        m_hasException[p_number] = true;

        const std::string reason = describe(p_exception);
        const MessageLog::Raised* const raised = m_messages.find(reason);
        const CaseParameter& parameter = m_parameters[p_number].parameter;
        m_checked.findings[p_number].push_back(
            atValue(Severity::Error, {0, parameter.value.size()},
                    raised ? raised->message->identifier : "check-exception",
                    "Parameter '" + parameter.name + "' in object '" + parameter.objectPath +
                        "' could not be checked: " + reason));
    }

    std::vector<Records> byParameter(const Records& p_records) const
    {
        std::vector<Records> records(m_parameters.size());
        for (const ExpressionErrors::ExprError& record : p_records)
            records[m_parameters.size() == 1 ? 0 : m_numbers.at(key(record.object, record.parameter))]
                .push_back(record);
        return records;
    }

    /// What the library found, and what it does not look at. One fault once: the latter is told only of places that
    /// the former leaves out. Records of named expressions are about their names, and do not count.
    void addWhatElseIsFound(std::size_t p_number, const Records& p_records)
    {
        const ParameterToCheck& checked = m_parameters[p_number];
        ParameterFindings& findings = m_checked.findings[p_number];
        const std::size_t firstOfRecords = findings.size();
        if (!p_records.empty())
        {
            RecordPlaces places(checked.parameter, m_world, m_case.makeChecker());
            for (const ExpressionErrors::ExprError& record : p_records)
                findings.push_back(places.toFinding(record, m_messages.find(record.message)));
        }

        if (checked.parameter.objectPath == k_expressionLibrary)
        {
            addNameFindings(checked.parameter.name, m_world, findings);
            addNamedExpressionFindings(checked.parameter, m_case.definitions(), m_world, findings);
        }
        else if (!m_hasException[p_number] && !checked.isTooLong)
        {
            ParameterFindings others;
            addExpressionFindings(checked.parameter, m_case.definitions(), m_world, others);
            const std::size_t endOfRecords = findings.size();
            for (ParameterFinding& other : others)
                if (std::none_of(findings.begin() + static_cast<std::ptrdiff_t>(firstOfRecords),
                                 findings.begin() + static_cast<std::ptrdiff_t>(endOfRecords),
                                 [&](const ParameterFinding& p_record) { return tells(p_record, other); }))
                    findings.push_back(std::move(other));
        }
    }

    /// Whether a record tells of what is found in its place too. One about the dimensions of the whole expression says
    /// nothing of its parts, and a call without its argument can be why they are wrong.
    static bool tells(const ParameterFinding& p_record, const ParameterFinding& p_other)
    {
        const bool isOfTheWhole =
            p_record.identifier == "wrong-expression-units" || p_record.identifier == "wrong-dynamic-units";
        return !isOfTheWhole && p_record.range.offset < p_other.range.offset + p_other.range.length &&
               p_other.range.offset < p_record.range.offset + p_record.range.length;
    }

    // A line end stands neither in a path nor in a name.
    static std::string key(const std::string& p_objectPath, const std::string& p_paramName)
    {
        return p_objectPath + "\n" + p_paramName;
    }

    CaseWorld& m_case;
    const std::vector<ParameterToCheck>& m_parameters;
    const std::function<void()>& m_onFollowed;
    World m_world;
    MessageLog m_messages;
    std::vector<bool> m_hasException;
    std::unordered_map<std::string, std::size_t> m_numbers;    // of the parameters, where there are several
    CheckedParameters m_checked;
};

}    // namespace

CheckedParameters checkParameters(CaseWorld& p_case, const std::vector<ParameterToCheck>& p_parameters,
                                  const std::function<void()>& p_onFollowed)
{
    return ParameterChecks(p_case, p_parameters, p_onFollowed).run();
}

}    // namespace qen::standalone
