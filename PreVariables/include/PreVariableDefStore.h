#pragma once

#include "PreVariablesApi.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace qen {

/// The catalogue of solver variables. All texts of all definitions are interned: a record holds indices of values, and
/// equal indices are equal texts.
///
/// Filled once by the host, one definition object at a time, and read thereafter. Nothing is ever removed. A copy is
/// deep. One thread at a time.
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

    /// One solver variable. A key that its definition does not have leaves the index of the empty text, or an empty
    /// set or list.
    //
    // Deliberate: the last four fields of VarDefField stand in another order there. Both orders are fixed.
    struct QEN_PREVARIABLES_API VarDefData {
        ValueIndex shortName = 0;
        ValueIndex longName = 0;
        ValueIndex oldShortName = 0;
        ValueIndex oldLongName = 0;
        ValueIndex quantity = 0;
        ValueIndex tensorType = 0;
        ValueIndex status = 0;
        ValueIndex outputToPostprocessor = 0;
        ValueIndex underRelaxationFactor = 0;
        ValueIndex userLevel = 0;
        ValueIndex fieldVariable = 0;    // always that of "T" or "F"
        ValueSet generalAvailability;
        ValueSet physicalAvailability;
        ValueSet variableClass;
        ValueSet variableScope;
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

    /// Appends one finished record and registers its names. A list of short names that was asked for before stays as
    /// it is.
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

private:
    bool isTensorType(ValueIndex p_value) const;
    void checkComponentCounts(const std::string& p_name, const VarDefData& p_record) const;
    void addComponentDefinitions(VarDefData p_variable);
    [[noreturn]] static void raiseNoSuchVariable(const std::string& p_name);

    std::vector<VarDefData> m_records;
    std::unordered_map<std::string, std::size_t> m_nameIndex;    // every name of every record
    mutable std::vector<std::string> m_shortNamesCache;          // empty until asked for
    std::vector<std::string> m_values;
    std::unordered_map<std::string, ValueIndex> m_valueIndex;    // into m_values

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
