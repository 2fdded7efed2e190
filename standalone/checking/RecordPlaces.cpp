#include "checking/RecordPlaces.h"

#include "checking/MessagePlace.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";
constexpr const char* k_unnamedMessage = "host-message";    // a text that the library took over from its host

}    // namespace

Finding RecordPlaces::toFinding(const ExpressionErrors::ExprError& p_record,
                                const MessageLog::Raised* p_raised)
{
    const Severity severity =
        p_record.level == ExpressionErrors::Warning ? Severity::Warning : Severity::Error;
    const char* identifier = p_raised ? p_raised->message->identifier : k_unnamedMessage;

    const QclParameter* parameter = m_index.find(p_record.object, p_record.parameter);
    if (!parameter)
    {
        Finding finding;
        finding.severity = severity;
        finding.identifier = identifier;
        finding.message = p_record.message;
        return finding;
    }

    if (p_record.object == k_expressionLibrary)
        return standalone::toFinding({severity, identifier, p_record.message, parameter->place,
                                      static_cast<std::uint32_t>(parameter->name.size())},
                                     m_case);
    return atValue(*parameter, rangeInValue(p_record, *parameter, p_raised), severity, identifier,
                   p_record.message);
}

Finding RecordPlaces::atValue(const QclParameter& p_parameter, TextRange p_range, Severity p_severity,
                              std::string p_identifier, std::string p_message) const
{
    const SourcePlace place = p_parameter.placeInValue(p_range.offset);
    Finding finding = standalone::toFinding({p_severity, std::move(p_identifier), std::move(p_message), place,
                                             static_cast<std::uint32_t>(p_range.length)},
                                            m_case);

    // A value that continues on the next line is pointed at as far as its first line goes.
    const std::size_t rest =
        finding.lineText.size() + 1 - std::min<std::size_t>(finding.column, finding.lineText.size() + 1);
    finding.length = static_cast<std::uint32_t>(std::min<std::size_t>(finding.length, rest));
    return finding;
}

TextRange RecordPlaces::rangeInValue(const ExpressionErrors::ExprError& p_record,
                                     const QclParameter& p_parameter, const MessageLog::Raised* p_raised)
{
    const ValueItem* item = nextItemGiving(p_record, p_parameter);
    if (!item)
        return {0, p_parameter.value.size()};
    if (!p_raised)
        return item->range;

    const TextRange place = placeInExpression(*p_raised, item->text, m_world);
    return {item->range.offset + place.offset, place.length};
}

const ValueItem* RecordPlaces::nextItemGiving(const ExpressionErrors::ExprError& p_record,
                                              const QclParameter& p_parameter)
{
    if (m_list != &p_parameter)
        judgeItems(p_record.object, p_parameter);
    if (m_items.size() == 1)
        return &m_items.front();

    const auto giving = m_itemsGiving.find(p_record.message);
    if (giving == m_itemsGiving.end() || giving->second.empty())
        return nullptr;
    const ValueItem* item = giving->second.front();
    giving->second.pop();
    return item;
}

void RecordPlaces::judgeItems(const std::string& p_objectPath, const QclParameter& p_parameter)
{
    m_list = &p_parameter;
    m_items = valueItems(p_parameter.value);
    m_itemsGiving.clear();
    if (m_items.size() == 1)
        return;

    for (const ValueItem& item : m_items)
    {
        m_checker.clearErrors();
        try
        {
            m_checker.checkParam(p_objectPath, p_parameter.name, item.text);
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
