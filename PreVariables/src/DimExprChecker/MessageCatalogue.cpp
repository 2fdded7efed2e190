#include "MessageCatalogue.h"

#include "CheckMessages.h"

#include "StringUtilities.h"
#include "UserMsg.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qen {
namespace {

thread_local CheckMessageListener* t_listener = nullptr;

constexpr ExpressionErrors::ErrorLevel levelOf(messages::Raises p_raises)
{
    return p_raises == messages::Raises::Warning ? ExpressionErrors::Warning : ExpressionErrors::Error;
}

}    // namespace

namespace messages {

namespace {

/// The text of a message, of which the listener is told.
std::string textOf(const Row& p_row, std::span<const Value> p_values)
{
    std::vector<std::string> values;
    values.reserve(p_values.size());
    for (const Value& value : p_values)
        values.push_back(value.text());

    UserMsg message(p_row.text, nullptr);
    for (const std::string& value : values)
        message.arg(value);

    if (t_listener)
        t_listener->onMessage(CheckMessages::all()[static_cast<std::size_t>(p_row.id)], values,
                              message.str());
    return message;
}

}    // namespace

std::string Value::text() const
{
    if (m_names)
        return StringUtilities::setToString(std::set<std::string>(m_names->begin(), m_names->end()), ',');
    if (m_isUnits && m_text.empty())
        return UserMsg("dimensionless");
    return std::string(m_text);
}

template <Raises What>
Problem<What> problem(const Row& p_row, std::span<const Value> p_values)
{
    std::string text = textOf(p_row, p_values);
    if constexpr (What == Raises::InvalidBound)
        return {"DimExprChecker", "extractBoundValue", std::move(text), ErrorTypeError};
    else if constexpr (What == Raises::Name)
        return {"SplitVariableName", "SplitVariableName", std::move(text), ErrorTypeError};
    else
        return Problem<What>(std::move(text));
}

template Problem<Raises::Error> problem<Raises::Error>(const Row&, std::span<const Value>);
template Problem<Raises::Warning> problem<Raises::Warning>(const Row&, std::span<const Value>);
template Problem<Raises::Bounds> problem<Raises::Bounds>(const Row&, std::span<const Value>);
template Problem<Raises::Units> problem<Raises::Units>(const Row&, std::span<const Value>);
template Problem<Raises::DynamicQuantity> problem<Raises::DynamicQuantity>(const Row&,
                                                                           std::span<const Value>);
template Problem<Raises::InvalidBound> problem<Raises::InvalidBound>(const Row&, std::span<const Value>);
template Problem<Raises::Name> problem<Raises::Name>(const Row&, std::span<const Value>);

}    // namespace messages

const std::vector<CheckMessage>& CheckMessages::all()
{
    static const std::vector<CheckMessage> all = [] {
        std::vector<CheckMessage> result;
        result.reserve(messages::k_catalogue.size());
        for (const messages::Row& row : messages::k_catalogue)
        {
            const auto first = row.placeholders.begin();
            const auto count = static_cast<std::ptrdiff_t>(messages::placeholderCount(row));
            result.push_back({row.name, levelOf(row.raises), row.text, {first, first + count}});
        }
        return result;
    }();
    return all;
}

const CheckMessage* CheckMessages::find(const std::string& p_identifier)
{
    const auto found = std::find_if(all().begin(), all().end(), [&](const CheckMessage& p_message) {
        return p_identifier == p_message.identifier;
    });
    return found == all().end() ? nullptr : &*found;
}

ScopedCheckMessageListener::ScopedCheckMessageListener(CheckMessageListener* p_listener) : m_outer(t_listener)
{
    t_listener = p_listener;
}

ScopedCheckMessageListener::~ScopedCheckMessageListener() { t_listener = m_outer; }

}    // namespace qen
