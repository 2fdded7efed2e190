#pragma once

#include "checking/CaseIndex.h"
#include "checking/MessageLog.h"
#include "checking/ValueItems.h"
#include "definitions/Finding.h"
#include "world/World.h"

#include "DimExprChecker.h"

#include <queue>
#include <string>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Finds the place in the case's text that a record is about: the name of a named expression, the stretch of an
/// expression that is at fault, the item of a list that is wrong, else the value.
class RecordPlaces {
public:
    /// @param p_checker  A checker of the same world, for looking at the items of a list one by one.
    RecordPlaces(const QclDocument& p_case, const CaseIndex& p_index, const World& p_world,
                 const DimExprChecker& p_checker)
        : m_case(p_case), m_index(p_index), m_world(p_world), m_checker(p_checker)
    {}

    /// @param p_raised  The record's message; null for a text that is in no catalogue.
    Finding toFinding(const ExpressionErrors::ExprError& p_record, const MessageLog::Raised* p_raised);

    /// A finding at a stretch of a parameter's value.
    Finding atValue(const QclParameter& p_parameter, TextRange p_range, Severity p_severity,
                    std::string p_identifier, std::string p_message) const;

private:
    TextRange rangeInValue(const ExpressionErrors::ExprError& p_record, const QclParameter& p_parameter,
                           const MessageLog::Raised* p_raised);
    const ValueItem* nextItemGiving(const ExpressionErrors::ExprError& p_record,
                                    const QclParameter& p_parameter);
    void judgeItems(const std::string& p_objectPath, const QclParameter& p_parameter);

    const QclDocument& m_case;
    const CaseIndex& m_index;
    const World& m_world;
    DimExprChecker m_checker;

    // The list that was looked at last, and which of its items give which message, in order. Records of one parameter
    // follow each other, so a list is looked at once.
    const QclParameter* m_list = nullptr;
    std::vector<ValueItem> m_items;
    std::unordered_map<std::string, std::queue<const ValueItem*>> m_itemsGiving;
};

}    // namespace qen::standalone
