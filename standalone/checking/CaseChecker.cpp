#include "checking/CaseChecker.h"

#include "checking/CaseIndex.h"
#include "checking/ExpressionFindings.h"
#include "checking/MessageLog.h"
#include "checking/ModelFindings.h"
#include "checking/NameFindings.h"
#include "checking/RecordPlaces.h"
#include "locators/ModelLocators.h"
#include "model/ModelTree.h"
#include "model/UpdateRecord.h"
#include "names/PrefixClassifier.h"
#include "names/ShortNameFinder.h"
#include "physics/PhysicsAnswers.h"
#include "physics/PhysicsNotifier.h"
#include "world/World.h"

#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"
#include "VarAvailabilityChecker.h"

#include "Error.h"

#include <algorithm>
#include <exception>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace qen::standalone {
namespace {

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

/// The check of one case, from the first change to the last finding.
class CaseCheck {
public:
    CaseCheck(const QclDocument& p_case, const Definitions& p_definitions, const Progress& p_progress)
        : m_case(p_case), m_definitions(p_definitions), m_progress(p_progress), m_index(p_case),
          m_model(p_case), m_world(makeWorld()), m_prefixes(m_model), m_locators(m_model),
          m_shortNames(p_definitions.variables()),
          m_physics(p_definitions.physics(), m_model, [this] { return m_model.version(); }),
          m_availability(&m_model, &m_shortNames, &m_physics),
          m_physicsChanges(m_model, p_definitions.physics())
    {
        m_physicsChanges.attach(m_availability);
    }

    CaseReport run()
    {
        const WorldScope world(m_world);
        const ScopedCheckMessageListener listener(&m_messages);

        m_report.parameters = m_index.size();
        addModelFindings(m_case, m_model, m_definitions.rules(), m_report.findings);

        leaveOutTooLongLists();

        DimExprChecker checker = makeChecker();
        DimExprCheckScheduler scheduler(&m_model, &m_definitions.rules(), nullptr, &checker);
        followAllChanges(scheduler);
        addRecords(runDeferred(checker, scheduler));

        addNameFindings(m_case, m_world, m_report.findings);
        addExpressionFindings(
            m_case, m_definitions, m_world,
            [this](const std::string& p_objectPath, const std::string& p_paramName) {
                return m_atFault.contains(key(p_objectPath, p_paramName));
            },
            m_report.findings);

        addEndlessQueries();

        sortByPlace(m_report.findings);
        return std::move(m_report);
    }

private:
    World makeWorld()
    {
        World world;
        world.units = &m_definitions.units();
        world.variables = &m_definitions.variables();
        world.callbacks = &m_definitions.callbacks();
        world.rules = &m_definitions.rules();
        world.model = &m_model;
        world.onAssertion = [this](const std::string& p_message, const std::string& p_file, int p_line) {
            m_report.internalError = true;
            addWithoutPlace("internal-error", "Internal error: " + p_message + " (" + p_file + ", line " +
                                                  std::to_string(p_line) + ").");
        };
        return world;
    }

    DimExprChecker makeChecker() const
    {
        return DimExprChecker(&m_model, &m_definitions.rules(), &m_definitions.rules(),
                              &m_definitions.variables(), &m_prefixes, &m_availability, &m_locators,
                              &m_definitions.callbacks());
    }

    void leaveOutTooLongLists()
    {
        std::size_t listBytes = 0;
        for (const QclObject& object : m_case.objects)
            for (const QclParameter& parameter : object.parameters)
            {
                const auto commas = std::count(parameter.value.begin(), parameter.value.end(), ',');
                if (commas == 0)
                    continue;
                listBytes += (static_cast<std::size_t>(commas) + 1) * parameter.value.size();
                if (listBytes < CaseLimits::k_listBytes)
                    continue;
                m_leftOut.insert(key(object.path, parameter.name));
                m_atFault.insert(key(object.path, parameter.name));
                addAtName(parameter, "limit-list-length",
                          "The list of parameter '" + parameter.name + "' in object '" + object.path +
                              "' is too long to be checked: " + std::to_string(parameter.value.size()) +
                              " bytes with " + std::to_string(commas) + " commas.");
            }
    }

    /// Has the scheduler follow the case as a change of every parameter. An exception ends the check of its parameter
    /// alone.
    void followAllChanges(DimExprCheckScheduler& p_scheduler)
    {
        CatchingHandler handler(p_scheduler, *this);
        UpdateRecord::everythingIn(m_model).replay(handler);
    }

    class CatchingHandler final : public QCLUpdateHandler {
    public:
        CatchingHandler(QCLUpdateHandler& p_target, CaseCheck& p_check) : m_target(p_target), m_check(p_check)
        {}

