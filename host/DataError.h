#pragma once

#include "Error.h"

namespace qen {
namespace data {

/// A definition or a stored value is wrong. Not of the `expressions::error` family: no check turns it into a record.
class QEN_HOST_API error : public Error {
public:
    using Error::Error;
};

/// A name was asked for that is not there.
class QEN_HOST_API notFound : public error {
public:
    using error::error;
};

/// A name is there already.
class QEN_HOST_API duplicate : public error {
public:
    using error::error;
};

}    // namespace data
}    // namespace qen
