#pragma once

#include "LocatorInfo.h"
#include "locators/LocatorIndex.h"
#include "model/ModelTree.h"
#include "model/ReadGraph.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <map>
#include <string>

namespace qen::standalone {

/// Answers what locators are from the model. The empty locator is valid everywhere and no object.
class QEN_STANDALONE_API ModelLocators final : public LocatorInfo {
public:
    /// @param p_model  Not owned; outlives this. May change: what was worked out from it is then worked out anew.
    /// @param p_reads  Is told from which locators something is worked out; null for nobody.
    explicit ModelLocators(const ModelTree& p_model, ReadGraph* p_reads = nullptr)
        : m_model(p_model), m_reads(p_reads)
    {}

    bool isValidLocator(const std::string& p_flowName, const std::string& p_locator) const override;
    bool isModelObject(const std::string& p_flowName, const std::string& p_locator) const override;
    LocatorDimension::Value dimension(const std::string& p_flowName,
                                      const std::string& p_locator) const override;
    std::string objectPath(const std::string& p_flowName, const std::string& p_locator) const override;

private:
    const LocatorIndex::Locator* find(const std::string& p_flowName, const std::string& p_locator) const;

    const ModelTree& m_model;
    ReadGraph* m_reads;
    mutable std::map<std::string, LocatorIndex, std::less<>> m_flows;    // of the version below
    mutable std::size_t m_version = 0;                                   // of the model's objects
};

}    // namespace qen::standalone
