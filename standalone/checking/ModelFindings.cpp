#include "checking/ModelFindings.h"

#include "checking/ValueItems.h"
#include "text/NearestName.h"

#include "QCLParam.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_logical = "Logical";
constexpr std::string_view k_integer = "Integer";
constexpr std::string_view k_listEnding = " List";

constexpr std::array<std::string_view, 20> k_logicalTexts {
    "T", "True", "TRUE",  "true",  "Yes",   "YES", "yes", "On", "ON",  "on",
    "1", "F",    "False", "FALSE", "false", "No",  "NO",  "no", "Off", "off"};

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

class ModelFindings {
public:
    ModelFindings(const QclDocument& p_case, const ModelTree& p_model, const RuleBook& p_rules,
                  std::vector<Finding>& p_findings)
        : m_case(p_case), m_model(p_model), m_rules(p_rules), m_findings(p_findings)
    {}

    void run()
    {
        for (const QclObject& object : m_case.objects)
        {
            if (!checkPath(object))
                continue;
            for (const QclParameter& parameter : object.parameters)
                checkParameter(object, parameter);
        }
    }

private:
    /// Tells of the first level of a path that the rules do not know; each such path once.
    bool checkPath(const QclObject& p_object)
    {
        if (m_rules.isValidPath(p_object.path))
            return true;

        const QCLPath path(p_object.path);
        QCLPath parent;
        for (std::size_t level = 0; level < path.size(); ++level)
        {
            QCLPath known = parent;
            known.push_back(path.getType(level), path.getName(level));
            if (!m_rules.isValidPath(known.getFullPath()))
            {
                if (m_unknownPaths.insert(known.getFullPath()).second)
                    addUnknownLevel(p_object, parent, path.getType(level), path.getName(level));
                return false;
            }
            parent = std::move(known);
        }
        return false;
    }

    void addUnknownLevel(const QclObject& p_object, const QCLPath& p_parent, const std::string& p_type,
                         const std::string& p_name)
    {
        const std::vector<std::string> types = m_rules.childTypes(p_parent.getFullPath());
        const std::string where =
            p_parent.empty() ? "at the top of a case" : "in '" + p_parent.getFullPath() + "'";

        std::string identifier = "unknown-object-type";
        std::string message;
        if (std::find(types.begin(), types.end(), p_type) == types.end())
            message = "Unknown object type '" + p_type + "' " + where + "." + suggestion(p_type, types);
        else
        {
            identifier = "object-name";
            message = p_name.empty()
                          ? "An object of type '" + p_type + "' needs a name: '/" + p_type + ":name'."
                          : "There is one object of type '" + p_type + "' " + where +
                                "; it takes no name. Expected '/" + p_type + "'.";
        }

        const std::size_t offset = p_parent.getFullPath().size();
        SourcePlace place = p_object.place;
        place.column += static_cast<std::uint32_t>(offset);
        const std::size_t length = 1 + p_type.size() + (p_name.empty() ? 0 : 1 + p_name.size());
        m_findings.push_back(toFinding({Severity::Error, std::move(identifier), std::move(message), place,
                                        static_cast<std::uint32_t>(length)},
                                       m_case));
    }

    void checkParameter(const QclObject& p_object, const QclParameter& p_parameter)
    {
        const ParameterRule* rule = m_rules.find(p_object.path, p_parameter.name);
        if (!rule)
        {
            addAtName(p_parameter, "unknown-parameter",
                      "Unknown parameter '" + p_parameter.name + "' in object '" + p_object.path + "'." +
                          suggestion(p_parameter.name, m_rules.parameterNames(p_object.path)));
            return;
        }
        checkValue(p_object, p_parameter, *rule);
    }

    void checkValue(const QclObject& p_object, const QclParameter& p_parameter, const ParameterRule& p_rule)
    {
        const std::string of = "of parameter '" + p_parameter.name + "' in object '" + p_object.path + "'";
        if (p_parameter.value.empty())
        {
            addAtName(p_parameter, "missing-value", "The value " + of + " is missing.", Severity::Warning);
            return;
        }
        if (p_rule.name.empty())
            return;    // the object takes any parameter

        checkDynamicUnits(of, p_object, p_parameter, p_rule);

        const bool list = endsWith(p_rule.type, k_listEnding);
        const bool numeric = isNumeric(p_object, p_parameter);
        std::vector<ValueItem> items;
        if (list || numeric)
            items = valueItems(p_parameter.value);
        else
            items.push_back({p_parameter.value, {0, p_parameter.value.size()}});

        if (!list && items.size() > 1)
            addAtValue(p_parameter, items[1].range, "not-a-list",
                       "The value " + of + " is a list of " + std::to_string(items.size()) +
                           " items. Expected a single value.");

        for (const ValueItem& item : items)
        {
            if (item.text.empty())
                addAtValue(p_parameter, item.range, "empty-list-item",
                           "An item of the list " + of + " is empty. Expected a value between two commas.");
            else if (numeric)
                checkNumericItem(of, p_parameter, p_rule, item);
            else
                checkTextItem(of, p_parameter, p_rule, item);
        }
    }

