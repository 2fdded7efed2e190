#include "MessageCatalogue.h"

#include "CheckMessages.h"
#include "DimExprErrors.h"

#include "DataError.h"
#include "ExpressionsError.h"

#include <algorithm>

namespace qen {
namespace {

thread_local CheckMessageListener* t_listener = nullptr;

constexpr ExpressionErrors::ErrorLevel levelOf(messages::Raises p_raises)
{
    return p_raises == messages::Raises::Warning ? ExpressionErrors::Warning : ExpressionErrors::Error;
}

}    // namespace

namespace messages {

void raiseRow(const Row& p_row, const std::vector<std::string>& p_values)
{
    UserMsg message(p_row.text, nullptr);
    for (const std::string& value : p_values)
        message.arg(value);
    const std::string text = message;

    if (t_listener)
        t_listener->onMessage(CheckMessages::all()[static_cast<std::size_t>(p_row.id)], p_values, text);

    switch (p_row.raises)
    {
    case Raises::Warning:
        throw DimExprErrors::dxwarning(text);
    case Raises::Bounds:
        throw DimExprErrors::bounds_error(text);
    case Raises::Units:
        throw DimExprErrors::units_error(text);
    case Raises::DynamicQuantity:
        throw DimExprErrors::dynamic_quant_error(text);
    case Raises::InvalidBound:
        throw data::error("DimExprChecker", "extractBoundValue", text, ErrorTypeError);
    case Raises::Name:
        throw expressions::name("SplitVariableName", "SplitVariableName", text, ErrorTypeError);
    case Raises::Error:
        break;
    }
    throw DimExprErrors::dxerror(text);
}

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
