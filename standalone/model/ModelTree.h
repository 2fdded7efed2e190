#pragma once

#include "ModelQCL.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// The model: the objects of a case as a tree. Every ancestor of an object exists by being named in its path.
/// Look-up by path takes constant time and allocates nothing.
class QEN_STANDALONE_API ModelTree final : public ModelQCL {
public:
    struct Parameter {
        std::string name;
        std::string value;
    };

    struct Object {
        std::string path;
        std::string type;
        std::string name;
        Object* parent = nullptr;             ///< null for the first level
        std::vector<Object*> children;        ///< in the model's order
        std::vector<Parameter> parameters;    ///< in the model's order

        const Parameter* find(std::string_view p_paramName) const;
    };

    ModelTree();
    explicit ModelTree(const QclDocument& p_document);
    ~ModelTree();

    ModelTree(const ModelTree&) = delete;
    ModelTree& operator=(const ModelTree&) = delete;
    ModelTree(ModelTree&&) noexcept;
    ModelTree& operator=(ModelTree&&) noexcept;

    /// The object at a path; null when there is none.
    const Object* find(std::string_view p_objectPath) const;

    /// The objects of the first level, in the model's order.
    const std::vector<Object*>& roots() const;

    /// Sets a parameter, creating the object and its ancestors where they are missing.
    void setParameter(std::string_view p_objectPath, std::string_view p_paramName, std::string_view p_value);

    void deleteParameter(std::string_view p_objectPath, std::string_view p_paramName);

    /// Deletes an object with all that is below it.
    void deleteObject(std::string_view p_objectPath);

    /// Grows with each change, so that what was worked out from the model can be told from what holds now.
    std::size_t version() const;

    bool objectExists(const std::string& p_objectPath) const override;
    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override;
    std::vector<std::string> childNames(const std::string& p_objectPath,
                                        const std::string& p_type) const override;
    std::vector<std::string> childPaths(const std::string& p_objectPath,
                                        const std::string& p_type) const override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
