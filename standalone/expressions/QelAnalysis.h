#pragma once

#include "expressions/KeptExpressions.h"
#include "expressions/QelDims.h"
#include "expressions/QelExpression.h"
#include "expressions/QelFunctions.h"
#include "expressions/QelKept.h"
#include "expressions/QelNames.h"
#include "expressions/QelSyntax.h"
#include "model/ModelTree.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

/// @file
/// The one pass over an expression: each rule of the grammar reads its stretch of the text and leaves an operand.

namespace qen::standalone::qel {

class Analysis {
public:
    Analysis(const World& p_world, QelResult& p_result, bool p_wantReferences)
        : m_world(p_world), m_names(p_world), m_result(p_result), m_wantReferences(p_wantReferences)
    {}

    void run(std::string_view p_text);

private:
    /// A text that is being read: the one that was given, a named expression, or that of a monitor point.
    struct Source {
        enum class Kind : std::uint8_t { Given, NamedExpression, MonitorPoint };

        std::string_view text;
        Kind kind = Kind::Given;
        const ModelTree::Parameter* parameter = nullptr;    ///< that holds the text; null for the given one
        std::string_view objectPath;                        ///< of that parameter
        std::string_view name;                              ///< of the named expression or monitor point
        TextRange shown;                                    ///< where the given text refers to it
        Source* outer = nullptr;

        // Brackets that were paired ahead of reading: by the place of the opening one, up to a place of the text.
        std::vector<std::pair<const char*, const char*>> brackets;
        const char* pairedUpTo = nullptr;
    };

    /// What is known of a parameter's expression after it was read once.
    struct Known {
        bool beingRead = false;
        bool collected = false;    ///< its references have been counted as the given expression's own
        bool judged = false;
        bool failed = false;
        Operand operand;
    };

    enum class Infix : std::uint8_t {
        Or,
        And,
        Equal,
        Unequal,
        Less,
        LessEqual,
        Greater,
        GreaterEqual,
        Add,
        Subtract,
        Multiply,
        Divide
    };

    struct InfixPlace {
        unsigned precedence;    ///< 0 for none
        unsigned bytes;
        Infix infix;
    };

    // The grammar, from loose to tight binding (QelAnalysis.cpp). Each is false after an error.
    bool whole(Operand& p_operand);
    bool infix(Operand& p_left, unsigned p_precedence);
    bool unary(Operand& p_operand);
    bool sign(Operand& p_operand);
    bool power(Operand& p_base);
    bool primary(Operand& p_operand);
    bool number(Operand& p_operand);
    bool parenthesis(Operand& p_operand);
    bool units(Operand& p_operand, const char* p_begin);
    bool functionCall(const Function& p_function, Operand& p_operand, const char* p_begin);
    InfixPlace infixAhead() const;
    bool combine(Infix p_infix, Operand& p_left, const Operand& p_right, const char* p_begin,
                 const char* p_at);
    bool raise(Operand& p_base, const Operand& p_exponent, const char* p_begin, const char* p_at);
    bool judgeArguments(const Function& p_function, Operand* p_arguments, unsigned p_count,
                        const char* p_begin);

    // What names refer to (QelReferences.cpp).
    bool reference(Operand& p_operand);
    bool variable(const RootPlace& p_root, Operand& p_operand, const char* p_begin);
    bool namedExpression(const ModelTree::Parameter& p_parameter, Operand& p_operand, const char* p_begin);
    bool readParameter(const ModelTree::Parameter& p_parameter, std::string_view p_objectPath,
                       Source::Kind p_kind, std::string_view p_name, Operand& p_operand, const char* p_begin);
    bool readSource(Source& p_source, Known& p_known);
    bool callback(const Component& p_function, Operand& p_operand, const char* p_begin);
    bool argument(std::string_view p_argument, std::string_view p_locator, Operand& p_operand);
    bool expressionValue(Operand& p_operand, const char* p_begin);
    const char* closingBracket(const char* p_open);
    bool countReference(const char* p_begin);
    void mentionVariable(std::string_view p_text);
    void mentionCallback(std::string_view p_function, std::string_view p_locator,
                         std::string_view p_argument);
    void mentionExpression(const ModelTree::Parameter& p_parameter, const KeptExpression* p_kept);
    void collectVariable(std::string_view p_name);
    void collect(QelReference::Kind p_kind, std::string_view p_text);

