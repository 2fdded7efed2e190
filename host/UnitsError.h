#pragma once

#include "Error.h"

namespace qen {
namespace units {

/// A units text or a quantity name is not understood. Not of the `expressions::error` family.
class QEN_HOST_API error : public Error {
public:
    using Error::Error;
};

}    // namespace units
}    // namespace qen
