#pragma once

#include "PreVariablesApi.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen {

/// The catalogue of solver variables. All texts of all definitions are interned: a record holds indices of values, and
/// equal indices are equal texts.
///
/// Filled once by the host, one definition object at a time, and read thereafter. Nothing is ever removed. A copy
/// lives on its own. One thread at a time.
class QEN_PREVARIABLES_API PreVariableDefStore {
public:
    /// The fields of a definition, for queries.
    enum VarDefField : int {
        SHORT_NAME = 0,
        LONG_NAME = 1,
        OLD_SHORT_NAME = 2,
        OLD_LONG_NAME = 3,
        QUANTITY = 4,
        TENSOR_TYPE = 5,
        COMPONENT_SHORT_NAMES = 6,
        OLD_COMPONENT_SHORT_NAMES = 7,
        COMPONENT_LONG_NAMES = 8,
        OLD_COMPONENT_LONG_NAMES = 9,
        FIELD_VARIABLE = 10,
        GENERAL_AVAILABILITY = 11,
        PHYSICAL_AVAILABILITY = 12,
        VARIABLE_CLASS = 13,
        VARIABLE_SCOPE = 14,
        STATUS = 15,
        UNDER_RELAXATION_FACTOR = 16,
        USER_LEVEL = 17,
        OUTPUT_TO_POSTPROCESSOR = 18,
    };

    enum TensType : int {
        SCALAR = 0,
        VECTOR = 1,     ///< 3 components
        SYMTEN2 = 2,    ///< 6 components
    };

    using ValueIndex = std::uint64_t;    ///< of a text in the value table
    using ValueSet = std::set<ValueIndex>;
    using ValueList = std::vector<ValueIndex>;

    static constexpr ValueIndex k_emptyText = 6;    ///< of the empty text, in every store

    /// An ordered set of values that does not change. Copies share what it holds, and records whose lists of keywords
    /// have the same text share a set.
    class SharedValueSet {
    public:
        SharedValueSet() = default;
        SharedValueSet(const ValueSet& p_values)
            : m_values(p_values.empty() ? nullptr
                                        : std::make_shared<const ValueList>(p_values.begin(), p_values.end()))
        {}
        operator ValueSet() const { return {begin(), end()}; }

        /// In ascending order, each once. The reference holds as long as one of the copies does.
        const ValueList& inOrder() const { return m_values ? *m_values : noValues(); }

        ValueList::const_iterator begin() const { return inOrder().begin(); }
        ValueList::const_iterator end() const { return inOrder().end(); }
        std::size_t size() const { return inOrder().size(); }
        bool empty() const { return inOrder().empty(); }
        bool contains(ValueIndex p_value) const { return std::binary_search(begin(), end(), p_value); }

        bool operator==(const SharedValueSet& p_other) const { return inOrder() == p_other.inOrder(); }

    private:
        QEN_PREVARIABLES_API static const ValueList& noValues();

        std::shared_ptr<const ValueList> m_values;    // null for no values
    };

    /// One solver variable. A key that its definition does not have leaves the index of the empty text, or an empty
    /// set or list.
    //
    // Deliberate: the last four fields of VarDefField stand in another order there. Both orders are fixed.
    struct QEN_PREVARIABLES_API VarDefData {
        ValueIndex shortName = k_emptyText;
        ValueIndex longName = k_emptyText;
        ValueIndex oldShortName = k_emptyText;
        ValueIndex oldLongName = k_emptyText;
        ValueIndex quantity = k_emptyText;
        ValueIndex tensorType = k_emptyText;
        ValueIndex status = k_emptyText;
        ValueIndex outputToPostprocessor = k_emptyText;
        ValueIndex underRelaxationFactor = k_emptyText;
        ValueIndex userLevel = k_emptyText;
        ValueIndex fieldVariable = k_emptyText;    // always that of "T" or "F"
        SharedValueSet generalAvailability;
        SharedValueSet physicalAvailability;
        SharedValueSet variableClass;
        SharedValueSet variableScope;
        ValueList componentShortNames;
        ValueList oldComponentShortNames;
        ValueList componentLongNames;
        ValueList oldComponentLongNames;
    };