    // What is kept of the expressions that names refer to (KeptExpressions.cpp).
    const KeptExpression* keptExpression(const Source& p_source);
    void keep(const Source& p_source, KeptExpressions& p_all, KeptExpressions::Slot& p_slot);
    void readOnItsOwn(const Source& p_source);
    bool fits(const KeptExpression& p_kept) const;
    bool take(const KeptExpression& p_kept, const Source& p_source, Operand& p_operand);
    void takeMentions(const KeptExpression& p_kept, const ModelTree::Parameter& p_parameter,
                      bool p_inArgument, TextRange p_shown);

    // Errors (QelFailures.cpp).
    bool fail(const char* p_begin, const char* p_end, const std::string& p_message);
    bool failBeyondLimit(const char* p_begin, const char* p_end, const std::string& p_message);
    bool failDims(const char* p_begin, const char* p_end, const std::string& p_message);
    bool failExpected(const char* p_at, std::string_view p_expected);
    std::string likelySlip(const char* p_at) const;
    std::string suggestedRoot(const char* p_begin);
    bool failCycle(const ModelTree::Parameter& p_parameter, std::string_view p_name, const char* p_begin);
    QelError errorAt(const char* p_begin, const char* p_end, const std::string& p_message) const;
    TextRange rangeOf(const char* p_begin, const char* p_end) const;
    std::string column(const char* p_at) const;
    std::string dimsText(const Operand& p_operand) const;

    bool descend(const char* p_at)
    {
        if (++m_depth > QelLimits::k_depth)
            return failBeyondLimit(p_at, p_at + 1, depthProblem());
        m_deepest = std::max(m_deepest, m_depth);
        return true;
    }

    static std::string depthProblem();

    void skipBlanks()
    {
        while (m_at != m_end && hasClass(*m_at, k_blank))
            ++m_at;
    }

    /// The character ahead; NUL at the end.
    char ahead() const { return m_at != m_end ? *m_at : '\0'; }

    const World& m_world;
    Names m_names;
    QelResult& m_result;
    const bool m_wantReferences;

    Source* m_source = nullptr;
    const char* m_at = nullptr;
    const char* m_end = nullptr;
    unsigned m_depth = 0;
    unsigned m_deepest = 0;
    std::size_t m_references = 0;

    bool m_quiet = false;         // in the argument of a callback: nothing is collected, errors do not count
    bool m_fatal = false;         // an error that counts even there
    bool m_inArgument = false;    // directly, so that the value of a monitor point is known
    std::string_view m_locator;

    // The last number that was read, without its units.
    const char* m_numberBegin = nullptr;
    const char* m_numberEnd = nullptr;

    // A number with the units of an offset temperature, to which a sign belongs: where it ends, and its offset.
    const char* m_offsetNumberEnd = nullptr;
    double m_offset = 0.0;

    bool m_dimsAreUnknown = false;    // behind an operator that no catalogue has
    bool m_hasWrongDims = false;      // also where that does not count

    KeptExpression* m_keeps =
        nullptr;                    // an analysis that keeps what it reads: of expressions that are kept
    bool m_meetsCycle = false;      // of such an analysis, which ends there
    unsigned m_readsPlainly = 0;    // within that many expressions that are not kept

    std::unordered_map<const ModelTree::Parameter*, Known> m_known;
    std::unordered_set<std::string> m_seen;    // only where there are many variables
};

}    // namespace qen::standalone::qel
