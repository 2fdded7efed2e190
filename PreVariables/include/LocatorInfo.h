#pragma once

#include "LocatorDimension.h"
#include "PreVariablesApi.h"

#include <string>

namespace qen {

/// What the host knows about locators, the places where callback functions are evaluated.
/// Implemented by the host; outlives the checker.
class QEN_PREVARIABLES_API LocatorInfo {
public:    // in slot order, which never changes
    virtual void reserved0() const {}

    /// 1: whether the locator is known in that flow. Asked for an empty locator as well.
    virtual bool isValidLocator(const std::string& p_flowName, const std::string& p_locator) const = 0;

    virtual void reserved2() const {}

    /// 3: whether the locator stands for a model object.
    virtual bool isModelObject(const std::string& p_flowName, const std::string& p_locator) const = 0;

    /// 4: the locator's dimension.
    virtual LocatorDimension::Value dimension(const std::string& p_flowName,
                                              const std::string& p_locator) const = 0;

    /// 5: the path of the locator's object; may be empty.
    virtual std::string objectPath(const std::string& p_flowName, const std::string& p_locator) const = 0;

    LocatorInfo() = default;
    LocatorInfo(const LocatorInfo&) = default;
    LocatorInfo& operator=(const LocatorInfo&) = default;

protected:
    ~LocatorInfo() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
