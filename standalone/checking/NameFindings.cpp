#include "checking/NameFindings.h"

#include "expressions/QelExpression.h"
#include "expressions/QelNames.h"
#include "locators/LocatorIndex.h"

#include "PreVariableDefStore.h"
#include "QCLPath.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";

// Whose names are written in expressions, as a variable or in front of one.
constexpr std::array<std::string_view, 7> k_typesOfWrittenNames {
    "ADDITIONAL VARIABLE", "COMPONENT",        "FLUID DEFINITION", "FLUID PAIR", "REACTION",
    "SIZE GROUP",          "SOLID DEFINITION",
};

bool isWrittenInExpressions(const std::string& p_type)
{
    return std::find(k_typesOfWrittenNames.begin(), k_typesOfWrittenNames.end(), p_type) !=
           k_typesOfWrittenNames.end();
}

class NameFindings {
public:
    NameFindings(const QclDocument& p_case, const World& p_world, std::vector<Finding>& p_findings)
        : m_case(p_case), m_world(p_world), m_findings(p_findings)
    {
        for (const QclObject& object : p_case.objects)
            m_objects.emplace(object.path, &object);
    }

    void run()
    {
        for (const QclObject& object : m_case.objects)
        {
            checkLevels(object);
            if (object.path == k_expressionLibrary)
                for (const QclParameter& expression : object.parameters)
                    checkNamedExpression(expression);
        }
        for (const ModelTree::Object* flow : m_world.model->roots())
            if (flow->type == "FLOW")
                checkLocators(*flow);
    }

private:
    /// Each level of a path where it comes first.
    void checkLevels(const QclObject& p_object)
    {
        const QCLPath path(p_object.path);
        std::size_t begin = 0;    // of the level in the path's text
        for (std::size_t level = 0; level < path.size(); ++level)
        {
            const std::string type = path.getType(level);
            const std::string name = path.getName(level);
            const std::size_t length = 1 + type.size() + (name.empty() ? 0 : 1 + name.size());
            const std::string levelPath = p_object.path.substr(0, begin + length);
            if (isWrittenInExpressions(type) && !name.empty() && !isQelName(name) &&
                m_unwritable.insert(levelPath).second)
            {
                SourcePlace place = p_object.place;
                place.column += static_cast<std::uint32_t>(begin);
                add(place, length, "name-not-writable",
                    fmt::format("The name '{}' of the object '{}' cannot be written in an expression. {}",
                                name, levelPath, k_expectedName));
            }
            begin += length;
        }
    }

    void checkNamedExpression(const QclParameter& p_expression)
    {
        if (!isQelName(p_expression.name))
            add(p_expression.place, p_expression.name.size(), "name-not-writable",
                fmt::format("The name of the named expression '{}' cannot be written in an expression. {}",
                            p_expression.name, k_expectedName));

        const char* const other = hiddenBy(p_expression.name);
        if (*other)
            add(p_expression.place, p_expression.name.size(), "named-expression-hidden",
                fmt::format(
                    "The named expression '{0}' is never reached: in an expression '{0}' means {1} of that "
                    "name.",
                    p_expression.name, other));
    }

    /// What hides a named expression, where the library's own checks do not say so; an empty text for nothing.
    const char* hiddenBy(const std::string& p_name)
    {
        qel::Names names(m_world);
        switch (names.classify(p_name))
        {
        case qel::Names::Root::AdditionalVariable:
            return "the additional variable";
        case qel::Names::Root::ExpressionValue:
            return "the value of a monitor point";
        case qel::Names::Root::Variable:    // a solver variable: told by the library
            return "";
        case qel::Names::Root::None:
            break;
        }
        return isQelConstant(p_name) ? "the constant" : "";
    }

    void checkLocators(const ModelTree::Object& p_flow)
    {
        const LocatorIndex index(p_flow);
        for (const LocatorIndex::Repetition& repetition : index.repetitions())
        {
            const auto object = m_objects.find(repetition.object->path);
            if (object == m_objects.end())
                continue;    // named only as the ancestor of another
            add(object->second->place, object->second->path.size(), "repeated-locator",
                fmt::format(
                    "The name '{0}' of the object '{1}' is that of '{2}' already, which is what '@{0}' means "
                    "in an expression.",
                    repetition.object->name, repetition.object->path, repetition.first->path));
        }
    }

    void add(const SourcePlace& p_place, std::size_t p_length, std::string p_identifier,
             std::string p_message)
    {
        m_findings.push_back(toFinding({Severity::Warning, std::move(p_identifier), std::move(p_message),
                                        p_place, static_cast<std::uint32_t>(p_length)},
                                       m_case));
    }

    static constexpr const char* k_expectedName = "Expected words of letters, digits and '_', parted by "
                                                  "single blanks, the first of which begins with a "
                                                  "letter.";

    const QclDocument& m_case;
    const World& m_world;
    std::vector<Finding>& m_findings;
    std::unordered_map<std::string_view, const QclObject*> m_objects;
    std::set<std::string> m_unwritable;    // paths that were told of
};

}    // namespace

void addNameFindings(const QclDocument& p_case, const World& p_world, std::vector<Finding>& p_findings)
{
    NameFindings(p_case, p_world, p_findings).run();
}

}    // namespace qen::standalone