    PreVariableDefStore();

    /// Adds one variable, and one scalar variable for each component of a vector or symmetric tensor.
    ///
    /// A variable of unknown tensor type is ignored, with a warning through the host's error reporter unless the
    /// environment variable QEN_IGNORE_INVALID_VAR_DEFINITIONS is on.
    ///
    /// @param p_name        The short name.
    /// @param p_parameters  The definition's keys and texts; unknown keys are ignored.
    /// @throws data::error      A component list has the wrong length. Nothing is added.
    /// @throws data::duplicate  A name belongs to another variable already. Records added before stay; names that were
    ///                          registered before the clash go to the next record.
    void addVariableDefinition(const std::string& p_name,
                               const std::map<std::string, std::string>& p_parameters);

    /// Appends one finished record, whose values must be of this store, and registers its names. A list of short names
    /// that was asked for before stays as it is.
    ///
    /// @throws data::duplicate  As above.
    void doAddVariableDefinition(const VarDefData& p_record);

    /// Interns a text, exactly as it is.
    ValueIndex addValue(const std::string& p_text);
    ValueSet addValues(const std::vector<std::string>& p_texts);
    ValueList addValuesVec(const std::vector<std::string>& p_texts);

    /// The text of a value. The index must have come from this store. The reference holds until the next value.
    const std::string& fieldValue(ValueIndex p_value) const;
    std::vector<std::string> valsToStrVec(const ValueSet& p_values) const;
    std::vector<std::string> valsToStrVec(const ValueList& p_values) const;

    /// The short name of a record. The index must have come from this store.
    const std::string& shortName(std::size_t p_record) const;

    /// The record that a name addresses; any of its names will do. After a refused definition this may be the next
    /// record, which is not there yet.
    ///
    /// @throws data::notFound  No variable has that name.
    std::size_t variableIndex(const std::string& p_name) const;

    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    const VarDefData& variableData(const std::string& p_name) const;

    /// The index must have come from this store.
    const VarDefData& variableData(std::size_t p_record) const;

    /// Whether a name is registered, be its record there yet or not.
    bool hasVariable(const std::string& p_name) const;

    /// Makes a name address a record; the empty text is no name.
    ///
    /// @throws data::duplicate  The name addresses another record.
    void addVariableAlias(ValueIndex p_name, std::size_t p_record);

    /// The names of the variable: short, long, old short, old long, as far as it has them.
    ///
    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    std::vector<std::string> getVariableAliases(const std::string& p_name) const;

    /// The short names of all records, in their order. The reference holds until the next definition.
    const std::vector<std::string>& getAllVariableShortNames() const;

    // Variable operators: words that are applied to a variable's name, such as a gradient. They have names of their own
    // and are no variables: no other query sees them.

    /// Adds one operator under its short and its long name, and likewise the components of a vector operator, which
    /// share its dimension modifier and availability.
    ///
    /// @param p_name        The short name.
    /// @param p_parameters  The definition's keys and texts. Required: "Tensor Type", "SCALAR" or "VECTOR"; "Long Name";
    ///                      for a vector "Component Short Names" and "Component Long Names", lists of 3. Optional:
    ///                      "Dimensions Modifier", units in square brackets or a quantity; "QEL Availability", a list.
    ///                      Unknown keys are ignored.
    /// @throws data::error      A key is missing, a list has the wrong length or the tensor type is another. Nothing is
    ///                          added.
    /// @throws units::error     The host does not know the units or the quantity. Nothing is added.
    /// @throws data::duplicate  A name is an operator already. Names added before stay.
    void addVariableOperatorDefinition(const std::string& p_name,
                                       const std::map<std::string, std::string>& p_parameters);

