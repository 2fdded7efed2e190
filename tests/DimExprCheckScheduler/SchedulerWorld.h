#pragma once

#include "ExpressionErrors.h"
#include "ExprParamRules.h"
#include "ModelQCL.h"
#include "ModelRules.h"
#include "QCLPath.h"
#include "QCLUpdateHandler.h"
#include "QCLUpdateInfo.h"
#include "QuantityModifier.h"

#include "support/ScriptedHost.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// A small model of a duct that the scheduler and its plain model look at, each in its own way: the scheduler through
/// the host's interfaces, the plain model through tables. What it holds can be copied and put back.
namespace qen::proof {

// Values.

/// One item of a value: a number, or an expression that resolves to the units and may be constant.
struct Item {
    std::string text;
    bool isNumber = false;
    float value = 0.0F;
    std::string units;
    bool parses = true;
    bool isConstant = true;
};

struct Value {
    std::string text;
    std::vector<Item> items;
};

inline const std::vector<Value>& values()
{
    static const Item one {"1 [m]", true, 1.0F, "m"};
    static const Item two {"2 [m]", true, 2.0F, "m"};
    static const Item four {"4 [m]", true, 4.0F, "m"};
    static const Item seconds {"2 [s]", true, 2.0F, "s"};
    static const Item variable {"x", false, 0.0F, "m", true, false};
    static const Item constant {"(4 [m])", false, 4.0F, "m"};
    static const Item broken {"y +", false, 0.0F, "", false};

    static const std::vector<Value> k_values {
        {"", {}},    // the first: what is not set
        {"4 [m]", {four}},
        {"2 [m]", {two}},
        {"2 [s]", {seconds}},
        {"x", {variable}},
        {"(4 [m])", {constant}},
        {"2 [m], 1 [m]", {two, one}},
        {"1 [m], 4 [m], 2 [s], 2 [m]", {one, four, seconds, two}},
        {"2 [s], 4 [m]", {seconds, four}},
        {"2 [m], x, 4 [m], y +, 2 [s]", {two, variable, four, broken, seconds}},
        {"x, (4 [m])", {variable, constant}},
        {"2 [m], x", {two, variable}},
    };
    return k_values;
}

// Rules.

/// What the rules say about a parameter at a time.
struct Rules {
    std::string quantity;    // empty: none
    std::string units;       // of the quantity, if any, and of the bound
    bool dynamic = false;
    std::string upperBound;    // empty: none
    float limit = 0.0F;
    bool boundIsRight = true;
    bool numeric = true;
    bool pathKnown = true;
    bool nameKnown = true;
};

namespace rules {
inline const Rules k_any {};
inline const Rules k_length {"Length", "m", false, "3 [m]", 3.0F};
inline const Rules k_longer {"Length", "m", false, "9 [m]", 9.0F};
inline const Rules k_time {"Time", "s", false, "3 [s]", 3.0F};
inline const Rules k_badBound {"Length", "m", false, "wide", 0.0F, false};
// Each number finds out by itself whether the bound can be converted into its units.
inline const Rules k_boundAlone {"", "m", false, "9 [m]", 9.0F};
inline const Rules k_dynamicLength {"Dynamic Length", "m", true, "3 [m]", 3.0F};
inline const Rules k_dynamicTime {"Dynamic Time", "s", true, "", 0.0F};
inline const Rules k_text {"Length", "m", false, "3 [m]", 3.0F, true, false};
inline const Rules k_unknownPath {"Length", "m", false, "3 [m]", 3.0F, true, true, false};
inline const Rules k_unknownName {"Length", "m", false, "3 [m]", 3.0F, true, true, true, false};
}    // namespace rules

// Places.

/// A parameter of an object, and the rules that hold for it one after the other, beginning anew behind the last.
struct Place {
    std::string object;
    std::string parameter;
    std::vector<Rules> rules;
    bool namedExpression = false;    // the last type of the path is "EXPRESSIONS"
    bool inLibrary = false;          // of the one object whose names are checked
};

enum PlaceName : std::size_t {
    DuctWidth,
    DuctLoad,
    LibraryWidth,
    DuctHeight,
    InletWidth,
    OtherDuctWidth,
    LibraryOwn,
    LooseOwn,
    DuctTitle,
    OddWidth,
    DuctOdd,
    PlaceCount,
};

inline const std::array<Place, PlaceCount>& places()
{
    using namespace rules;
    static const std::string duct = "/FLOW:F/DOMAIN:Duct";
    static const std::string library = "/LIBRARY/QEL/EXPRESSIONS";
    static const std::array<Place, PlaceCount> k_places {{
        {duct, "Width", {k_length, k_time, k_boundAlone}},
        {duct, "Load", {k_dynamicLength, k_dynamicTime, k_length}},
        {library, "Width", {k_any}, true, true},
        {duct, "Height", {k_length, k_text, k_longer, k_boundAlone, k_dynamicTime}},
        {duct + "/BOUNDARY:In", "Width", {k_length, k_badBound, k_longer}},
        {duct + " 2", "Width", {k_length, k_time}},
        {library, "Own", {k_any}, true, true},
        {"/FLOW:F/EXPRESSIONS", "Own", {k_any, k_time}, true},
        {duct, "Title", {k_text}},
        {"/FLOW:F/ODD:o", "Width", {k_unknownPath, k_length}},
        {duct, "Odd", {k_unknownName, k_length}},
    }};
    return k_places;
}

// What changes.

/// A change that the host has not told of yet.
struct PendingChange {
    enum Kind { Changed, Forgotten, ParamDeleted, ObjectDeleted };
    Kind kind;
    std::size_t place;
};

/// What the model holds and the rules say now.
class World {
public:
    World()
    {
        for (const Place& place : places())
            m_objects.insert(place.object);
    }

