#include "physics/PhysicsBook.h"

#include "physics/PhysicsQueries.h"
#include "physics/PhysicsReader.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace qen::standalone {

struct PhysicsBook::Impl {
    const PhysicsQuery* find(std::string_view p_name) const
    {
        const auto found = queries.find(p_name);
        return found != queries.end() ? &found->second : nullptr;
    }

    const PhysicsQuery* findList(std::string_view p_name) const
    {
        const PhysicsQuery* query = find(p_name);
        return query && query->answer == PhysicsAnswer::List ? query : nullptr;
    }

    PhysicsQueries queries;
    std::size_t documents = 0;
    std::set<std::string, std::less<>> expected;         // declared, or asked in vain
    std::set<std::string, std::less<>> expectedLists;    // likewise
    std::set<std::string, std::less<>> givenUp;
};

PhysicsBook::PhysicsBook() : m_impl(std::make_unique<Impl>()) {}
PhysicsBook::~PhysicsBook() = default;
PhysicsBook::PhysicsBook(PhysicsBook&&) noexcept = default;
PhysicsBook& PhysicsBook::operator=(PhysicsBook&&) noexcept = default;

void PhysicsBook::addDefinitions(const QclDocument& p_document, Diagnostics& p_problems)
{
    Diagnostics problems;
    PhysicsReader(p_document, ++m_impl->documents, m_impl->queries, problems).read();
    std::ranges::stable_sort(problems, {}, &Diagnostic::place);
    std::ranges::move(problems, std::back_inserter(p_problems));
}

bool PhysicsBook::defines(std::string_view p_query) const { return m_impl->find(p_query) != nullptr; }

std::vector<std::string> PhysicsBook::queryNames() const
{
    std::vector<std::string> names;
    for (const auto& query : m_impl->queries)
        names.push_back(query.first);
    return names;
}

std::vector<std::string> PhysicsBook::undefinedQueries() const
{
    std::set<std::string> names;
    for (const std::string& name : m_impl->expected)
        if (!m_impl->find(name))
            names.insert(name);
    for (const std::string& name : m_impl->expectedLists)
        if (!m_impl->findList(name))
            names.insert(name);
    return {names.begin(), names.end()};
}

std::vector<std::string> PhysicsBook::endlessQueries() const
{
    return {m_impl->givenUp.begin(), m_impl->givenUp.end()};
}

void PhysicsBook::visitLooks(const std::function<void(const Look& p_look)>& p_visit) const
{
    for (const auto& [name, query] : m_impl->queries)
        for (const PhysicsCondition& condition : query.conditions)
        {
            if (!condition.object)
                continue;
            Look look {name,
                       condition.object->text(),
                       condition.parameter,
                       condition.is,
                       condition.logical.has_value(),
                       condition.names ? condition.names->text() : std::string()};
            look.texts.insert(look.texts.end(), condition.isNot.begin(), condition.isNot.end());
            p_visit(look);
        }
}

std::string_view PhysicsBook::decidingPath(std::string_view p_query, std::string_view p_objectPath) const
{
    const PhysicsQuery* query = m_impl->find(p_query);
    return query ? upToLevels(p_objectPath, query->levels) : p_objectPath;
}

bool PhysicsBook::evalBool(const std::string& p_query, const std::string& p_objectPath,
                           const ModelQCL* p_model) const
{
    const PhysicsQuery* query = m_impl->find(p_query);
    if (!query)
        m_impl->expected.insert(p_query);
    if (!query || !p_model)
        return false;

    PhysicsEvaluation evaluation(*p_model);
    const bool holds = evaluation.holds(*query, p_objectPath);
    if (evaluation.isGivenUp())
        m_impl->givenUp.insert(p_query);
    return holds && !evaluation.isGivenUp();
}

std::vector<std::string> PhysicsBook::evalList(const std::string& p_query, const std::string& p_objectPath,
                                               const ModelQCL* p_model) const
{
    const PhysicsQuery* query = m_impl->findList(p_query);
    if (!query)
        m_impl->expectedLists.insert(p_query);
    if (!query || !p_model)
        return {};

    PhysicsEvaluation evaluation(*p_model);
    std::vector<std::string> names = evaluation.list(*query, p_objectPath);
    if (evaluation.isGivenUp())
        m_impl->givenUp.insert(p_query);
    return names;
}

void PhysicsBook::declareBool(const std::string& p_query, bool) const { m_impl->expected.insert(p_query); }

void PhysicsBook::declareList(const std::string& p_query, bool) const
{
    m_impl->expectedLists.insert(p_query);
}

}    // namespace qen::standalone
