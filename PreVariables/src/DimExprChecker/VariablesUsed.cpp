#include "DimExprChecker.h"

namespace qen {

// Which variables an expression may use is not judged yet: scalar use, coordinate qualifiers, operators, prefixes,
// availability.
void DimExprChecker::checkVariablesUsed(const std::string&, const std::string&, const std::string&, bool,
                                        bool, const std::vector<std::string>&)
{}

}    // namespace qen
