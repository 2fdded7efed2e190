#include "physics/PhysicsReader.h"

#include "physics/PhysicsLinks.h"
#include "rules/RuleText.h"
#include "rules/RuleTree.h"
#include "text/Blanks.h"
#include "text/NearestName.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_queryLevel = "QUERY";
constexpr std::string_view k_conditionLevel = "CONDITION";
constexpr std::size_t k_mostConditions = 100;     // of a query
constexpr std::size_t k_mostSuggestions = 100;    // of the queries that may be meant; each looks at all
constexpr std::size_t k_longestPattern = 2048;    // bytes; an object's path cannot be longer

// clang-format off
const std::vector<std::string> k_conditionKeys {
    "At Least", "At Most", "If", "Is", "Is Not", "Logical", "Names", "Negate", "Object", "Parameter", "Query"};

const std::vector<std::string> k_queryKeys {
    "Answer", "At Least", "At Most", "If", "Is", "Is Not", "Logical", "Names", "Negate", "Object", "Parameter", "Query"};
// clang-format on

std::string listed(const std::vector<std::string>& p_names)
{
    std::string text;
    for (std::size_t i = 0; i < p_names.size(); ++i)
    {
        if (i > 0)
            text += i + 1 == p_names.size() ? " or " : ", ";
        text += quotedShort(p_names[i]);
    }
    return text;
}

/// What "/QUERY:name" and "/QUERY:name/CONDITION:name" name; none for another path.
struct SectionPath {
    std::string_view query;
    std::string_view condition;    // empty in the query's own section
};

std::optional<SectionPath> readSectionPath(std::string_view p_path)
{
    PathLevel level;
    if (!takeLevel(p_path, level) || level.type != k_queryLevel || level.name.empty())
        return std::nullopt;
    SectionPath path {level.name, {}};
    if (p_path.empty())
        return path;
    if (!takeLevel(p_path, level) || level.type != k_conditionLevel || level.name.empty() || !p_path.empty())
        return std::nullopt;
    path.condition = level.name;
    return path;
}

bool hasCondition(const PhysicsQuery& p_query, std::string_view p_name)
{
    return std::ranges::find(p_query.conditions, p_name, &PhysicsCondition::name) != p_query.conditions.end();
}

std::size_t conditionNamed(PhysicsQuery& p_query, std::string_view p_name)
{
    const auto found = std::ranges::find(p_query.conditions, p_name, &PhysicsCondition::name);
    if (found != p_query.conditions.end())
        return static_cast<std::size_t>(found - p_query.conditions.begin());
    p_query.conditions.emplace_back().name = p_name;
    return p_query.conditions.size() - 1;
}

bool isEmpty(const PhysicsCondition& p_condition)
{
    return !p_condition.object && p_condition.parameter.empty() && p_condition.is.empty() &&
           p_condition.isNot.empty() && !p_condition.logical && !p_condition.names &&
           p_condition.query.name.empty() && p_condition.onlyIf.name.empty() && !p_condition.atLeast &&
           !p_condition.atMost && !p_condition.negate;
}

}    // namespace

PhysicsReader::PhysicsReader(const QclDocument& p_document, std::size_t p_number, PhysicsQueries& p_queries,
                             Diagnostics& p_problems)
    : m_document(p_document), m_number(p_number), m_queries(p_queries), m_problems(p_problems)
{}

void PhysicsReader::read()
{
    for (const QclObject& text : m_document.objects)
        readQuery(text);

    // What looks at other sections, once all have been read: the order of the sections does not matter.
    for (const Section& section : m_sections)
        checkCondition(section);
    for (auto& [name, query] : m_queries)
    {
        std::erase_if(query.conditions, isEmpty);
        if (query.conditions.empty() && isOfThisDocument(query.place) && !m_withBadKeys.contains(&query))
            report(query.place, "missing-query-key",
                   "The query has no condition. Expected 'Object' or 'Query', here or in a section [/QUERY:" +
                       name + "/CONDITION:...].");
    }
    resolvePhysicsQueries(m_queries, m_number, m_problems);
}

