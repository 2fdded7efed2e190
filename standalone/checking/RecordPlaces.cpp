#include "checking/RecordPlaces.h"

#include "checking/MessagePlace.h"

#include <string_view>

namespace qen::standalone {
namespace {

constexpr std::string_view k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";
constexpr const char* k_unnamedMessage = "host-message";    // a text that the library took over from its host

}    // namespace

ParameterFinding RecordPlaces::toFinding(const ExpressionErrors::ExprError& p_record,
                                         const MessageLog::Raised* p_raised)
{
    const Severity severity =
        p_record.level == ExpressionErrors::Warning ? Severity::Warning : Severity::Error;
    const char* identifier = p_raised ? p_raised->message->identifier : k_unnamedMessage;
    if (m_parameter.objectPath == k_expressionLibrary)
        return atName(severity, identifier, p_record.message);
    return atValue(severity, rangeInValue(p_record, p_raised), identifier, p_record.message);
}

TextRange RecordPlaces::rangeInValue(const ExpressionErrors::ExprError& p_record,
                                     const MessageLog::Raised* p_raised)
{
    const ValueItem* item = nextItemGiving(p_record.message);
    if (!item)
        return {0, m_parameter.value.size()};
    if (!p_raised)
        return item->range;

    const TextRange place = placeInExpression(*p_raised, item->text, m_world);
    return {item->range.offset + place.offset, place.length};
}

const ValueItem* RecordPlaces::nextItemGiving(const std::string& p_message)
{
    if (!m_itemsAreJudged)
        judgeItems();
    if (m_items.size() == 1)
        return &m_items.front();

    const auto giving = m_itemsGiving.find(p_message);
    if (giving == m_itemsGiving.end() || giving->second.empty())
        return nullptr;
    const ValueItem* item = giving->second.front();
    giving->second.pop();
    return item;
}

void RecordPlaces::judgeItems()
{
    m_itemsAreJudged = true;
    m_items = valueItems(m_parameter.value);
    if (m_items.size() == 1)
        return;

    for (const ValueItem& item : m_items)
    {
        m_checker.clearErrors();
        try
        {
            m_checker.checkParam(m_parameter.objectPath, m_parameter.name, item.text);
        }
        catch (...)    // gave no record then and gives none now
        {
            continue;
        }
        if (m_checker.beginExprError() != m_checker.endExprError())
            m_itemsGiving[m_checker.beginExprError()->message].push(&item);
    }
}

}    // namespace qen::standalone
