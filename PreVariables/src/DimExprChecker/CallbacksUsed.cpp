#include "DimExprChecker.h"

namespace qen {

// How an expression calls callback functions is not judged yet.
void DimExprChecker::checkCallbacksUsed(const std::string&, const std::string&, bool,
                                        const std::vector<CallbackInfo>&)
{}

}    // namespace qen
