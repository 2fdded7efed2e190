#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

/// @file
/// The border between the library and its host, watched from a program that links HostBorder.cpp and HostBorderHeap.cpp:
/// which calls the library makes, and what it takes from the heap itself.
///
/// The operations of `host/` that a check calls by name are defined again there, so that the program's definitions come
/// before those of the standalone host, which they call. Interfaces are watched where the checker is given those of
/// `WatchedHost`. Whatever is not watched counts as the library's own.

namespace qen {

class ExprParamRules;
class LocatorInfo;
class ModelQCL;
class PhysicsEvaluator;
class QuantityModifier;
class ShortVarNameFinder;
class VariablePrefixInfo;

}    // namespace qen

namespace qen::support {

/// What a host gives to a checker, beside its catalogues. Nothing is owned.
struct HostInterfaces {
    const ModelQCL* model;
    const ExprParamRules* rules;
    const QuantityModifier* quantityModifier;
    const VariablePrefixInfo* prefixInfo;
    const LocatorInfo* locatorInfo;
    const ShortVarNameFinder* shortNames;
    const PhysicsEvaluator* physics;
};

/// The same call of the host again, with the same arguments.
using HostCall = std::function<void()>;

/// Has the calls that come from the library noted behind the others, until the next `noteNoCalls`. The list must stay.
void noteCallsIn(std::vector<HostCall>& p_calls);
void noteNoCalls();

/// Whether the program is in an operation of the host that is watched.
bool isInHost();

/// How many blocks the program has taken from the heap so far while it was not in the host.
std::size_t blocksOutsideOfHost();

/// Interfaces that pass each call on to those of another host, and note it. They point to what they are given.
class WatchedHost {
public:
    explicit WatchedHost(const HostInterfaces& p_host);
    ~WatchedHost();

    HostInterfaces interfaces() const;

private:
    struct Forwarders;
    std::unique_ptr<const Forwarders> m_forwarders;
};

}    // namespace qen::support