        void onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                           const std::string& p_value, bool p_flag) override
        {
            if (m_check.m_progress)
                m_check.m_progress(++m_done, m_check.m_report.parameters);
            if (m_check.m_leftOut.contains(key(p_objectPath, p_paramName)))
                return;
            try
            {
                m_target.onParamChange(p_objectPath, p_paramName, p_value, p_flag);
            }
            catch (...)
            {
                m_check.addException(p_objectPath, p_paramName, std::current_exception());
            }
        }

    private:
        QCLUpdateHandler& m_target;
        CaseCheck& m_check;
        std::size_t m_done = 0;
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
            return runOneByOne();
        }
    }

    Records runOneByOne()
    {
        Records records;
        for (const QclObject& object : m_case.objects)
            for (const QclParameter& parameter : object.parameters)
                runOne(object.path, parameter.name, records);
        return records;
    }

    void runOne(const std::string& p_objectPath, const std::string& p_paramName, Records& p_records)
    {
        if (m_leftOut.contains(key(p_objectPath, p_paramName)))
            return;
        DimExprChecker checker = makeChecker();
        DimExprCheckScheduler scheduler(&m_model, &m_definitions.rules(), nullptr, &checker);
        try
        {
            scheduler.checkParam(p_objectPath, p_paramName);
            scheduler.runDeferredChecks();
        }
        catch (...)
        {
            addException(p_objectPath, p_paramName, std::current_exception());
        }
        p_records.insert(p_records.end(), checker.beginExprError(), checker.endExprError());
    }

    void addRecords(const Records& p_records)
    {
        RecordPlaces places(m_case, m_index, m_world, makeChecker());
        for (const ExpressionErrors::ExprError& record : p_records)
        {
            m_atFault.insert(key(record.object, record.parameter));
            m_report.findings.push_back(places.toFinding(record, m_messages.find(record.message)));
        }
    }

    /// Physics queries that looked at too much of the model to be answered.
    void addEndlessQueries()
    {
        for (const std::string& query : m_definitions.physics().endlessQueries())
            if (std::find(m_endlessBefore.begin(), m_endlessBefore.end(), query) == m_endlessBefore.end())
                addWithoutPlace("endless-query",
                                "The physics query '" + query +
                                    "' was given up and counts as false: it would look at millions "
                                    "of objects. Expected one that looks at fewer.");
    }

    void addException(const std::string& p_objectPath, const std::string& p_paramName,
                      const std::exception_ptr& p_exception)
    {
        if (!m_excepted.insert(key(p_objectPath, p_paramName)).second)
            return;    // told of when the parameter was followed
        m_atFault.insert(key(p_objectPath, p_paramName));

        const std::string reason = describe(p_exception);
        const std::string message = "Parameter '" + p_paramName + "' in object '" + p_objectPath +
                                    "' could not be checked: " + reason;
        const MessageLog::Raised* const raised = m_messages.find(reason);
        const std::string identifier = raised ? raised->message->identifier : "check-exception";
        const QclParameter* parameter = m_index.find(p_objectPath, p_paramName);
        if (parameter)
            addAtName(*parameter, identifier, message);
        else
            addWithoutPlace(identifier, message);
    }

    // A line end stands neither in a path nor in a name.
    static std::string key(const std::string& p_objectPath, const std::string& p_paramName)
    {
        return p_objectPath + "\n" + p_paramName;
    }

    void addAtName(const QclParameter& p_parameter, std::string p_identifier, std::string p_message)
    {
        m_report.findings.push_back(
            toFinding({Severity::Error, std::move(p_identifier), std::move(p_message), p_parameter.place,
                       static_cast<std::uint32_t>(p_parameter.name.size())},
                      m_case));
    }

    void addWithoutPlace(std::string p_identifier, std::string p_message)
    {
        Finding finding;
        finding.identifier = std::move(p_identifier);
        finding.message = std::move(p_message);
        m_report.findings.push_back(std::move(finding));
    }

    const QclDocument& m_case;
    const Definitions& m_definitions;
    const Progress& m_progress;
    CaseIndex m_index;
    ModelTree m_model;
    World m_world;
    PrefixClassifier m_prefixes;
    ModelLocators m_locators;
    ShortNameFinder m_shortNames;
    const std::vector<std::string> m_endlessBefore =
        m_definitions.physics().endlessQueries();    // of other cases
    PhysicsAnswers m_physics;
    VarAvailabilityChecker m_availability;
    PhysicsNotifier m_physicsChanges;
    MessageLog m_messages;
    std::unordered_set<std::string> m_leftOut;     // parameters that are too long to be checked
    std::unordered_set<std::string> m_excepted;    // parameters that an exception was told of
    std::unordered_set<std::string> m_atFault;     // parameters with a record or an exception
    CaseReport m_report;
};

}    // namespace

CaseReport checkCase(const QclDocument& p_case, const Definitions& p_definitions, const Progress& p_progress)
{
    return CaseCheck(p_case, p_definitions, p_progress).run();
}

}    // namespace qen::standalone
