#include "rules/RuleReader.h"

#include "rules/RuleText.h"
#include "text/NearestName.h"

#include <algorithm>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_parameterLevel = "PARAMETER";

// clang-format off
const std::vector<std::string> k_objectKeys {"Named", "Same As"};

const std::vector<std::string> k_parameterKeys {
    "Allowed", "Depends On", "Kind", "Lower Bound", "Quantity", "Single Valued", "Type", "Units From",
    "Units Times", "Upper Bound"};
// clang-format on

std::string_view trimmed(std::string_view p_text)
{
    const std::size_t begin = p_text.find_first_not_of(" \t");
    if (begin == std::string_view::npos)
        return {};
    return p_text.substr(begin, p_text.find_last_not_of(" \t") - begin + 1);
}

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

/// The name of an object that a units source borrows must be one that the rule's own path has.
bool hasLevel(std::string_view p_pattern, std::string_view p_type)
{
    PathLevel level;
    while (takeLevel(p_pattern, level))
        if (level.type == p_type)
            return true;
    return false;
}

/// "/LIBRARY/THING:{TYPE}/PARAMETER:Units"; none when the text has another form.
std::optional<UnitsSource> readUnitsSource(std::string_view p_text)
{
    UnitsSource source;
    UnitsSource::Piece piece;
    PathLevel level;
    while (takeLevel(p_text, level))
    {
        if (level.type == k_parameterLevel)
        {
            if (level.name.empty() || !p_text.empty())
                return std::nullopt;
            source.paramName = level.name;
            if (!piece.text.empty())
                source.objectPath.push_back(piece);
            return source.objectPath.empty() ? std::nullopt : std::optional(source);
        }
        piece.text.append("/").append(level.type);
        if (!level.hasName)
            continue;
        if (level.name.empty())
            return std::nullopt;
        piece.text += ':';
        if (level.name.size() > 2 && level.name.front() == '{' && level.name.back() == '}')
        {
            piece.nameFrom = level.name.substr(1, level.name.size() - 2);
            source.objectPath.push_back(std::exchange(piece, {}));
        }
        else
            piece.text += level.name;
    }
    return std::nullopt;
}

}    // namespace

RuleReader::RuleReader(const QclDocument& p_document, std::size_t p_number, RuleTree& p_tree,
                       Diagnostics& p_problems)
    : m_document(p_document), m_number(p_number), m_tree(p_tree), m_problems(p_problems)
{}

void RuleReader::read()
{
    std::vector<Section> sections;
    for (const QclObject& text : m_document.objects)
        if (const std::optional<Section> section = open(text))
            sections.push_back(*section);

    for (const Section& section : sections)
        if (section.paramName)
            readParameter(section);
        else
            readObject(section);

    // What looks at other sections, once all have been read: the order of the sections does not matter.
    for (const Section& section : sections)
    {
        checkAncestors(section);
        if (!section.paramName)
            checkSameAs(*section.object);
    }
}

std::optional<RuleReader::Section> RuleReader::open(const QclObject& p_text)
{
    Section section {&p_text, &m_tree.root(), std::nullopt};
    PathLevel level;
    std::string_view rest = p_text.path;
    while (takeLevel(rest, level))
    {
        if (level.type == k_parameterLevel)
        {
            if (!rest.empty())
            {
                atSection(p_text, "bad-rule-path",
                          "A parameter's level must be the last one of the path " + quotedShort(p_text.path) +
                              ".");
                return std::nullopt;
            }
            section.paramName = std::string(level.name);
            break;
        }
        if (level.hasName)
        {
            atSection(p_text, "bad-rule-path",
                      "The path of a rule is made of types, but " + quotedShort(p_text.path) +
                          " names an object " + quotedShort(level.name) + " of type " +
                          quotedShort(level.type) +
                          ". Write the type alone, and 'Named = Yes' in its own section.");
            return std::nullopt;
        }
        std::unique_ptr<DeclaredObject>& child = section.object->children[std::string(level.type)];
        if (!child)
        {
            child = std::make_unique<DeclaredObject>();
            child->type = level.type;
            child->pattern = section.object->pattern + "/" + child->type;
        }
        section.object = child.get();
    }
    if (section.object == &m_tree.root())
    {
        atSection(p_text, "bad-rule-path",
                  "Expected the path of an object or of its parameter, such as '/FLOW/DOMAIN' or "
                  "'/FLOW/DOMAIN/PARAMETER:Location', but found " +
                      quotedShort(p_text.path) + ".");
        return std::nullopt;
    }
    return section;
}