    void set(std::size_t p_place, std::size_t p_value)
    {
        m_objects.insert(places()[p_place].object);
        m_values[p_place] = p_value;
    }

    void unset(std::size_t p_place) { m_values[p_place] = 0; }

    void removeObject(std::size_t p_place)
    {
        m_objects.erase(places()[p_place].object);
        for (std::size_t place = 0; place < PlaceCount; ++place)
            if (places()[place].object == places()[p_place].object)
                unset(place);
    }

    void changeRules(std::size_t p_place)
    {
        m_rules[p_place] = (m_rules[p_place] + 1) % places()[p_place].rules.size();
    }

    bool exists(const std::string& p_object) const { return m_objects.contains(p_object); }
    const Value& value(std::size_t p_place) const { return values()[m_values[p_place]]; }
    const Rules& rules(std::size_t p_place) const { return places()[p_place].rules[m_rules[p_place]]; }

    std::vector<PendingChange> pending;

private:
    std::set<std::string> m_objects;
    std::array<std::size_t, PlaceCount> m_values {};    // each a place among values()
    std::array<std::size_t, PlaceCount> m_rules {};     // each a place among the place's rules
};

/// The host's interfaces onto a world.
class WorldHost final : public ModelQCL,
                        public ModelRules,
                        public ExprParamRules,
                        public QuantityModifier,
                        public QCLUpdateInfo {
public:
    explicit WorldHost(const World& p_world) : m_world(p_world) {}

    // The model.

    bool objectExists(const std::string& p_objectPath) const override { return m_world.exists(p_objectPath); }

    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        return m_world.value(placeOf(p_objectPath, p_paramName)).text;
    }

    std::vector<std::string> childNames(const std::string&, const std::string&) const override { return {}; }
    std::vector<std::string> childPaths(const std::string&, const std::string&) const override { return {}; }

    // The model's rules.

    bool isValidPath(const std::string& p_objectPath) const override
    {
        return allPlaces([&](const Place& p_place, const Rules& p_rules) {
            return p_place.object != p_objectPath || p_rules.pathKnown;
        });
    }

