#include "physics/PhysicsAnswers.h"

#include <utility>

namespace qen::standalone {

PhysicsAnswers::PhysicsAnswers(const PhysicsBook& p_book, const ModelQCL& p_model,
                               std::function<std::size_t()> p_version)
    : m_book(p_book), m_model(p_model), m_version(std::move(p_version)), m_keptVersion(m_version())
{}

bool PhysicsAnswers::evalBool(const std::string& p_query, const std::string& p_objectPath,
                              const ModelQCL* p_model) const
{
    if (!isKept(p_model))
        return m_book.evalBool(p_query, p_objectPath, p_model);

    const auto [answer, isNew] = m_bools.try_emplace(keyOf(p_query, p_objectPath), false);
    if (isNew)
        answer->second = m_book.evalBool(p_query, p_objectPath, p_model);
    return answer->second;
}

std::vector<std::string> PhysicsAnswers::evalList(const std::string& p_query, const std::string& p_objectPath,
                                                  const ModelQCL* p_model) const
{
    if (!isKept(p_model))
        return m_book.evalList(p_query, p_objectPath, p_model);

    const auto [answer, isNew] = m_lists.try_emplace(keyOf(p_query, p_objectPath));
    if (isNew)
        answer->second = m_book.evalList(p_query, p_objectPath, p_model);
    return answer->second;
}

void PhysicsAnswers::declareBool(const std::string& p_query, bool p_flag) const
{
    m_book.declareBool(p_query, p_flag);
}

void PhysicsAnswers::declareList(const std::string& p_query, bool p_flag) const
{
    m_book.declareList(p_query, p_flag);
}

/// Whether answers about a model are kept; forgets those of an earlier state of it.
bool PhysicsAnswers::isKept(const ModelQCL* p_model) const
{
    if (p_model != &m_model)
        return false;
    if (const std::size_t version = m_version(); version != m_keptVersion)
    {
        m_bools.clear();
        m_lists.clear();
        m_keptVersion = version;
    }
    return true;
}

std::string PhysicsAnswers::keyOf(const std::string& p_query, const std::string& p_objectPath) const
{
    std::string key = p_query;
    key += '\n';    // stands in no name
    key += m_book.decidingPath(p_query, p_objectPath);
    return key;
}

}    // namespace qen::standalone
