#pragma once

#include "PreVariablesApi.h"

#include <string>
#include <utility>

namespace qen {

class QCLPath;

/// Says what kind of object the prefixes of a variable name. Implemented by the host; outlives the checker.
class QEN_PREVARIABLES_API VariablePrefixInfo {
public:
    /// What the first prefix names, or where a variable without one stands.
    enum Prefix1 : int {
        GLOBAL = 0,             ///< no prefix, and no phase that could be meant
        GLOBAL_OR_PHASE = 1,    ///< no prefix, but only one phase can be meant
        PHASE = 2,
        PARTICLE = 3,
        MUSIG_FLUID = 4,
        FLUID_PAIR = 5,
    };

    /// What the second prefix names.
    enum Prefix2 : int {
        NONE = 0,
        COMPONENT = 1,
        PARTICLE_COMPONENT = 2,
        REACSNGL = 3,      ///< a single step reaction
        REACFLMLET = 4,    ///< a flamelet reaction
        REACTION = 5,      ///< any other reaction
        SIZE_GROUP = 6,
    };

    /// The kinds and names of both prefixes.
    struct QEN_PREVARIABLES_API Classification {
        Classification() = default;

        Classification(Prefix1 p_prefix1, std::string p_prefix1Name)
            : prefix1(p_prefix1), prefix1Name(std::move(p_prefix1Name))
        {}

        Classification(Prefix1 p_prefix1, std::string p_prefix1Name, Prefix2 p_prefix2,
                       std::string p_prefix2Name)
            : prefix1(p_prefix1), prefix1Name(std::move(p_prefix1Name)), prefix2(p_prefix2),
              prefix2Name(std::move(p_prefix2Name))
        {}

        bool operator==(const Classification& p_other) const
        {
            return prefix1 == p_other.prefix1 && prefix2 == p_other.prefix2 &&
                   prefix1Name == p_other.prefix1Name && prefix2Name == p_other.prefix2Name;
        }

        Prefix1 prefix1 = GLOBAL;
        std::string prefix1Name;
        Prefix2 prefix2 = NONE;
        std::string prefix2Name;
    };

    // In slot order, which never changes.
    virtual void reserved0() const {}
    virtual void reserved1() const {}

    /// 2: the kinds of the two prefixes of a variable used at a place; either may be empty.
    ///
    /// @param p_errorText  Set to why the prefixes cannot be classified; empty when they can.
    virtual Classification classifyPrefixes(const QCLPath& p_contextPath, const std::string& p_prefix1,
                                            const std::string& p_prefix2, std::string& p_errorText) const = 0;

    VariablePrefixInfo() = default;
    VariablePrefixInfo(const VariablePrefixInfo&) = default;
    VariablePrefixInfo& operator=(const VariablePrefixInfo&) = default;

protected:
    ~VariablePrefixInfo() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
