#include "expressions/KeptExpressions.h"

#include "expressions/QelAnalysis.h"
#include "expressions/QelKept.h"
#include "world/World.h"

#include <algorithm>
#include <utility>

namespace qen::standalone {

KeptExpressions::KeptExpressions(const ModelTree& p_model, ReadGraph* p_reads)
    : m_model(p_model), m_reads(p_reads), m_version(p_model.version())
{}

KeptExpressions::~KeptExpressions() = default;

KeptExpressions::Slot& KeptExpressions::slot(const ModelTree::Parameter& p_parameter, bool p_inArgument)
{
    if (const std::size_t version = m_model.version(); version != m_version)
    {
        m_slots.clear();
        m_version = version;
    }
    Slots& slots = m_slots[&p_parameter];    // stays where it is
    return p_inArgument ? slots.inArgument : slots.elsewhere;
}

ReadGraph::Node KeptExpressions::nodeOf(std::string_view p_objectPath, std::string_view p_paramName,
                                        bool p_inArgument) const
{
    return m_reads->node(p_inArgument ? ReadGraph::Kind::ArgumentExpression : ReadGraph::Kind::Expression,
                         p_objectPath, p_paramName);
}

namespace qel {

/// What is kept of an expression, which is read first where that was not done; null where nothing can be kept. An
/// analysis that keeps what it reads then cannot be kept either, and ends.
const KeptExpression* Analysis::keptExpression(const Source& p_source)
{
    if (!m_world.expressions)
        return nullptr;
    KeptExpressions& all = *m_world.expressions;
    KeptExpressions::Slot& slot = all.slot(*p_source.parameter, m_quiet);
    if (slot.state == KeptExpressions::State::Unread && !m_readsPlainly)
        keep(p_source, all, slot);
    else if (slot.state == KeptExpressions::State::Kept && all.m_reads)
        all.m_reads->use(all.nodeOf(p_source.objectPath, p_source.parameter->name, m_quiet));

    if (slot.state == KeptExpressions::State::Kept && fits(*slot.expression))
        return slot.expression.get();
    if (m_keeps)
    {
        m_fatal = true;
        m_meetsCycle = m_meetsCycle || slot.state == KeptExpressions::State::BeingRead ||
                       slot.state == KeptExpressions::State::Refused;
    }
    return nullptr;
}

/// Reads an expression on its own, so that what is kept of it does not depend on where one comes from. What goes beyond
/// a limit, or forms a cycle, does: that is left to the analysis that refers to it.
void Analysis::keep(const Source& p_source, KeptExpressions& p_all, KeptExpressions::Slot& p_slot)
{
    p_slot.state = KeptExpressions::State::BeingRead;
    QelResult result;
    auto expression = std::make_unique<KeptExpression>();
    Analysis reader(m_world, result, false);
    reader.m_keeps = expression.get();
    reader.m_quiet = m_quiet;
    reader.m_depth = m_depth;
    {
        ReadGraph* const reads = p_all.m_reads;
        ReadGraph::Scope scope(
            reads, reads ? p_all.nodeOf(p_source.objectPath, p_source.parameter->name, m_quiet) : 0);
        reader.readOnItsOwn(p_source);
        if (reader.m_fatal)
            scope.abandon();
    }
    if (reader.m_fatal)
    {
        p_slot.state = reader.m_meetsCycle ? KeptExpressions::State::Refused : KeptExpressions::State::Unread;
        return;
    }
    p_slot.state = KeptExpressions::State::Kept;
    p_slot.expression = std::move(expression);
}

void Analysis::readOnItsOwn(const Source& p_source)
{
    Source source;
    source.text = p_source.text;
    source.kind = p_source.kind;
    source.parameter = p_source.parameter;
    source.name = p_source.name;
    m_source = &source;
    m_at = source.text.data();
    m_end = m_at + source.text.size();

    const unsigned depth = m_depth;
    m_keeps->failed = !descend(m_at) || !whole(m_keeps->operand);
    m_keeps->references = m_references;
    m_keeps->depth = m_deepest - depth;
    m_keeps->dimsAreUnknown = m_dimsAreUnknown;
    m_keeps->hasWrongDims = m_hasWrongDims;
    if (m_result.error)
        m_keeps->error = std::move(m_result.error->message);
}

/// Whether an analysis that read the expression at this place would find just what is kept.
bool Analysis::fits(const KeptExpression& p_kept) const
{
    return m_depth + p_kept.depth <= QelLimits::k_depth &&
           m_references + p_kept.references <= QelLimits::k_references &&
           !(m_dimsAreUnknown && p_kept.hasWrongDims);
}

/// Does what reading the expression would do.
bool Analysis::take(const KeptExpression& p_kept, const Source& p_source, Operand& p_operand)
{
    m_deepest = std::max(m_deepest, m_depth + p_kept.depth);
    m_dimsAreUnknown |= p_kept.dimsAreUnknown;
    m_hasWrongDims |= p_kept.hasWrongDims;
    takeMentions(p_kept, *p_source.parameter, m_quiet, p_source.shown);
    if (p_kept.failed)
    {
        if (!m_quiet)
            m_result.error = QelError {p_kept.error, p_source.shown};
        return false;
    }
    m_offsetNumberEnd = nullptr;
    p_operand = p_kept.operand;
    return true;
}

void Analysis::takeMentions(const KeptExpression& p_kept, const ModelTree::Parameter& p_parameter,
                            bool p_inArgument, TextRange p_shown)
{
    using Mention = KeptExpression::Mention;
    const bool collects = !p_inArgument && !m_keeps;
    const auto refer = [&](QelReference::Kind p_kind, std::string_view p_text) {
        if (m_wantReferences)
            m_result.references.push_back({p_kind, std::string(p_text), p_shown});
    };

    m_references += p_kept.ownReferences;
    for (const Mention& mention : p_kept.mentions)
    {
        switch (mention.kind)
        {
        case Mention::Kind::Variable:
            if (!collects)
                break;
            collectVariable(mention.text);
            refer(QelReference::Kind::Variable, mention.text);
            break;
        case Mention::Kind::Callback:
            if (!collects)
                break;
            m_result.callbacks.push_back(
                {std::string(mention.text), std::string(mention.locator), std::string(mention.argument)});
            refer(QelReference::Kind::Callback, mention.text);
            if (!mention.locator.empty())
                refer(QelReference::Kind::Locator, mention.locator);
            if (!mention.argument.empty())
                refer(QelReference::Kind::Argument, mention.argument);
            break;
        case Mention::Kind::Expression:
            if (collects && !mention.inArgument)
                refer(QelReference::Kind::NamedExpression, mention.parameter->name);
            if (const Known& known = m_known[mention.parameter];
                mention.kept && !(known.judged && (known.collected || mention.inArgument)))
                takeMentions(*mention.kept, *mention.parameter, mention.inArgument, p_shown);
            break;
        }
    }

    Known& known = m_known[&p_parameter];
    known.judged = true;
    known.collected = !p_inArgument;
    known.failed = p_kept.failed;
    known.operand = p_kept.operand;
}

}    // namespace qel
}    // namespace qen::standalone
