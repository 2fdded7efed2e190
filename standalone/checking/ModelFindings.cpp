#include "checking/ModelFindings.h"

#include "checking/ValueItems.h"
#include "text/NearestName.h"
#include "units/UnitSystem.h"

#include "QCLParam.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_logical = "Logical";
constexpr std::string_view k_integer = "Integer";
constexpr std::string_view k_listEnding = " List";
constexpr std::string_view k_parameterLevel = "/PARAMETER:";
constexpr std::string_view k_additionalVariable = "/LIBRARY/ADDITIONAL VARIABLE:";

constexpr std::array<std::string_view, 22> k_logicalTexts {
    "T", "True",  "TRUE",  "true",  "Yes", "YES", "yes", "On",  "ON",  "on",  "1",
    "F", "False", "FALSE", "false", "No",  "NO",  "no",  "Off", "OFF", "off", "0"};

bool endsWith(std::string_view p_text, std::string_view p_ending)
{
    return p_text.size() >= p_ending.size() && p_text.substr(p_text.size() - p_ending.size()) == p_ending;
}

std::string suggestion(std::string_view p_name, const std::vector<std::string>& p_known)
{
    const std::string nearest = nearestName(p_name, p_known);
    return nearest.empty() ? "" : " Did you mean '" + nearest + "'?";
}

std::string quotedList(const std::vector<std::string>& p_texts)
{
    std::string list;
    for (const std::string& text : p_texts)
        list += (list.empty() ? "'" : ", '") + text + "'";
    return list;
}

ObjectFinding unknownLevel(const RuleBook& p_rules, const QCLPath& p_parent, const std::string& p_type,
                           const std::string& p_name)
{
    const std::vector<std::string> types = p_rules.childTypes(p_parent.getFullPath());
    const std::string where =
        p_parent.empty() ? "at the top of a case" : "in '" + p_parent.getFullPath() + "'";

    ObjectFinding finding;
    if (std::find(types.begin(), types.end(), p_type) == types.end())
    {
        finding.identifier = "unknown-object-type";
        finding.message = "Unknown object type '" + p_type + "' " + where + "." + suggestion(p_type, types);
    }
    else
    {
        finding.identifier = "object-name";
        finding.message = p_name.empty()
                              ? "An object of type '" + p_type + "' needs a name: '/" + p_type + ":name'."
                              : "There is one object of type '" + p_type + "' " + where +
                                    "; it takes no name. Expected '/" + p_type + "'.";
    }
    finding.range = {p_parent.getFullPath().size(),
                     1 + p_type.size() + (p_name.empty() ? 0 : 1 + p_name.size())};
    return finding;
}

/// The check of one parameter.
class RuleFindings {
public:
    RuleFindings(const CaseParameter& p_parameter, const ModelTree& p_model, const RuleBook& p_rules,
                 const UnitSystem& p_units, ParameterFindings& p_findings)
        : m_parameter(p_parameter), m_of("of " + p_parameter.described()), m_model(p_model), m_rules(p_rules),
          m_units(p_units), m_findings(p_findings)
    {}

    void run()
    {
        const ParameterRule* rule = m_rules.find(m_parameter.objectPath, m_parameter.name);
        if (rule)
            checkValue(*rule);
        else
            addAtName("unknown-parameter",
                      "Unknown " + m_parameter.described() + "." +
                          suggestion(m_parameter.name, m_rules.parameterNames(m_parameter.objectPath)));
    }

private:
    void checkValue(const ParameterRule& p_rule)
    {
        const std::string& value = m_parameter.value;
        if (value.empty())
            return addAtName("missing-value", "The value " + m_of + " is missing.", Severity::Warning);
        if (p_rule.name.empty())
            return;    // the object takes any parameter

        checkDynamicUnits(p_rule);
        checkUnitsOfAdditionalVariable();

        const bool list = endsWith(p_rule.type, k_listEnding);
        const bool numeric = isNumeric();
        std::vector<ValueItem> items;
        if (list || numeric)
            items = valueItems(value);
        else
            items.push_back({value, {0, value.size()}});

        if (!list && items.size() > 1)
            addAtValue(items[1].range, "not-a-list",
                       "The value " + m_of + " is a list of " + std::to_string(items.size()) +
                           " items. Expected a single value.");

        for (const ValueItem& item : items)
        {
            if (item.text.empty())
                addAtValue(item.range, "empty-list-item",
                           "An item of the list " + m_of + " is empty. Expected a value between two commas.");
            else if (numeric)
                checkNumericItem(p_rule, item);
            else
                checkTextItem(p_rule, item);
        }
    }

    /// A quantity whose units stand elsewhere in the model is not checked where they do not.
    void checkDynamicUnits(const ParameterRule& p_rule)
    {
        if (p_rule.unitsFrom.empty())
            return;
        std::string units;
        m_rules.quantityMode(&m_model, m_parameter.objectPath, m_parameter.name, units);
        if (!units.empty())
            return;
        const std::size_t levels = p_rule.unitsFrom.rfind(k_parameterLevel);
        const std::string object = withNamesOf(p_rule.unitsFrom.substr(0, levels));
        const std::string name = p_rule.unitsFrom.substr(levels + k_parameterLevel.size());
        if (object.starts_with(k_additionalVariable) && !m_model.paramValue(object, name).empty())
            return;    // told where they stand, see below
        addAtName("units-not-found", "The units " + m_of +
                                         " are not known, so that its value cannot be checked. Expected "
                                         "units that are understood in parameter '" +
                                         name + "' in object '" + object + "'.");
    }

