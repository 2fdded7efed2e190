#include "checking/ListBudget.h"

#include "checking/CaseChecker.h"

#include <algorithm>

namespace qen::standalone {

void ListBudget::take(const QclObject& p_object)
{
    forget(p_object.path);
    std::vector<List> lists;
    for (const QclParameter& parameter : p_object.parameters)
        if (const auto commas = std::count(parameter.value().begin(), parameter.value().end(), ',');
            commas != 0)
        {
            lists.push_back({std::string(parameter.name()),
                             (static_cast<std::size_t>(commas) + 1) * parameter.value().size()});
            m_bytes += lists.back().bytes;
        }
    if (!lists.empty())
        m_lists.emplace(p_object.path, std::move(lists));
}

void ListBudget::forget(const std::string& p_objectPath)
{
    const auto known = m_lists.find(p_objectPath);
    if (known == m_lists.end())
        return;
    for (const List& list : known->second)
        m_bytes -= list.bytes;
    m_lists.erase(known);
}

ListBudget::Names ListBudget::beyond(const QclDocument& p_case) const
{
    Names tooMuch;
    if (m_bytes < CaseLimits::k_listBytes)
        return tooMuch;

    std::size_t bytes = 0;
    for (const QclObject& object : p_case.objects)
        if (const auto lists = m_lists.find(object.path); lists != m_lists.end())
            for (const List& list : lists->second)
                if (bytes += list.bytes; bytes >= CaseLimits::k_listBytes)
                    tooMuch.emplace(object.path, list.name);
    return tooMuch;
}

}    // namespace qen::standalone
