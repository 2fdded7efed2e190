#pragma once

#include "Error.h"

namespace qen {
namespace expressions {

/// An expression, or a value checked as one, is wrong. The checker's entry points turn this family into records.
class QEN_HOST_API error : public Error {
public:
    using Error::Error;
};

/// A variable name is wrong. Constructed from the same context twice, as class and as method.
class QEN_HOST_API name : public error {
public:
    using error::error;
};

}    // namespace expressions
}    // namespace qen
