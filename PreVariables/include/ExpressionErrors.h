#pragma once

#include "PreVariablesApi.h"

#include <string>
#include <utility>
#include <vector>

namespace qen {

/// How a host reads the problems that a checker found: a range of records, in the order in which they were added.
class QEN_PREVARIABLES_API ExpressionErrors {
public:
    enum ErrorLevel {
        Error = 0,
        Warning = 1,
    };

    /// One problem of one parameter.
    struct QEN_PREVARIABLES_API ExprError {
        ExprError() = default;

        ExprError(std::string p_object, std::string p_parameter, std::string p_message, ErrorLevel p_level)
            : object(std::move(p_object)), parameter(std::move(p_parameter)), message(std::move(p_message)),
              level(p_level)
        {}

        std::string object;          ///< path of the object that owns the parameter, as given to the check
        std::string parameter;       ///< the parameter's name within that object
        std::string message;         ///< the complete text for the user
        ErrorLevel level = Error;    ///< says nothing in a default-constructed record
    };

    using const_iterator = std::vector<ExprError>::const_iterator;

    // In slot order, which never changes.
    virtual ~ExpressionErrors() = default;

    /// The first record. Iterators hold until the next check or until the records are cleared.
    virtual const_iterator beginExprError() const = 0;
    virtual const_iterator endExprError() const = 0;

    // There is nothing to copy here: to assign a reader through its base leaves its records as they are.
    ExpressionErrors(const ExpressionErrors&) = default;
    ExpressionErrors& operator=(const ExpressionErrors&) = default;

protected:
    ExpressionErrors() = default;
};

}    // namespace qen
