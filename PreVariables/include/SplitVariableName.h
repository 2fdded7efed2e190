#pragma once

#include "PreVariablesApi.h"

#include "QELName.h"

#include <string>

namespace qen {

/// Finds the root of a variable name: the part that names the variable itself, without prefixes and suffix.
/// Implemented by whoever splits names; asked only while a name is split.
class QEN_PREVARIABLES_API VariableRootNameFinder {
public:
    /// What a name's root is.
    struct QEN_PREVARIABLES_API RootNameInfo {
        std::string rootName;    ///< empty when the name has no root
        bool isAV = false;       ///< the root is an additional variable
        bool isMPExprValue =
            false;    ///< the root is "Expression Value", the value of a monitor point's expression
    };

    // In slot order, which never changes.

    /// 0: the root of a full name.
    virtual RootNameInfo findRoot(const std::string& p_fullName) const = 0;

    VariableRootNameFinder() = default;
    VariableRootNameFinder(const VariableRootNameFinder&) = default;
    VariableRootNameFinder& operator=(const VariableRootNameFinder&) = default;

protected:
    ~VariableRootNameFinder() = default;    // not virtual: the library never destroys a finder
};

using RootNameInfo = VariableRootNameFinder::RootNameInfo;

/// A reference to a variable as the user wrote it, split at its dots: up to two prefixes, the root, and the operator
/// behind it as suffix.
class QEN_PREVARIABLES_API SplitVariableName {
public:
    /// What a name stands for. The values never change.
    enum Type : int {
        NotVariable = 0,    ///< an operator or bracket is in it, or no root is known
        Empty = 1,
        Variable = 2,       ///< its root is a catalogued variable
        AV = 3,             ///< its root is an additional variable
        MPExprValue = 4,    ///< its root is "Expression Value"
    };

    /// Splits a name. The last component but one is the root if it is what the finder says, else the last.
    ///
    /// @param p_fullName    For instance "Water.Velocity{x}.Gradient{y}".
    /// @param p_rootFinder  Not kept. Asked once, unless the name is empty or holds one of "()*/+-^[]"; must not be
    ///                      null when it is asked.
    /// @throws qen::expressions::name  The root is known, but the name is not in variable-name syntax, or the root is
    ///                                 neither its last component nor the one before.
    SplitVariableName(const std::string& p_fullName, const VariableRootNameFinder* p_rootFinder);

    SplitVariableName(const SplitVariableName&);
    SplitVariableName& operator=(const SplitVariableName&);
    /// What was moved from may only be destroyed or assigned to.
    SplitVariableName(SplitVariableName&&) noexcept;
    SplitVariableName& operator=(SplitVariableName&&) noexcept;
    ~SplitVariableName();

    /// The name as it was written.
    const std::string& fullName() const { return m_fullName; }

    Type type() const { return m_type; }

    // The parts, each empty when the name has none such. Names of five components or more have no prefixes.

    const std::string& prefix1() const { return m_prefix1; }
    const std::string& prefix2() const { return m_prefix2; }
    const QELName::Component& root() const { return m_root; }
    const QELName::Component& suffix() const { return m_suffix; }

    /// Whether the root is an additional variable.
    bool isAV() const { return m_type == AV; }

    /// Whether the root is "Expression Value".
    bool isMPExprValue() const { return m_type == MPExprValue; }

private:
    std::string m_fullName;
    Type m_type = NotVariable;
    std::string m_prefix1;
    std::string m_prefix2;
    QELName::Component m_root;
    QELName::Component m_suffix;
};

}    // namespace qen
