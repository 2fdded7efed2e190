#pragma once

#include "checking/CaseFinding.h"
#include "checking/MessageLog.h"
#include "checking/ValueItems.h"
#include "world/World.h"

#include "DimExprChecker.h"

#include <queue>
#include <string>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Finds what the records of one parameter are about: the name of a named expression, the stretch of an expression that
/// is at fault, the item of a list that is wrong, else the value.
class RecordPlaces {
public:
    /// @param p_checker  A checker of the same world, for looking at the items of a list one by one.
    RecordPlaces(const CaseParameter& p_parameter, const World& p_world, const DimExprChecker& p_checker)
        : m_parameter(p_parameter), m_world(p_world), m_checker(p_checker)
    {}

    /// The finding that a record makes. The records are handed over in their order.
    ///
    /// @param p_raised  The record's message; null for a text that is in no catalogue.
    ParameterFinding toFinding(const ExpressionErrors::ExprError& p_record,
                               const MessageLog::Raised* p_raised);

private:
    TextRange rangeInValue(const ExpressionErrors::ExprError& p_record, const MessageLog::Raised* p_raised);
    const ValueItem* nextItemGiving(const std::string& p_message);
    void judgeItems();

    const CaseParameter& m_parameter;
    const World& m_world;
    DimExprChecker m_checker;

    // The items of the value, and which of them give which message, in order.
    bool m_itemsAreJudged = false;
    std::vector<ValueItem> m_items;
    std::unordered_map<std::string, std::queue<const ValueItem*>> m_itemsGiving;
};

}    // namespace qen::standalone
