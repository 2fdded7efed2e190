#pragma once

#include "DimExprChecker.h"
#include "SplitVariableName.h"

#include "CallbackInfo.h"
#include "QCLPath.h"

#include <string>
#include <vector>

namespace qen {

/// What one check of one parameter gathers. Each step fills anew what it uses.
//
// It stands here and not in the steps, so that the exceptions of most of them pass frames in which there is nothing to
// destroy: that is what makes a throw dear. Lists that are filled again keep their memory.
struct DimExprChecker::Gathered {
    std::string pathText;    // where paths are built

    std::string quantity;
    std::string expectedUnits;

    std::vector<std::string> variables;    // that the expression references, as the host names them
    std::vector<CallbackInfo> callbacks;
    std::string evaluatorError;
    std::string units;    // of the expression's result; of a constant, of its value

    std::vector<std::string> dependencies;
    QCLPath prefixContext;    // of every variable
    std::vector<SplitVariableName> splitNames;
    std::vector<std::string> fieldValuedNames;
    std::vector<std::string> rootNames;
    std::vector<std::string> refusedNames;    // of the message to be
};

}    // namespace qen