void PhysicsReader::readQuery(const QclObject& p_text)
{
    const std::optional<SectionPath> path = readSectionPath(p_text.path);
    if (!path)
    {
        report(placeOf(p_text), "bad-query-path",
               "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
               "'/QUERY:isRFR/CONDITION:motion', but found " +
                   quotedShort(p_text.path) + ".");
        return;
    }
    PhysicsQuery& query = m_queries[std::string(path->query)];
    query.name = path->query;
    if (path->condition.empty() || !isOfThisDocument(query.place))
        query.place = placeOf(p_text);

    // The query's own section is one of a condition when it has a key of one.
    const bool isOfQuery = path->condition.empty();
    const bool hasConditionKeys = std::ranges::any_of(
        p_text.parameters, [](const QclParameter& p_key) { return p_key.name() != "Answer"; });
    if (!isOfQuery || hasConditionKeys)
    {
        if (query.conditions.size() == k_mostConditions && !hasCondition(query, path->condition))
        {
            report(placeOf(p_text), "too-many-conditions",
                   "The query " + quotedShort(query.name) + " has more than " +
                       std::to_string(k_mostConditions) + " conditions.");
            return;
        }
        m_sections.push_back({&p_text, &query, conditionNamed(query, path->condition)});
        query.conditions[m_sections.back().condition].place = placeOf(p_text);
    }
    for (const QclParameter& key : p_text.parameters)
        if (isOfQuery && key.name() == "Answer")
            readAnswer(key, query);
        else
        {
            const std::size_t before = m_problems.size();
            readKey(key, p_text, query.conditions[m_sections.back().condition]);
            if (m_problems.size() != before)
                m_withBadKeys.insert(&query);
        }
}

void PhysicsReader::readKey(const QclParameter& p_key, const QclObject& p_text, PhysicsCondition& p_condition)
{
    if (p_key.name() == "Object")
        readObject(p_key, p_condition.object);
    else if (p_key.name() == "Parameter")
        p_condition.parameter = p_key.value();
    else if (p_key.name() == "Is")
        readTexts(p_key, p_condition.is);
    else if (p_key.name() == "Is Not")
        readTexts(p_key, p_condition.isNot);
    else if (p_key.name() == "Logical")
        p_condition.logical = readYesNo(p_key, p_condition.logical);
    else if (p_key.name() == "Names")
        readNames(p_key, p_condition.names);
    else if (p_key.name() == "Query")
        readAsked(p_key, p_condition.query);
    else if (p_key.name() == "If")
        readAsked(p_key, p_condition.onlyIf);
    else if (p_key.name() == "At Least")
        readCount(p_key, p_condition.atLeast);
    else if (p_key.name() == "At Most")
        readCount(p_key, p_condition.atMost);
    else if (p_key.name() == "Negate")
        p_condition.negate = readYesNo(p_key, p_condition.negate).value_or(false);
    else
        unknownKey(p_key, p_text, p_condition.name.empty());
}

void PhysicsReader::readAnswer(const QclParameter& p_key, PhysicsQuery& p_query)
{
    if (p_key.value().empty() || p_key.value() == "All")
        p_query.answer = PhysicsAnswer::All;
    else if (p_key.value() == "Any")
        p_query.answer = PhysicsAnswer::Any;
    else if (p_key.value() == "List")
        p_query.answer = PhysicsAnswer::List;
    else
        atValue(p_key, "bad-query-value",
                "Expected 'All', 'Any' or 'List' for 'Answer', but found " + quotedShort(p_key.value()) +
                    ".");
}

void PhysicsReader::readObject(const QclParameter& p_key, std::optional<ObjectPattern>& p_pattern)
{
    p_pattern.reset();
    if (p_key.value().empty())
        return;
    if (p_key.value().size() > k_longestPattern)
    {
        atValue(p_key, "bad-query-value",
                "The path is " + std::to_string(p_key.value().size()) + " bytes long. The limit is " +
                    std::to_string(k_longestPattern) + ".");
        return;
    }
    p_pattern = ObjectPattern::read(p_key.value());
    if (!p_pattern)
        atValue(p_key, "bad-query-value",
                "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or "
                "'{DOMAIN}/BOUNDARY:*', but found " +
                    quotedShort(p_key.value()) + ".");
}

void PhysicsReader::readAsked(const QclParameter& p_key, AskedQuery& p_asked) const
{
    p_asked.name = p_key.value();
    p_asked.place = {m_number, p_key.placeInValue(0), static_cast<std::uint32_t>(p_key.value().size())};
}

