#include "physics/PhysicsAnswers.h"

#include <utility>

namespace qen::standalone {

PhysicsAnswers::PhysicsAnswers(const PhysicsBook& p_book, const ModelQCL& p_model,
                               std::function<std::size_t()> p_version, ReadGraph* p_reads)
    : m_book(p_book), m_model(p_model), m_version(std::move(p_version)), m_reads(p_reads),
      m_keptVersion(m_version())
{}

bool PhysicsAnswers::evalBool(const std::string& p_query, const std::string& p_objectPath,
                              const ModelQCL* p_model) const
{
    if (!isKept(p_model))
        return m_book.evalBool(p_query, p_objectPath, p_model);
    return answer(m_bools, p_query, p_objectPath,
                  [&] { return m_book.evalBool(p_query, p_objectPath, p_model); });
}

std::vector<std::string> PhysicsAnswers::evalList(const std::string& p_query, const std::string& p_objectPath,
                                                  const ModelQCL* p_model) const
{
    if (!isKept(p_model))
        return m_book.evalList(p_query, p_objectPath, p_model);
    return answer(m_lists, p_query, p_objectPath,
                  [&] { return m_book.evalList(p_query, p_objectPath, p_model); });
}

template <typename Answer, typename WorkOut>
const Answer& PhysicsAnswers::answer(Kept<Answer>& p_kept, const std::string& p_query,
                                     const std::string& p_objectPath, const WorkOut& p_workOut) const
{
    const std::string_view path = m_book.decidingPath(p_query, p_objectPath);
    std::string key = p_query;
    key.append("\n").append(path);    // a line end stands in no name
    const auto [kept, isNew] = p_kept.try_emplace(std::move(key));
    if (isNew)
    {
        const ReadGraph::Scope scope(m_reads, m_reads ? nodeOf(p_query, path) : 0);
        kept->second = p_workOut();
    }
    else if (m_reads)
        m_reads->use(nodeOf(p_query, path));
    return kept->second;
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

ReadGraph::Node PhysicsAnswers::nodeOf(std::string_view p_query, std::string_view p_path) const
{
    return m_reads->node(ReadGraph::Kind::Physics, p_query, p_path);
}

}    // namespace qen::standalone
