#pragma once

#include "ExpressionErrors.h"
#include "PreVariablesApi.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qen {

/// One message of the catalogue. Lives as long as the process.
struct QEN_PREVARIABLES_API CheckMessage {
    const char* identifier;    ///< stable and readable, such as "wrong-units"; never part of the text
    ExpressionErrors::ErrorLevel level;       ///< of the record that the message becomes
    const char* text;                         ///< the template, with placeholders %1 to %5
    std::vector<const char*> placeholders;    ///< what each stands for, in their order
};

/// The messages that the library can raise.
class QEN_PREVARIABLES_API CheckMessages {
public:
    /// All messages, in the catalogue's order.
    static const std::vector<CheckMessage>& all();

    /// The message of that identifier; null when there is none.
    static const CheckMessage* find(const std::string& p_identifier);
};

/// Is told of each message when it is raised, on the raising thread and before any record is made, in the middle of a
/// check: it does not use the checker. Quiet checks raise as well: what a listener was told belongs to a record when the
/// record's text equals it.
class QEN_PREVARIABLES_API CheckMessageListener {
public:
    /// @param p_arguments  What the placeholders were filled with, as the user sees it.
    /// @param p_text       The formatted text.
    virtual void onMessage(const CheckMessage& p_message, const std::vector<std::string>& p_arguments,
                           const std::string& p_text) = 0;

protected:
    ~CheckMessageListener() = default;    // not virtual: the library never destroys a listener
};

/// Listens to the messages that the current thread raises, from construction to destruction. Listeners nest: only the
/// innermost is told.
class QEN_PREVARIABLES_API ScopedCheckMessageListener {
public:
    /// @param p_listener  Not owned; must outlive this object. Null silences outer listeners.
    explicit ScopedCheckMessageListener(CheckMessageListener* p_listener);
    ~ScopedCheckMessageListener();

    ScopedCheckMessageListener(const ScopedCheckMessageListener&) = delete;
    ScopedCheckMessageListener& operator=(const ScopedCheckMessageListener&) = delete;

private:
    CheckMessageListener* m_outer;
};

}    // namespace qen