    /// Adds one operator under one name.
    ///
    /// @throws data::duplicate  The name is an operator already, which stays as it is.
    void addVariableOperator(const std::string& p_name, const std::string& p_dimensionModifier,
                             TensType p_tensorType, const std::set<std::string>& p_availability,
                             const std::string& p_alias);

    bool hasOperator(const std::string& p_name) const;

    /// The operator's other name: the long one for the short one, and the other way round.
    ///
    /// @throws data::notFound  No operator has that name.
    std::string getOperatorAlias(const std::string& p_name) const;

    /// The units in square brackets by which the operator multiplies those of its variable, "[ ]" for none.
    ///
    /// @throws data::notFound  No operator has that name.
    std::string getOperatorDimensionModifier(const std::string& p_name) const;

    /// @throws data::notFound  No operator has that name.
    TensType getOperatorTensorType(const std::string& p_name) const;

    /// Whether the operator may be used under an availability keyword, compared exactly.
    ///
    /// @throws data::notFound  No operator has that name.
    bool doesOperatorHaveAvailability(const std::string& p_name, const std::string& p_keyword) const;

    // What the fields of a variable hold. A number that is no field holds nothing, whoever asks.

    /// A list or set is joined with ",": a list in its order, a set in the order in which its texts first occurred
    /// anywhere in the store.
    ///
    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    std::string getVarDefData(const std::string& p_name, VarDefField p_field) const;

    /// The same, one element per text. A field with a single value gives one element, be it empty.
    ///
    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    std::vector<std::string> getVarDefDataVec(const std::string& p_name, VarDefField p_field) const;

    /// `getVarDefData` of each name, in order.
    ///
    /// @throws data::notFound  As there, for the first such name.
    std::vector<std::string> getVarDefDataMulti(const std::vector<std::string>& p_names,
                                                VarDefField p_field) const;

    /// `getVarDefData` of each name that `getAllVariableShortNames` lists.
    ///
    /// @throws data::notFound  A record has no short name.
    std::vector<std::string> getVarDefDataAll(VarDefField p_field) const;

    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    TensType getTensorType(const std::string& p_name) const;

    // Whether fields hold a value: are equal to it, or have it in their list or set. Texts compare exactly; one that no
    // definition ever used is held nowhere.

    /// The index of the record must have come from this store.
    bool valueMatches(std::size_t p_record, VarDefField p_field, ValueIndex p_value) const;

    /// The index of the record must have come from this store. No texts at all match.
    bool valueMatchesAllOf(std::size_t p_record, VarDefField p_field,
                           const std::vector<std::string>& p_texts) const;

    /// The index of the record must have come from this store. No texts at all do not match.
    bool valueMatchesOneOf(std::size_t p_record, VarDefField p_field,
                           const std::vector<std::string>& p_texts) const;

    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    bool varMatches(const std::string& p_name, VarDefField p_field, const std::string& p_text) const;

    /// Whether the field holds "T".
    ///
    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    bool varMatchesTrue(const std::string& p_name, VarDefField p_field) const;

    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    bool varMatchesAllOf(const std::string& p_name, VarDefField p_field,
                         const std::vector<std::string>& p_texts) const;

    /// @throws data::notFound  No variable has that name, or its record is not there yet.
    bool varMatchesOneOf(const std::string& p_name, VarDefField p_field,
                         const std::vector<std::string>& p_texts) const;

    // The short names of the records whose field holds a value, in the order of the records. No texts at all find none.

    std::vector<std::string> getVarsMatching(VarDefField p_field, const std::string& p_text) const;
    std::vector<std::string> getVarsMatchingAllOf(VarDefField p_field,
                                                  const std::vector<std::string>& p_texts) const;
    std::vector<std::string> getVarsMatchingOneOf(VarDefField p_field,
                                                  const std::vector<std::string>& p_texts) const;

    /// Those of the names, in order, whose field is not empty.
    ///
    /// @throws data::notFound  No variable has one of the names, or its record is not there yet.
    std::vector<std::string> getVarsWithField(VarDefField p_field,
                                              const std::vector<std::string>& p_names) const;

