#pragma once

#include "PhysicsText.h"

#include "definitions/Definitions.h"
#include "ShortVarNameFinder.h"
#include "VarAvailabilityChecker.h"

#include <string>

namespace qen::standalone::test {

/// The definitions of the project's own folder.
inline const Definitions& shippedDefinitions()
{
    static const Definitions k_definitions({QEN_SOURCE_FOLDER "/definitions"});
    return k_definitions;
}

/// Its physics queries.
inline const PhysicsBook& shippedPhysics()
{
    static const PhysicsBook k_physics = [] {
        PhysicsBook book;
        const QclDocument document = readQclFile(QEN_SOURCE_FOLDER "/definitions/PHYSICS.qcl");
        Diagnostics problems = document.problems;
        book.addDefinitions(document, problems);
        for (const Diagnostic& problem : problems)
            ADD_FAILURE() << "PHYSICS.qcl:" << problem.place.line << ": " << problem.message;
        return book;
    }();
    return k_physics;
}

/// Is never asked: keywords are judged without names.
class NoShortNames final : public ShortVarNameFinder {
public:
    std::string shortName(const std::string& p_fullName) const override
    {
        ADD_FAILURE() << "the short name of '" << p_fullName << "' was asked for";
        return p_fullName;
    }
};

}    // namespace qen::standalone::test