void PhysicsReader::readNames(const QclParameter& p_key, std::optional<ObjectPattern>& p_pattern)
{
    p_pattern.reset();
    if (p_key.value().empty())
        return;
    if (p_key.value().size() <= k_longestPattern)
        p_pattern = ObjectPattern::read(p_key.value());
    if (!p_pattern || p_pattern->endsWithName() || p_pattern->hasEach())
    {
        p_pattern.reset();
        atValue(p_key, "bad-query-value",
                "Expected the path of one type of object without a name, such as '/LIBRARY/MATERIAL' or "
                "'{FLOW}/RIGID BODY', but found " +
                    quotedShort(p_key.value()) + ".");
    }
}

void PhysicsReader::readTexts(const QclParameter& p_key, std::vector<std::string>& p_texts)
{
    std::vector<std::string> texts;
    std::string_view rest = p_key.value();
    while (!p_key.value().empty())
    {
        const std::size_t comma = rest.find(',');
        const std::string_view piece = trimmed(rest.substr(0, comma));
        if (piece.empty())
        {
            atValue(p_key, "bad-query-value",
                    "The list in '" + std::string(p_key.name()) + "' has an empty piece.");
            return;
        }
        texts.emplace_back(piece);
        if (comma == std::string_view::npos)
            break;
        rest.remove_prefix(comma + 1);
    }
    p_texts = std::move(texts);
}

void PhysicsReader::readCount(const QclParameter& p_key, std::optional<std::size_t>& p_count)
{
    if (p_key.value().empty())
    {
        p_count.reset();
        return;
    }
    constexpr std::uint32_t k_largest = 1'000'000;
    std::uint32_t count = 0;
    const char* end = p_key.value().data() + p_key.value().size();
    const auto [rest, error] = std::from_chars(p_key.value().data(), end, count);
    if (error != std::errc() || rest != end || count > k_largest)
        atValue(p_key, "bad-query-value",
                "Expected a whole number from 0 to 1000000 for '" + std::string(p_key.name()) +
                    "', but found " + quotedShort(p_key.value()) + ".");
    else
        p_count = count;
}

std::optional<bool> PhysicsReader::readYesNo(const QclParameter& p_key, std::optional<bool> p_otherwise)
{
    if (p_key.value().empty())
        return std::nullopt;
    if (p_key.value() == "Yes" || p_key.value() == "No")
        return p_key.value() == "Yes";
    atValue(p_key, "bad-query-value",
            "Expected 'Yes' or 'No' for '" + std::string(p_key.name()) + "', but found " +
                quotedShort(p_key.value()) + ".");
    return p_otherwise;
}

void PhysicsReader::checkCondition(const Section& p_section)
{
    const PhysicsCondition& condition = p_section.query->conditions[p_section.condition];
    const auto contradiction = [&](std::string_view p_key, std::string p_message) {
        atKey(p_section, p_key, "contradictory-query", std::move(p_message));
    };
    const auto needs = [&](bool p_isSet, const char* p_key, bool p_hasOther, const char* p_other) {
        if (p_isSet && !p_hasOther)
            contradiction(p_key, std::string("'") + p_key + "' has no meaning without '" + p_other + "'.");
    };

    // A bad value of "Object" was reported and left out: what goes with it is not reported as well.
    const QclParameter* object = p_section.text->find("Object");
    const bool hasObject = condition.object || (object && !object->value().empty());
    const bool hasParameter = !condition.parameter.empty();
    if (!hasObject && condition.query.name.empty())
    {
        if (!isEmpty(condition) || p_section.text->parameters.empty())
            report(placeOf(*p_section.text), "missing-query-key",
                   "The condition has neither 'Object' nor 'Query'. Expected where to look, or what to ask.");
        return;
    }
    needs(hasParameter, "Parameter", hasObject, "Object");
    needs(condition.atLeast.has_value(), "At Least", hasObject, "Object");
    needs(condition.atMost.has_value(), "At Most", hasObject, "Object");
    needs(!condition.is.empty(), "Is", hasParameter, "Parameter");
    needs(!condition.isNot.empty(), "Is Not", hasParameter, "Parameter");
    needs(condition.logical.has_value(), "Logical", hasParameter, "Parameter");
    needs(condition.names.has_value(), "Names", hasParameter, "Parameter");

    std::vector<const char*> tests;
    if (!condition.is.empty())
        tests.push_back("Is");
    if (!condition.isNot.empty())
        tests.push_back("Is Not");
    if (condition.logical)
        tests.push_back("Logical");
    if (condition.names)
        tests.push_back("Names");
    if (tests.size() > 1)
        contradiction(tests[1], std::string("'") + tests[0] + "' and '" + tests[1] +
                                    "' cannot both say what the parameter is.");

    if (condition.atLeast && condition.atMost && *condition.atLeast > *condition.atMost)
        contradiction("At Most", "'At Least' is above 'At Most'.");

    if (p_section.query->answer == PhysicsAnswer::List)
        checkConditionOfList(p_section, condition);
    checkAsked(condition.query);
    checkAsked(condition.onlyIf);
}