    // Classes of names. An unknown name is in none.

    /// Whether the name is one of the fixed quantities of the post-processor, whatever the definitions hold.
    static bool isPostVariable(const std::string& p_name);

    /// Whether the name is reserved by the solver, whatever the definitions hold.
    static bool isSolverReservedName(const std::string& p_name);

    /// Whether the name is a coordinate as the solver calls it: "x", "y", "z", "r", "theta", "raxis", "taxis" or
    /// "aaxis", or a long or old name of these variables.
    ///
    /// @throws data::notFound  One of these variables is not defined. Only until they all were found once.
    bool isSolverInternalVariable(const std::string& p_name) const;

    /// The physical availability keywords of all variables that have the general availability keyword, without the
    /// '!' of a negated one.
    std::set<std::string> referencedPhysicalAvailabilities(const std::string& p_generalKeyword) const;

    /// The same for variables that have at least one of the keywords.
    std::set<std::string>
    referencedPhysicalAvailabilities(const std::vector<std::string>& p_generalKeywords) const;

private:
    static constexpr std::size_t k_noRecord = static_cast<std::size_t>(-1);

    struct Operator {
        std::string dimensionModifier;    // in square brackets
        TensType tensorType;
        std::set<std::string> availability;
        std::string alias;
    };

    struct Value {
        explicit Value(const std::string& p_text) : text(p_text) {}

        std::string text;
        std::size_t record = k_noRecord;    // that the text names
    };

    // Of the table that finds values by their texts: part of a text's hash, and the value's index plus 1; 0 where the
    // slot is free.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t valuePlus1 = 0;
    };

    // What a list of keywords was read as.
    struct KeptKeywords {
        ValueList inOrderOfText;
        SharedValueSet values;
    };

    bool isTensorType(ValueIndex p_value) const;
    ValueIndex addLikeBefore(const std::string& p_text, ValueIndex VarDefData::*p_field);
    SharedValueSet addKeywords(const std::string& p_list);
    void checkComponentCounts(const std::string& p_name, const VarDefData& p_record) const;
    void addComponentDefinitions(VarDefData p_variable);
    void registerNames(const VarDefData& p_record);
    [[noreturn]] static void raiseNoSuchVariable(const std::string& p_name);
    const Operator& operatorNamed(const std::string& p_name, const char* p_askedBy) const;
    std::size_t slotOf(std::string_view p_text, std::size_t p_hash) const;
    std::uint64_t expectValue(std::string_view p_text) const;
    ValueIndex addExpectedValue(const std::string& p_text, std::uint64_t p_hash);
    void growSlots();
    std::optional<ValueIndex> findValue(std::string_view p_text) const;
    std::size_t recordNamed(std::string_view p_name) const;
    bool matchesAllOf(const VarDefData& p_record, VarDefField p_field,
                      const std::vector<std::string>& p_texts) const;
    bool matchesOneOf(const VarDefData& p_record, VarDefField p_field,
                      const std::vector<std::string>& p_texts) const;
    template <class Matches>
    std::vector<std::string> shortNamesOfRecordsThat(const Matches& p_matches) const;

    std::deque<VarDefData> m_records;                      // stay where they are
    mutable std::vector<std::string> m_shortNamesCache;    // empty until asked for
    std::vector<Value> m_values;
    std::vector<Slot> m_slots;                                   // a power of two, at most half of them taken
    std::unordered_map<std::string, KeptKeywords> m_keywords;    // by the list's text
    std::map<std::string, Operator> m_operators;                 // by either name
    mutable std::set<std::string> m_solverInternalNames;         // empty until asked for

    // Of the values that every store begins with. Behind the table, which their construction fills.
    ValueIndex m_scalarIdx;
    ValueIndex m_vectorIdx;
    ValueIndex m_symten2Idx;
    ValueIndex m_trueIdx;
    ValueIndex m_falseIdx;
    ValueIndex m_qelIdx;
    ValueIndex m_emptyIdx;
};

}    // namespace qen
