#pragma once

#include "model/ModelTree.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

namespace qen::standalone {

/// Makes a model what a case's text says, with as few changes as that takes: what the text does not say any more is
/// deleted, what it says now is added or set, and the objects are brought into its order.
///
/// @param p_before  The text that the model was made from; null for an empty model. Sections that both texts have are
///                  not looked at, where a QclFollower read both.
QEN_STANDALONE_API void bringUpTo(ModelTree& p_model, const QclDocument* p_before, const QclDocument& p_now);

}    // namespace qen::standalone
