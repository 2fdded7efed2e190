#pragma once

#include "ModelQCL.h"
#include "qcl/NameIndex.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// One change of a model.
struct ModelChange {
    enum class Kind : std::uint8_t { ObjectAdded, ObjectDeleted, ParameterSet, ParameterDeleted };

    Kind kind;
    std::string_view objectPath;
    std::string_view objectType;
    std::string_view paramName;    ///< empty where the object itself came or went
};

/// The model: the objects of a case as a tree. Every ancestor of an object exists by being named in its path.
/// Look-up by path takes constant time and allocates nothing; an object stays where it is until it is deleted.
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

        /// The parameter of that name; null when it is not set. Constant time.
        const Parameter* find(std::string_view p_paramName) const;

    private:
        friend class ModelTree;

        struct NameOf {
            std::string_view operator()(const Parameter& p_parameter) const { return p_parameter.name; }
        };

        NameIndex<NameOf> m_parameterIndex;
    };

    ModelTree();

    /// The objects and parameters of a document, in its order. Its problems do not count: what was read is taken.
    explicit ModelTree(const QclDocument& p_document);
    ~ModelTree();

    ModelTree(const ModelTree&) = delete;
    ModelTree& operator=(const ModelTree&) = delete;
    /// A tree that was moved from may only be destroyed or assigned to.
    ModelTree(ModelTree&&) noexcept;
    ModelTree& operator=(ModelTree&&) noexcept;

    /// The object at a path; null when there is none.
    const Object* find(std::string_view p_objectPath) const;

    /// The objects of the first level, in the model's order. Each object's children follow in theirs.
    const std::vector<Object*>& roots() const;

    /// Makes an object with its ancestors, where they are missing.
    ///
    /// @throws data::error  The path is malformed; nothing was made.
    const Object& addObject(std::string_view p_objectPath);

    /// Sets a parameter, creating the object and its ancestors where they are missing.
    ///
    /// @throws data::error  The path is malformed; nothing was made.
    void setParameter(std::string_view p_objectPath, std::string_view p_paramName, std::string_view p_value);

    /// Deletes a parameter, if it is set, in time linear in the number of the object's parameters.
    void deleteParameter(std::string_view p_objectPath, std::string_view p_paramName);

    /// Deletes an object, if it exists, with all that is below it. Its ancestors stay.
    void deleteObject(std::string_view p_objectPath);

    /// Has each later change told behind it, that of every object apart; setting a parameter to the value that it has is
    /// none. One listener at a time: an empty one ends it. The texts hold during the call, in which the model must not
    /// be changed.
    void onChange(std::function<void(const ModelChange&)> p_listener);

    /// Grows with each change, so that what was worked out from the model can be told from what holds now.
    std::size_t version() const;

    // The texts of the empty path are those of the first level: childNames("", "FLOW") are the flows.
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
