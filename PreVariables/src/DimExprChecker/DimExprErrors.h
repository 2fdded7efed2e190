#pragma once

#include "ExpressionsError.h"
#include "PreVariablesApi.h"

#include <string>
#include <utility>

/// What the checks raise. The classes add nothing to the host's exception but their own type, by which the entry
/// points tell problems apart; their type information is visible, so that it is one for the library and its host.
//
// Deliberate: class and method are "DimExprChecker" and "checkParam" whatever check raises. Held by
// DimExprErrors.NameTheEntryPointWhateverCheckRaises.
namespace qen::DimExprErrors {

/// A problem at error level that has no class of its own.
class QEN_PREVARIABLES_API dxerror : public expressions::error {
public:
    explicit dxerror(std::string p_message)
        : expressions::error("DimExprChecker", "checkParam", std::move(p_message), ErrorTypeError)
    {}
};

/// A problem at warning level; not a dxerror.
class QEN_PREVARIABLES_API dxwarning : public expressions::error {
public:
    explicit dxwarning(std::string p_message)
        : expressions::error("DimExprChecker", "checkParam", std::move(p_message), ErrorTypeError)
    {}
};

/// A value beyond its lower or upper bound.
class QEN_PREVARIABLES_API bounds_error : public dxerror {
public:
    using dxerror::dxerror;
};

/// Units of a number that are not recognised or of the wrong dimension.
class QEN_PREVARIABLES_API units_error : public dxerror {
public:
    using dxerror::dxerror;
};

/// Units that do not match a quantity that is set dynamically.
class QEN_PREVARIABLES_API dynamic_quant_error : public dxerror {
public:
    using dxerror::dxerror;
};

}    // namespace qen::DimExprErrors
