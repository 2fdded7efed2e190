#include "model/ModelTree.h"

#include "DataError.h"
#include "QCLPath.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace qen::standalone {

struct ModelTree::Impl {
    // The keys are the paths inside the objects, which stay where they are.
    std::unordered_map<std::string_view, std::unique_ptr<Object>> objects;
    std::vector<Object*> roots;
    std::size_t version = 0;
    std::function<void(const ModelChange&)> listener;

    Object* find(std::string_view p_objectPath) const
    {
        const auto found = objects.find(p_objectPath);
        return found == objects.end() ? nullptr : found->second.get();
    }

    std::vector<Object*>& siblingsOf(const Object& p_object)
    {
        return p_object.parent ? p_object.parent->children : roots;
    }

    /// The last level of a path whose other levels are those of the parent; the path is well-formed.
    Object& addLevel(std::string_view p_objectPath, Object* p_parent)
    {
        const std::string_view level = p_objectPath.substr(p_objectPath.rfind('/') + 1);
        const std::size_t colon = std::min(level.find(':'), level.size());

        auto object = std::make_unique<Object>();
        object->path = p_objectPath;
        object->type = level.substr(0, colon);
        object->name = level.substr(std::min(colon + 1, level.size()));
        object->parent = p_parent;

        Object& added = *object;
        objects.emplace(added.path, std::move(object));
        siblingsOf(added).push_back(&added);
        changed({ModelChange::Kind::ObjectAdded, added.path, added.type, {}});
        return added;
    }

    void changed(const ModelChange& p_change)
    {
        ++version;
        if (listener)
            listener(p_change);
    }

    /// The object at a path, made with its ancestors where they are missing.
    Object& add(std::string_view p_objectPath)
    {
        if (Object* existing = find(p_objectPath))
            return *existing;

        if (QCLPath(std::string(p_objectPath)).empty())
            throw data::error("ModelTree", "add", "'" + std::string(p_objectPath) + "' is no object path.",
                              ErrorTypeError);

        Object* object = nullptr;
        std::size_t end = 0;
        do
        {
            end = std::min(p_objectPath.find('/', end + 1), p_objectPath.size());
            const std::string_view leading = p_objectPath.substr(0, end);
            Object* existing = find(leading);
            object = existing ? existing : &addLevel(leading, object);
        }
        while (end < p_objectPath.size());
        return *object;
    }
};

const ModelTree::Parameter* ModelTree::Object::find(std::string_view p_paramName) const
{
    const std::uint32_t position = m_parameterIndex.find(parameters, p_paramName);
    return position == NameIndex<NameOf>::k_none ? nullptr : &parameters[position];
}

ModelTree::ModelTree() : m_impl(std::make_unique<Impl>()) {}

ModelTree::ModelTree(const QclDocument& p_document) : ModelTree()
{
    for (const QclObject& object : p_document.objects)
    {
        addObject(object.path);
        for (const QclParameter& parameter : object.parameters)
            setParameter(object.path, parameter.name, parameter.value);
    }
}

ModelTree::~ModelTree() = default;
ModelTree::ModelTree(ModelTree&&) noexcept = default;
ModelTree& ModelTree::operator=(ModelTree&&) noexcept = default;

const ModelTree::Object* ModelTree::find(std::string_view p_objectPath) const
{
    return m_impl->find(p_objectPath);
}

const std::vector<ModelTree::Object*>& ModelTree::roots() const { return m_impl->roots; }

const ModelTree::Object& ModelTree::addObject(std::string_view p_objectPath)
{
    return m_impl->add(p_objectPath);
}

void ModelTree::setParameter(std::string_view p_objectPath, std::string_view p_paramName,
                             std::string_view p_value)
{
    Object& object = m_impl->add(p_objectPath);
    const std::uint32_t position = object.m_parameterIndex.find(object.parameters, p_paramName);
    if (position != NameIndex<Object::NameOf>::k_none)
    {
        if (object.parameters[position].value == p_value)
            return;
        object.parameters[position].value = p_value;
    }
    else
    {
        object.parameters.push_back({std::string(p_paramName), std::string(p_value)});
        object.m_parameterIndex.addNext(object.parameters);
    }
    m_impl->changed({ModelChange::Kind::ParameterSet, object.path, object.type, p_paramName});
}

void ModelTree::deleteParameter(std::string_view p_objectPath, std::string_view p_paramName)
{
    Object* object = m_impl->find(p_objectPath);
    if (!object)
        return;

    const std::uint32_t position = object->m_parameterIndex.find(object->parameters, p_paramName);
    if (position == NameIndex<Object::NameOf>::k_none)
        return;

    const std::string name = std::move(object->parameters[position].name);
    object->parameters.erase(object->parameters.begin() + position);
    object->m_parameterIndex.rebuild(object->parameters);
    m_impl->changed({ModelChange::Kind::ParameterDeleted, object->path, object->type, name});
}

void ModelTree::deleteObject(std::string_view p_objectPath)
{
    Object* object = m_impl->find(p_objectPath);
    if (!object)
        return;

    std::erase(m_impl->siblingsOf(*object), object);

    // Without recursion: a path may have any number of levels.
    std::vector<Object*> doomed {object};
    std::vector<std::unique_ptr<Object>> deleted;    // until it has been told of
    while (!doomed.empty())
    {
        Object* last = doomed.back();
        doomed.pop_back();
        doomed.insert(doomed.end(), last->children.begin(), last->children.end());
        deleted.push_back(std::move(m_impl->objects.extract(last->path).mapped()));
    }
    for (const std::unique_ptr<Object>& gone : deleted)
        m_impl->changed({ModelChange::Kind::ObjectDeleted, gone->path, gone->type, {}});
}

void ModelTree::onChange(std::function<void(const ModelChange&)> p_listener)
{
    m_impl->listener = std::move(p_listener);
}

std::size_t ModelTree::version() const { return m_impl->version; }

bool ModelTree::objectExists(const std::string& p_objectPath) const { return find(p_objectPath) != nullptr; }

std::string ModelTree::paramValue(const std::string& p_objectPath, const std::string& p_paramName) const
{
    const Object* object = find(p_objectPath);
    const Parameter* parameter = object ? object->find(p_paramName) : nullptr;
    return parameter ? parameter->value : std::string();
}

namespace {

/// One text of each child of a type.
std::vector<std::string> textsOfChildren(const std::vector<ModelTree::Object*>* p_children,
                                         const std::string& p_type, std::string ModelTree::Object::*p_text)
{
    std::vector<std::string> texts;
    if (p_children)
        for (const ModelTree::Object* child : *p_children)
            if (child->type == p_type)
                texts.push_back(child->*p_text);
    return texts;
}

/// The children of the object at a path; the first level for the empty path, null when there is no such object.
const std::vector<ModelTree::Object*>* childrenAt(const ModelTree& p_tree, const std::string& p_objectPath)
{
    if (p_objectPath.empty())
        return &p_tree.roots();
    const ModelTree::Object* object = p_tree.find(p_objectPath);
    return object ? &object->children : nullptr;
}

}    // namespace

std::vector<std::string> ModelTree::childNames(const std::string& p_objectPath,
                                               const std::string& p_type) const
{
    return textsOfChildren(childrenAt(*this, p_objectPath), p_type, &Object::name);
}

std::vector<std::string> ModelTree::childPaths(const std::string& p_objectPath,
                                               const std::string& p_type) const
{
    return textsOfChildren(childrenAt(*this, p_objectPath), p_type, &Object::path);
}

}    // namespace qen::standalone
