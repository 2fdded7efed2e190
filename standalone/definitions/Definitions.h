#pragma once

#include "definitions/CatalogueDefinitions.h"
#include "definitions/Finding.h"
#include "ExprCBFuncStore.h"
#include "physics/PhysicsBook.h"
#include "PreVariableDefStore.h"
#include "qcl/QclDocument.h"
#include "rules/RuleBook.h"
#include "StandaloneApi.h"
#include "units/UnitSystem.h"

#include <deque>
#include <string>
#include <vector>

namespace qen::standalone {

/// What the definition files say, loaded into the catalogues that the checks read. Must stay where it is while a world
/// points to it.
class QEN_STANDALONE_API Definitions {
public:
    /// Reads UNITS.qcl, RULES.qcl, PHYSICS.qcl and VARIABLES.qcl of each folder. Files of later folders add to and override those
    /// of earlier ones; a folder need not hold all, but together they must.
    ///
    /// Loading goes on after every problem, so that all are known at the end; with an error among them the catalogues
    /// are not to be used.
    explicit Definitions(const std::vector<std::string>& p_folders);

    Definitions(const Definitions&) = delete;
    Definitions& operator=(const Definitions&) = delete;

    const UnitSystem& units() const { return m_units; }
    const RuleBook& rules() const { return m_rules; }
    const PhysicsBook& physics() const { return m_physics; }
    const PreVariableDefStore& variables() const { return m_variables; }
    const ExprCBFuncStore& callbacks() const { return m_callbacks; }

    /// The texts behind the variables, operators and callback functions: what the stores do not list.
    const CatalogueDefinitions& catalogue() const { return m_catalogue; }

    /// The texts behind the rules, in the order of folders, which tell where a rule stands.
    const std::deque<QclDocument>& ruleDocuments() const { return m_ruleDocuments; }

    /// Every problem, in the order of folders, files and lines.
    const std::vector<Finding>& problems() const { return m_problems; }

    bool hasErrors() const;

    /// Every file that was read, included ones too, in the order of reading. They live as long as the definitions.
    std::vector<const SourceFile*> files() const;

private:
    UnitSystem m_units;
    RuleBook m_rules;
    PhysicsBook m_physics;
    PreVariableDefStore m_variables;
    ExprCBFuncStore m_callbacks;
    std::deque<QclDocument> m_unitDocuments;
    std::deque<QclDocument> m_ruleDocuments;
    std::deque<QclDocument> m_physicsDocuments;
    std::deque<QclDocument> m_documents;    // to which the definitions of the catalogue point
    CatalogueDefinitions m_catalogue;
    std::vector<Finding> m_problems;
};

/// The folders to read definitions from: those given, else that of the environment variable QENCHECK_DEFINITIONS, else
/// the `share` folder that belongs to the executable's, else the one of the build.
///
/// @param p_executable  Path of the running executable.
QEN_STANDALONE_API std::vector<std::string> definitionFolders(const std::vector<std::string>& p_given,
                                                              const std::string& p_executable);

/// The folder of the definitions that are shipped: the `share` folder that belongs to the executable's, else the one of
/// the build.
QEN_STANDALONE_API std::string shippedDefinitionFolder(const std::string& p_executable);

/// The files in which definitions are looked for: each name in each folder, whether the file is there or not.
QEN_STANDALONE_API std::vector<std::string> definitionFiles(const std::vector<std::string>& p_folders);

}    // namespace qen::standalone