    /// A path of the rules with this object's names in place of the types in braces.
    std::string withNamesOf(std::string p_path) const
    {
        const QCLPath object(m_parameter.objectPath);
        for (std::size_t begin = p_path.find('{'); begin != std::string::npos;
             begin = p_path.find('{', begin))
        {
            const std::size_t end = p_path.find('}', begin);
            const std::string type = p_path.substr(begin + 1, end - begin - 1);
            std::string name;
            for (std::size_t level = 0; level < object.size(); ++level)
                if (object.getType(level) == type)
                    name = object.getName(level);
            p_path.replace(begin, end - begin + 1, name);
            begin += name.size();
        }
        return p_path;
    }

    /// Where expressions use the variable, they are told of its units too; nothing else looks at them.
    void checkUnitsOfAdditionalVariable()
    {
        std::string reason;
        if (m_parameter.name != "Units" || !m_parameter.objectPath.starts_with(k_additionalVariable) ||
            m_units.parse(m_parameter.value, &reason))
            return;
        addAtValue({0, m_parameter.value.size()}, "units-not-understood",
                   "The units '" + shortened(m_parameter.value) + "' " + m_of +
                       " are not understood: " + reason + ".");
    }

    void checkTextItem(const ParameterRule& p_rule, const ValueItem& p_item)
    {
        const std::vector<std::string>& allowed = p_rule.allowedTexts;
        if (!allowed.empty() && std::find(allowed.begin(), allowed.end(), p_item.text) == allowed.end())
            addAtValue(p_item.range, "text-not-allowed",
                       "The text '" + shortened(p_item.text) + "' is not allowed as value " + m_of + "." +
                           suggestion(p_item.text, allowed) + " Allowed: " + quotedList(allowed) + ".");

        if (p_rule.type == k_logical &&
            std::find(k_logicalTexts.begin(), k_logicalTexts.end(), p_item.text) == k_logicalTexts.end())
            addAtValue(p_item.range, "not-a-logical",
                       "The text '" + shortened(p_item.text) + "' is no logical value " + m_of +
                           ". Expected On, Off, True, False, Yes or No.");
    }

    void checkNumericItem(const ParameterRule& p_rule, const ValueItem& p_item)
    {
        bool isNumber = false;
        std::string number;
        std::string units;
        const float value = StringUtilities::valueAsFloat(p_item.text, isNumber, number, units);
        if (!isNumber)
            return;
        const bool integer = p_rule.type.compare(0, k_integer.size(), k_integer) == 0;
        if (integer && !(std::isfinite(value) && std::trunc(value) == value))
            addAtValue(p_item.range, "not-an-integer",
                       "The number '" + shortened(number) + "' " + m_of + " is not an integer.");
    }

    bool isNumeric() const
    {
        return QCLParam::isNumericType(
            m_rules.getParamType(QCLPath(m_parameter.objectPath).getLastType(), m_parameter.name));
    }

    static std::string shortened(const std::string& p_text)
    {
        constexpr std::size_t k_longest = 80;    // bytes
        if (p_text.size() <= k_longest)
            return p_text;
        std::size_t end = k_longest;
        while (end > 0 && (static_cast<unsigned char>(p_text[end]) & 0xC0U) == 0x80U)
            --end;
        return p_text.substr(0, end) + "...";
    }

    void addAtName(std::string p_identifier, std::string p_message, Severity p_severity = Severity::Error)
    {
        m_findings.push_back(atName(p_severity, std::move(p_identifier), std::move(p_message)));
    }

    void addAtValue(TextRange p_range, std::string p_identifier, std::string p_message)
    {
        m_findings.push_back(
            atValue(Severity::Error, p_range, std::move(p_identifier), std::move(p_message)));
    }

    const CaseParameter& m_parameter;
    const std::string m_of;
    const ModelTree& m_model;
    const RuleBook& m_rules;
    const UnitSystem& m_units;
    ParameterFindings& m_findings;
};

}    // namespace

std::optional<ObjectFinding> findUnknownLevel(const std::string& p_objectPath, const RuleBook& p_rules)
{
    if (p_rules.isValidPath(p_objectPath))
        return std::nullopt;

    const QCLPath path(p_objectPath);
    QCLPath parent;
    for (std::size_t level = 0; level < path.size(); ++level)
    {
        QCLPath known = parent;
        known.push_back(path.getType(level), path.getName(level));
        if (!p_rules.isValidPath(known.getFullPath()))
        {
            ObjectFinding finding = unknownLevel(p_rules, parent, path.getType(level), path.getName(level));
            finding.subject = known.getFullPath();
            return finding;
        }
        parent = std::move(known);
    }
    return std::nullopt;
}

void addRuleFindings(const CaseParameter& p_parameter, const ModelTree& p_model, const RuleBook& p_rules,
                     const UnitSystem& p_units, ParameterFindings& p_findings)
{
    RuleFindings(p_parameter, p_model, p_rules, p_units, p_findings).run();
}

}    // namespace qen::standalone