void RuleReader::readObject(const Section& p_section)
{
    DeclaredObject& object = *p_section.object;
    object.place = placeOf(*p_section.text);
    for (const QclParameter& key : p_section.text->parameters)
    {
        if (key.name() == "Named")
            object.named = readYesNo(key, object.named.value_or(false));
        else if (key.name() == "Same As")
            readSameAs(key, object);
        else
            unknownKey(key, p_section, k_objectKeys);
    }
}

void RuleReader::readParameter(const Section& p_section)
{
    DeclaredParameter& parameter = p_section.object->parameters[*p_section.paramName];
    ParameterRule& rule = parameter.rule;
    rule.name = *p_section.paramName;
    parameter.place = placeOf(*p_section.text);
    for (const QclParameter& key : p_section.text->parameters)
    {
        if (key.name() == "Type")
            readType(key, parameter);
        else if (key.name() == "Allowed")
            readList(key, rule.allowedTexts);
        else if (key.name() == "Quantity")
            rule.quantity = key.value();
        else if (key.name() == "Units From")
            readUnitsFrom(key, p_section, parameter);
        else if (key.name() == "Units Times")
            rule.unitsTimes = key.value();
        else if (key.name() == "Lower Bound")
            readBound(key, rule.lowerBound);
        else if (key.name() == "Upper Bound")
            readBound(key, rule.upperBound);
        else if (key.name() == "Kind")
        {
            if (key.value().empty() || key.value() == k_expressionKind)
                rule.kind = key.value();
            else
                atValue(key, "bad-rule-value",
                        "Unknown kind " + quotedShort(key.value()) + ". Expected 'Expression' or nothing.");
        }
        else if (key.name() == "Single Valued")
            rule.singleValued = readYesNo(key, rule.singleValued);
        else if (key.name() == "Depends On")
            readList(key, rule.dependencies);
        else
            unknownKey(key, p_section, k_parameterKeys);
    }
    checkRule(p_section, parameter);
}

void RuleReader::readSameAs(const QclParameter& p_key, DeclaredObject& p_object)
{
    readList(p_key, p_object.sameAs);
    p_object.sameAsPlaces.clear();
    std::size_t offset = 0;
    for (const std::string& pattern : p_object.sameAs)
    {
        offset = p_key.value().find(pattern, offset);
        if (offset == std::string::npos)    // what an earlier document said holds on; this list is bad
            offset = 0;
        p_object.sameAsPlaces.push_back(p_key.placeInValue(offset));
        offset += pattern.size();
    }
}

void RuleReader::readType(const QclParameter& p_key, DeclaredParameter& p_parameter)
{
    const ParamType type = paramTypeFromText(p_key.value());
    if (type == ParamType::Unknown)
    {
        atValue(p_key, "unknown-parameter-type",
                "Unknown parameter type " + quotedShort(p_key.value()) + ". Expected " + paramTypeTexts() +
                    ".");
        return;
    }
    p_parameter.type = type;
    p_parameter.rule.type = p_key.value();
}

void RuleReader::readBound(const QclParameter& p_key, std::string& p_bound)
{
    if (!p_key.value().empty() && !readBoundText(std::string(p_key.value())))
    {
        atValue(p_key, "bad-rule-value",
                "The bound " + quotedShort(p_key.value()) +
                    " is not a number with or without units, such as '0 [m]' or '1'.");
        return;
    }
    p_bound = p_key.value();
}