    bool isValidParamName(const std::string& p_paramName) const override
    {
        return allPlaces([&](const Place& p_place, const Rules& p_rules) {
            return p_place.parameter != p_paramName || p_rules.nameKnown;
        });
    }

    ParamType getParamType(const std::string& p_lastType, const std::string& p_paramName) const override
    {
        const bool numeric = allPlaces([&](const Place& p_place, const Rules& p_rules) {
            return p_place.parameter != p_paramName || QCLPath(p_place.object).getLastType() != p_lastType ||
                   p_rules.numeric;
        });
        return static_cast<ParamType>(numeric ? 1 : -1);    // negative: not numeric, as in the scripted host
    }

    // The parameters' rules.

    std::string lowerBound(const std::string&, const std::string&, const ModelQCL*) const override
    {
        return "";
    }

    std::string upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL*) const override
    {
        return m_world.rules(placeOf(p_objectPath, p_paramName)).upperBound;
    }

    std::string paramKind(const std::string&, const std::string&, const ModelQCL*) const override
    {
        return "";
    }

    bool isSingleValued(const std::string&, const std::string&, const ModelQCL*) const override
    {
        return false;
    }

    std::vector<std::string> dependencies(const std::string&, const std::string&,
                                          const ModelQCL*) const override
    {
        return {"ANY"};
    }

    std::set<std::string> allParamNames() const override { return {"Width", "Height"}; }

    // Quantities.

    bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        return m_world.rules(placeOf(p_objectPath, p_paramName)).dynamic;
    }

    int quantityMode(const ModelQCL*, const std::string& p_objectPath, const std::string& p_paramName,
                     std::string& p_quantityName) const override
    {
        const Rules& rules = m_world.rules(placeOf(p_objectPath, p_paramName));
        p_quantityName = rules.quantity;
        return rules.dynamic ? 1 : 0;
    }

    std::string dynamicUnits(const std::string& p_quantityName) const override
    {
        return p_quantityName == rules::k_dynamicLength.quantity ? "m" : "s";
    }

    // Pending changes.

    void replay(QCLUpdateHandler& p_handler) const override
    {
        for (const PendingChange& change : m_world.pending)
        {
            const Place& place = places()[change.place];
            switch (change.kind)
            {
            case PendingChange::Changed:
                p_handler.onParamChange(place.object, place.parameter, "of no account", true);
                break;
            case PendingChange::Forgotten:
                p_handler.onParamChange(place.object, place.parameter, "of no account", false);
                break;
            case PendingChange::ParamDeleted:
                p_handler.onParamDeletion(place.object, place.parameter);
                break;
            case PendingChange::ObjectDeleted:
                p_handler.onObjectDeletion(place.object);
                break;
            }
        }
    }

private:
    static std::size_t placeOf(const std::string& p_objectPath, const std::string& p_paramName)
    {
        const auto found = std::ranges::find_if(places(), [&](const Place& p_place) {
            return p_place.object == p_objectPath && p_place.parameter == p_paramName;
        });
        return static_cast<std::size_t>(found - places().begin());
    }

    template <class Condition>
    bool allPlaces(const Condition& p_condition) const
    {
        for (std::size_t place = 0; place < PlaceCount; ++place)
            if (!p_condition(places()[place], m_world.rules(place)))
                return false;
        return true;
    }

    const World& m_world;
};

/// Tells the host of the statics what the items of the values are when they are taken for expressions.
inline void scriptExpressions(support::ScriptedHost& p_host)
{
    p_host.quantity("Length", "m");
    p_host.quantity("Time", "s");
    for (const Value& value : values())
        for (const Item& item : value.items)
        {
            support::ScriptedExpression& expression = p_host.expression(item.text);
            if (!item.parses)
                expression.failsWith("An operand is missing.");
            else if (item.isConstant)
                expression.isConstant(item.value, item.units);
            else
                expression.hasDimensions(item.units);
        }
}

}    // namespace qen::proof
