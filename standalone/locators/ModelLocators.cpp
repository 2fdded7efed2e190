#include "locators/ModelLocators.h"

namespace qen::standalone {

bool ModelLocators::isValidLocator(const std::string& p_flowName, const std::string& p_locator) const
{
    return p_locator.empty() || find(p_flowName, p_locator);
}

bool ModelLocators::isModelObject(const std::string& p_flowName, const std::string& p_locator) const
{
    return find(p_flowName, p_locator) != nullptr;
}

LocatorDimension::Value ModelLocators::dimension(const std::string& p_flowName,
                                                 const std::string& p_locator) const
{
    const LocatorIndex::Locator* const locator = find(p_flowName, p_locator);
    return locator ? locator->dimension : LocatorDimension::Unknown;
}

std::string ModelLocators::objectPath(const std::string& p_flowName, const std::string& p_locator) const
{
    const LocatorIndex::Locator* const locator = find(p_flowName, p_locator);
    return locator ? locator->object->path : std::string();
}

const LocatorIndex::Locator* ModelLocators::find(const std::string& p_flowName,
                                                 const std::string& p_locator) const
{
    if (m_reads)
        m_reads->use(m_reads->node(ReadGraph::Kind::Locator, p_flowName, p_locator));
    if (m_version != m_model.objectsVersion())
    {
        m_flows.clear();
        m_version = m_model.objectsVersion();
    }

    auto known = m_flows.find(p_flowName);
    if (known == m_flows.end())
    {
        const ModelTree::Object* const flow = m_model.find("/FLOW:" + p_flowName);
        if (!flow)
            return nullptr;
        known = m_flows.try_emplace(p_flowName, *flow).first;
    }
    return known->second.find(p_locator);
}

}    // namespace qen::standalone
