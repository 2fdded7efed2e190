#pragma once

#include "ModelQCL.h"
#include "qcl/NameIndex.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// One change of a model.
struct ModelChange {
    enum class Kind : std::uint8_t {
        ObjectAdded,
        ObjectDeleted,
        ChildrenReordered,    ///< children that the object had are in another order
        ParameterSet,
        ParameterDeleted,
    };

    Kind kind;
    std::string_view objectPath;    ///< empty for what is above the first level
    std::string_view objectType;
    std::string_view paramName;     ///< empty where no parameter changed
    bool isNewParameter = false;    ///< that was set: the object did not have it
};

/// Is told of each change of a model behind it. The texts hold during the call, in which the model must not be changed.
class QEN_STANDALONE_API ModelObserver {
public:
    virtual void onModelChange(const ModelChange& p_change) = 0;

protected:
    ~ModelObserver() = default;    // never destroyed through this class
};

/// Is told what of a model is looked at, also in vain. The texts hold during the call.
class QEN_STANDALONE_API ModelReader {
public:
    virtual void onObjectRead(std::string_view p_objectPath) = 0;
    virtual void onParameterRead(std::string_view p_objectPath, std::string_view p_paramName) = 0;

    /// The children of one type were looked at: which there are, and in which order.
    ///
    /// @param p_objectPath  Empty for the first level.
    /// @param p_type        Empty for the parameters: which there are, in no order.
    virtual void onChildrenRead(std::string_view p_objectPath, std::string_view p_type) = 0;

protected:
    ~ModelReader() = default;    // never destroyed through this class
};

/// The model: the objects of a case as a tree. Every ancestor of an object exists by being named in its path.
/// Look-up by path takes constant time and allocates nothing; an object stays where it is until it is deleted.
class QEN_STANDALONE_API ModelTree final : public ModelQCL {
    struct Impl;

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
        std::vector<Object*> children;        ///< in the model's order; who looks at them here is not told of
        std::vector<Parameter> parameters;    ///< in the order in which they were set; likewise

        /// The parameter of that name; null when it is not set. Constant time.
        const Parameter* find(std::string_view p_paramName) const;

        /// The parameters. That one looks at which there are is told.
        const std::vector<Parameter>& allParameters() const;

        /// The children of some types, in the model's order.
        std::vector<const Object*> childrenOf(std::initializer_list<std::string_view> p_types) const;

    private:
        friend class ModelTree;

        struct NameOf {
            std::string_view operator()(const Parameter& p_parameter) const { return p_parameter.name; }
        };

        NameIndex<NameOf> m_parameterIndex;
        const Impl* m_tree = nullptr;
        bool m_isArranged = false;    // has been put into order, so that others know its place
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

    /// The objects of the first level, in the model's order; who looks at them here is not told of.
    const std::vector<Object*>& roots() const;

    /// Those of the first level that are of one type, in the model's order.
    std::vector<const Object*> rootsOf(std::string_view p_type) const;

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

    /// Puts the objects into the order in which they are first named, an object being named by each path below it too;
    /// those that are not named go to the end. Takes time linear in the paths and the objects.
    void arrange(const std::vector<std::string_view>& p_objectPaths);

    /// Tells the observer of each later change, that of every object apart; setting a parameter to the value that it has
    /// is none. Observers are told in the order in which they were attached. To be detached before it is destroyed.
    void attach(ModelObserver& p_observer);
    void detach(const ModelObserver& p_observer);

    /// Tells a reader of each later look. One at a time: null ends it.
    void tellReads(ModelReader* p_reader);

    /// Grows with each change, so that what was worked out from the model can be told from what holds now.
    std::size_t version() const;

    /// Grows when objects come, go or change their order, not when parameters do.
    std::size_t objectsVersion() const;

    // The texts of the empty path are those of the first level: childNames("", "FLOW") are the flows.
    bool objectExists(const std::string& p_objectPath) const override;
    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override;
    std::vector<std::string> childNames(const std::string& p_objectPath,
                                        const std::string& p_type) const override;
    std::vector<std::string> childPaths(const std::string& p_objectPath,
                                        const std::string& p_type) const override;

private:
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