    /// A quantity whose units stand elsewhere in the model is not checked where they do not.
    void checkDynamicUnits(const std::string& p_of, const QclObject& p_object,
                           const QclParameter& p_parameter, const ParameterRule& p_rule)
    {
        if (p_rule.unitsFrom.empty())
            return;
        std::string units;
        m_rules.quantityMode(&m_model, p_object.path, p_parameter.name, units);
        if (units.empty())
            addAtName(p_parameter, "units-not-found",
                      "The units " + p_of +
                          " are not known, so that its value cannot be checked. Expected units that "
                          "are understood at '" +
                          p_rule.unitsFrom + "'.");
    }

    void checkTextItem(const std::string& p_of, const QclParameter& p_parameter, const ParameterRule& p_rule,
                       const ValueItem& p_item)
    {
        const std::vector<std::string>& allowed = p_rule.allowedTexts;
        if (!allowed.empty() && std::find(allowed.begin(), allowed.end(), p_item.text) == allowed.end())
            addAtValue(p_parameter, p_item.range, "text-not-allowed",
                       "The text '" + shortened(p_item.text) + "' is not allowed as value " + p_of + "." +
                           suggestion(p_item.text, allowed) + " Allowed: " + quotedList(allowed) + ".");

        if (p_rule.type == k_logical &&
            std::find(k_logicalTexts.begin(), k_logicalTexts.end(), p_item.text) == k_logicalTexts.end())
            addAtValue(p_parameter, p_item.range, "not-a-logical",
                       "The text '" + shortened(p_item.text) + "' is no logical value " + p_of +
                           ". Expected On, Off, True, False, Yes or No.");
    }

    void checkNumericItem(const std::string& p_of, const QclParameter& p_parameter,
                          const ParameterRule& p_rule, const ValueItem& p_item)
    {
        bool isNumber = false;
        std::string number;
        std::string units;
        StringUtilities::valueAsFloat(p_item.text, isNumber, number, units);
        if (!isNumber)
            return;
        const bool integer = p_rule.type.compare(0, k_integer.size(), k_integer) == 0;
        if (integer && number.find_first_not_of("+-0123456789") != std::string::npos)
            addAtValue(p_parameter, p_item.range, "not-an-integer",
                       "The number '" + shortened(number) + "' " + p_of + " is not an integer.");
    }

    bool isNumeric(const QclObject& p_object, const QclParameter& p_parameter) const
    {
        return QCLParam::isNumericType(
            m_rules.getParamType(QCLPath(p_object.path).getLastType(), p_parameter.name));
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

    void addAtName(const QclParameter& p_parameter, std::string p_identifier, std::string p_message,
                   Severity p_severity = Severity::Error)
    {
        m_findings.push_back(
            toFinding({p_severity, std::move(p_identifier), std::move(p_message), p_parameter.place,
                       static_cast<std::uint32_t>(p_parameter.name.size())},
                      m_case));
    }

    void addAtValue(const QclParameter& p_parameter, TextRange p_range, std::string p_identifier,
                    std::string p_message)
    {
        m_findings.push_back(
            toFinding({Severity::Error, std::move(p_identifier), std::move(p_message),
                       p_parameter.placeInValue(p_range.offset), static_cast<std::uint32_t>(p_range.length)},
                      m_case));
    }

    const QclDocument& m_case;
    const ModelTree& m_model;
    const RuleBook& m_rules;
    std::vector<Finding>& m_findings;
    std::set<std::string> m_unknownPaths;
};

}    // namespace

void addModelFindings(const QclDocument& p_case, const ModelTree& p_model, const RuleBook& p_rules,
                      std::vector<Finding>& p_findings)
{
    ModelFindings(p_case, p_model, p_rules, p_findings).run();
}

}    // namespace qen::standalone