void RuleReader::readUnitsFrom(const QclParameter& p_key, const Section& p_section,
                               DeclaredParameter& p_parameter)
{
    p_parameter.rule.unitsFrom.clear();
    p_parameter.unitsSource = {};
    if (p_key.value().empty())
        return;

    std::optional<UnitsSource> source = readUnitsSource(p_key.value());
    if (!source)
    {
        atValue(p_key, "bad-rule-value",
                "Expected the path of a parameter, such as "
                "'/LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}/PARAMETER:Units', but found " +
                    quotedShort(p_key.value()) + ".");
        return;
    }
    for (const UnitsSource::Piece& piece : source->objectPath)
        if (!piece.nameFrom.empty() && !hasLevel(p_section.object->pattern, piece.nameFrom))
        {
            atValue(p_key, "bad-rule-value",
                    "The name of a level of type " + quotedShort(piece.nameFrom) +
                        " is asked for, but the path " + quotedShort(p_section.object->pattern) +
                        " has no such level.");
            return;
        }
    p_parameter.rule.unitsFrom = p_key.value();
    p_parameter.unitsSource = std::move(*source);
}

void RuleReader::readList(const QclParameter& p_key, std::vector<std::string>& p_texts)
{
    std::vector<std::string> texts;
    std::string_view rest = p_key.value();
    while (!p_key.value().empty())
    {
        const std::size_t comma = rest.find(',');
        const std::string_view piece = trimmed(rest.substr(0, comma));
        if (piece.empty() || std::ranges::find(texts, piece) != texts.end())
        {
            atValue(p_key, "bad-rule-value",
                    piece.empty() ? "The list in '" + std::string(p_key.name()) + "' has an empty piece."
                                  : "The list in '" + std::string(p_key.name()) + "' has the piece " +
                                        quotedShort(piece) + " twice.");
            return;
        }
        texts.emplace_back(piece);
        if (comma == std::string_view::npos)
            break;
        rest.remove_prefix(comma + 1);
    }
    p_texts = std::move(texts);
}

bool RuleReader::readYesNo(const QclParameter& p_key, bool p_otherwise)
{
    if (p_key.value() == "Yes" || p_key.value() == "No")
        return p_key.value() == "Yes";
    atValue(p_key, "bad-rule-value",
            "Expected 'Yes' or 'No' for '" + std::string(p_key.name()) + "', but found " +
                quotedShort(p_key.value()) + ".");
    return p_otherwise;
}

void RuleReader::atSection(const Section& p_section, const char* p_identifier, std::string p_message)
{
    atSection(*p_section.text, p_identifier, std::move(p_message));
}

void RuleReader::atSection(const QclObject& p_text, const char* p_identifier, std::string p_message)
{
    m_problems.push_back({Severity::Error, p_identifier, std::move(p_message), p_text.place,
                          static_cast<std::uint32_t>(p_text.path.size())});
}

// A key of an earlier document has no place in this one; then the section, which brought the problem up, has.
void RuleReader::atKey(const Section& p_section, std::string_view p_key, const char* p_identifier,
                       std::string p_message)
{
    if (const QclParameter* key = p_section.text->find(p_key))
        atValue(*key, p_identifier, std::move(p_message));
    else
        atSection(p_section, p_identifier, std::move(p_message));
}

void RuleReader::atValue(const QclParameter& p_key, const char* p_identifier, std::string p_message)
{
    const std::size_t firstLine = p_key.firstPieceLength();
    m_problems.push_back({Severity::Error, p_identifier, std::move(p_message), p_key.placeInValue(0),
                          static_cast<std::uint32_t>(firstLine)});
}

void RuleReader::unknownKey(const QclParameter& p_key, const Section& p_section,
                            const std::vector<std::string>& p_known)
{
    std::string message = "Unknown key " + quotedShort(p_key.name()) + " in the rule " +
                          quotedShort(p_section.text->path) + ".";
    const std::string nearest = nearestName(p_key.name(), p_known);
    message += nearest.empty() ? " Expected " + listed(p_known) + "." : " Did you mean '" + nearest + "'?";
    m_problems.push_back({Severity::Error, "unknown-definition-key", std::move(message), p_key.place(),
                          static_cast<std::uint32_t>(p_key.name().size())});
}

DeclarationPlace RuleReader::placeOf(const QclObject& p_text) const
{
    const std::uint32_t file = p_text.place.file;
    const std::string name = file < m_document.files.size() ? m_document.files[file].path : std::string();
    return {m_number, p_text.place, static_cast<std::uint32_t>(p_text.path.size()),
            name + ":" + std::to_string(p_text.place.line)};
}

}    // namespace qen::standalone