void PhysicsReader::checkConditionOfList(const Section& p_section, const PhysicsCondition& p_condition)
{
    const auto contradiction = [&](std::string_view p_key, const char* p_message) {
        atKey(p_section, p_key, "contradictory-query", p_message);
    };
    if (!p_condition.object)
        contradiction("Query", "A list is made of the names of objects, but the condition has no 'Object'.");
    else if (!p_condition.object->endsWithName())
        contradiction("Object", "A list is made of the names of objects, but these have no names.");
    if (p_condition.atLeast)
        contradiction("At Least", "'At Least' has no meaning in a query that answers with a list.");
    if (p_condition.atMost)
        contradiction("At Most", "'At Most' has no meaning in a query that answers with a list.");
    if (p_condition.negate)
        contradiction("Negate", "'Negate' has no meaning in a query that answers with a list.");
}

void PhysicsReader::checkAsked(const AskedQuery& p_asked)
{
    if (p_asked.name.empty() || !isOfThisDocument(p_asked.place) || m_queries.contains(p_asked.name))
        return;
    const std::string nearest =
        m_suggestions++ < k_mostSuggestions ? nearestName(p_asked.name, queryNames()) : std::string();
    report(p_asked.place, "unknown-query",
           "No section defines the query " + quotedShort(p_asked.name) + "." +
               (nearest.empty() ? "" : " Did you mean '" + nearest + "'?"));
}

PhysicsPlace PhysicsReader::placeOf(const QclObject& p_text) const
{
    return {m_number, p_text.place, static_cast<std::uint32_t>(p_text.path.size())};
}

std::vector<std::string> PhysicsReader::queryNames() const
{
    std::vector<std::string> names;
    for (const auto& query : m_queries)
        names.push_back(query.first);
    return names;
}

void PhysicsReader::report(const PhysicsPlace& p_place, const char* p_identifier, std::string p_message)
{
    m_problems.push_back(
        {Severity::Error, p_identifier, std::move(p_message), p_place.place, p_place.length});
}

// A key of an earlier document has no place in this one; then the section, which brought the problem up, has.
void PhysicsReader::atKey(const Section& p_section, std::string_view p_key, const char* p_identifier,
                          std::string p_message)
{
    if (const QclParameter* key = p_section.text->find(p_key))
        atValue(*key, p_identifier, std::move(p_message));
    else
        report(placeOf(*p_section.text), p_identifier, std::move(p_message));
}

void PhysicsReader::atValue(const QclParameter& p_key, const char* p_identifier, std::string p_message)
{
    const std::size_t firstLine = p_key.firstPieceLength();
    report({m_number, p_key.placeInValue(0), static_cast<std::uint32_t>(firstLine)}, p_identifier,
           std::move(p_message));
}

void PhysicsReader::unknownKey(const QclParameter& p_key, const QclObject& p_text, bool p_isOfQuery)
{
    const std::vector<std::string>& known = p_isOfQuery ? k_queryKeys : k_conditionKeys;
    std::string message = "Unknown key " + quotedShort(p_key.name()) + " in the physics query " +
                          quotedShort(p_text.path) + ".";
    const std::string nearest = nearestName(p_key.name(), known);
    message += nearest.empty() ? " Expected " + listed(known) + "." : " Did you mean '" + nearest + "'?";
    report({m_number, p_key.place(), static_cast<std::uint32_t>(p_key.name().size())},
           "unknown-definition-key", std::move(message));
}

}    // namespace qen::standalone
