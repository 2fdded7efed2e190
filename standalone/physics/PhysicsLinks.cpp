#include "physics/PhysicsLinks.h"

#include "rules/RuleText.h"

#include <algorithm>
#include <map>
#include <utility>

namespace qen::standalone {
namespace {

/// Walks the queries along what they ask, without recursion: definitions may be as long as they like.
class QueryWalk {
public:
    QueryWalk(PhysicsQueries& p_queries, std::size_t p_number, Diagnostics& p_problems)
        : m_queries(p_queries), m_number(p_number), m_problems(p_problems)
    {}

    void run()
    {
        for (auto& query : m_queries)
            visit(query.second);
    }

private:
    static constexpr std::size_t k_mostLevels = 32;

    struct Link {
        AskedQuery* asked;
        bool isSamePlace;    // whether it is asked where the asking query is
    };

    struct Visit {
        PhysicsQuery* query;
        std::vector<Link> links;
        std::size_t next = 0;    // of those, to look at
    };

    struct Seen {
        bool isDone = false;
        std::size_t levels = 1;    // that asking it goes down, itself included
    };

    void visit(PhysicsQuery& p_query)
    {
        if (!m_seen.contains(&p_query))
            enter(p_query);
        while (!m_path.empty())
        {
            Visit& top = m_path.back();
            if (top.next == top.links.size())
                leave();
            else if (!look(*top.query, top.links[top.next]))
                ++top.next;
        }
    }

    void enter(PhysicsQuery& p_query)
    {
        m_seen[&p_query] = {};
        p_query.levels.clear();
        Visit visit {&p_query, {}};
        for (PhysicsCondition& condition : p_query.conditions)
        {
            if (condition.object)
                condition.object->addLevels(p_query.levels);
            addLink(condition.query, !condition.object, visit);
            addLink(condition.onlyIf, true, visit);
        }
        m_path.push_back(std::move(visit));
    }

    void addLink(AskedQuery& p_asked, bool p_isSamePlace, Visit& p_visit)
    {
        p_asked.query = nullptr;
        if (!p_asked.name.empty() && m_queries.contains(p_asked.name))
            p_visit.links.push_back({&p_asked, p_isSamePlace});
    }

    void leave()
    {
        m_seen[m_path.back().query].isDone = true;
        m_path.pop_back();
    }

    /// @return Whether the asked query was entered, and is to be looked at once more when it is done.
    bool look(PhysicsQuery& p_asking, const Link& p_link)
    {
        AskedQuery& asked = *p_link.asked;
        PhysicsQuery& query = m_queries.find(asked.name)->second;
        const auto seen = m_seen.find(&query);
        if (seen == m_seen.end())
        {
            enter(query);
            return true;
        }
        if (!seen->second.isDone)
            reportCircle(query);
        else if (seen->second.levels >= k_mostLevels)
            report(asked.place, "query-too-deep",
                   "The query asks others more than " + std::to_string(k_mostLevels) + " levels deep.");
        else
        {
            std::size_t& levels = m_seen[&p_asking].levels;
            levels = std::max(levels, seen->second.levels + 1);
            asked.query = &query;
            if (p_link.isSamePlace)
                p_asking.levels.insert(query.levels.begin(), query.levels.end());
        }
        return false;
    }

    // At the last place on the circle that this document holds; it closed the circle.
    void reportCircle(const PhysicsQuery& p_first)
    {
        auto visit =
            std::ranges::find_if(m_path, [&](const Visit& p_visit) { return p_visit.query == &p_first; });
        constexpr std::ptrdiff_t k_mostShown = 20;
        std::string chain = m_path.end() - visit > k_mostShown ? "... -> " : "";
        PhysicsPlace place;
        for (; visit != m_path.end(); ++visit)
        {
            if (m_path.end() - visit <= k_mostShown)
                chain += quotedShort(visit->query->name) + " -> ";
            const PhysicsPlace& asks = visit->links[visit->next].asked->place;
            if (asks.document == m_number && asks.place >= place.place)
                place = asks;
        }
        report(place, "query-cycle",
               "Queries that ask each other never come to an answer: " + chain + quotedShort(p_first.name) +
                   ".");
    }

    // What earlier documents brought about was reported with them.
    void report(const PhysicsPlace& p_place, const char* p_identifier, std::string p_message)
    {
        if (p_place.document == m_number)
            m_problems.push_back(
                {Severity::Error, p_identifier, std::move(p_message), p_place.place, p_place.length});
    }

    PhysicsQueries& m_queries;
    std::size_t m_number;
    Diagnostics& m_problems;
    std::map<const PhysicsQuery*, Seen> m_seen;
    std::vector<Visit> m_path;
};

}    // namespace

void resolvePhysicsQueries(PhysicsQueries& p_queries, std::size_t p_number, Diagnostics& p_problems)
{
    QueryWalk(p_queries, p_number, p_problems).run();
}

}    // namespace qen::standalone
