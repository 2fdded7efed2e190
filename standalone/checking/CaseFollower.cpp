#include "checking/CaseFollower.h"

#include "checking/CaseResults.h"
#include "checking/CaseWorld.h"
#include "checking/ListBudget.h"
#include "checking/ParameterChecks.h"
#include "model/CaseText.h"
#include "model/ReadGraph.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace qen::standalone {

struct CaseFollower::Impl final : private ModelObserver {
    explicit Impl(const Definitions& p_definitions) : world(p_definitions, &reads), results(world)
    {
        world.model().attach(*this);
    }

    ~Impl() { world.model().detach(*this); }

    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    /// Has the model say what the text says; what that changes is noted.
    void takeText(QclDocument p_case)
    {
        bringUpTo(world.model(), text ? &*text : nullptr, p_case);
        takeLists(p_case);
        text = std::move(p_case);
    }

    /// Lists count towards the limit on all of them together, so that one may be too long because of another.
    void takeLists(const QclDocument& p_case)
    {
        for (const std::string& path : changedObjects)
            lists.forget(path);
        for (const QclObject& object : p_case.objects)
        {
            if (changedObjects.empty())
                break;
            if (changedObjects.erase(object.path) != 0)
                lists.take(object);
        }
        changedObjects.clear();

        ListBudget::Names now = lists.beyond(p_case);
        std::vector<ListBudget::Names::value_type> different;
        std::ranges::set_symmetric_difference(now, tooLong, std::back_inserter(different));
        for (const auto& [path, name] : different)
            reads.change(nodeOf(path, name));
        tooLong = std::move(now);
    }

    /// The parameters of the text that a change can have altered, in its order.
    std::vector<ParameterToCheck> affected()
    {
        std::unordered_map<std::string_view, std::unordered_set<std::string_view>> names;    // by object
        for (const ReadGraph::Node node : reads.takeAffected(ReadGraph::Kind::Check))
            names[reads.firstName(node)].insert(reads.secondName(node));

        std::vector<ParameterToCheck> parameters;
        for (const QclObject& object : text->objects)
        {
            if (names.empty())
                break;    // as soon as all were met: the text may be long
            const auto ofObject = names.find(object.path);
            if (ofObject == names.end())
                continue;
            for (const QclParameter& parameter : object.parameters)
                if (ofObject->second.contains(parameter.name()))
                    parameters.push_back(
                        {{object.path, std::string(parameter.name()), std::string(parameter.value())},
                         results.isKnownPath(object.path),
                         !tooLong.empty() && tooLong.contains({object.path, std::string(parameter.name())})});
            names.erase(ofObject);
        }
        return parameters;
    }

    /// Checks parameters one by one, so that each reads what it reads for itself.
    void check(const std::vector<ParameterToCheck>& p_parameters, const Progress& p_progress)
    {
        checked.clear();
        for (const ParameterToCheck& parameter : p_parameters)
        {
            const CaseParameter& names = parameter.parameter;
            const ReadGraph::Scope scope(&reads, nodeOf(names.objectPath, names.name));
            world.askAnew();
            CheckedParameters found = checkParameters(world, {parameter}, {});
            results.set(names, std::move(found.findings.front()));
            results.addToCase(found.ofCase, found.internalError);
            checked.push_back({names.objectPath, names.name});
            if (p_progress)
                p_progress(checked.size(), p_parameters.size());
        }
    }

    ReadGraph::Node nodeOf(std::string_view p_objectPath, std::string_view p_paramName)
    {
        return reads.node(ReadGraph::Kind::Check, p_objectPath, p_paramName);
    }

    void onModelChange(const ModelChange& p_change) override
    {
        if (p_change.kind == ModelChange::Kind::ObjectDeleted)
        {
            results.forget(std::string(p_change.objectPath));
            changedObjects.emplace(p_change.objectPath);
            return;
        }
        if (p_change.paramName.empty())
            return;

        changedObjects.emplace(p_change.objectPath);
        const ReadGraph::Node node = nodeOf(p_change.objectPath, p_change.paramName);
        if (p_change.kind == ModelChange::Kind::ParameterSet)
            reads.change(node);
        else
        {
            reads.forget(node);
            results.forget(std::string(p_change.objectPath), std::string(p_change.paramName));
        }
    }

    ReadGraph reads;
    CaseWorld world;
    CaseResults results;
    ListBudget lists;
    ListBudget::Names tooLong;
    std::unordered_set<std::string> changedObjects;    // whose parameters came, changed or went
    std::optional<QclDocument> text;
    std::vector<CheckedParameter> checked;
};

CaseFollower::CaseFollower(const Definitions& p_definitions) : m_impl(std::make_unique<Impl>(p_definitions))
{}

CaseFollower::~CaseFollower() = default;

CaseReport CaseFollower::update(QclDocument p_case, const Progress& p_progress)
{
    m_impl->takeText(std::move(p_case));
    m_impl->check(m_impl->affected(), p_progress);
    return m_impl->results.report(*m_impl->text);
}

const std::vector<CheckedParameter>& CaseFollower::checked() const { return m_impl->checked; }

}    // namespace qen::standalone
