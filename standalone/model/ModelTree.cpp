#include "model/ModelTree.h"

#include "DataError.h"
#include "QCLPath.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace qen::standalone {

struct ModelTree::Impl {
    // The keys are the paths inside the objects, which stay where they are.
    std::unordered_map<std::string_view, std::unique_ptr<Object>> objects;
    std::vector<Object*> roots;
    std::size_t version = 0;
    std::size_t objectsVersion = 0;
    std::vector<ModelObserver*> observers;
    ModelReader* reader = nullptr;

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
        object->m_tree = this;

        Object& added = *object;
        objects.emplace(added.path, std::move(object));
        siblingsOf(added).push_back(&added);
        changed({ModelChange::Kind::ObjectAdded, added.path, added.type, {}});
        return added;
    }

    void changed(const ModelChange& p_change)
    {
        ++version;
        objectsVersion += p_change.paramName.empty() ? 1U : 0U;
        for (ModelObserver* observer : observers)
            observer->onModelChange(p_change);
    }

    std::vector<const Object*> children(std::string_view p_objectPath, const std::vector<Object*>& p_all,
                                        std::initializer_list<std::string_view> p_types) const
    {
        if (reader)
            for (const std::string_view type : p_types)
                reader->onChildrenRead(p_objectPath, type);

        std::vector<const Object*> ofTypes;
        for (const Object* child : p_all)
            if (std::find(p_types.begin(), p_types.end(), child->type) != p_types.end())
                ofTypes.push_back(child);
        return ofTypes;
    }

    /// Sorts children by their ranks.
    ///
    /// @return  Whether the order of those that have been arranged before is another one now.
    static bool sort(std::vector<Object*>& p_children,
                     const std::unordered_map<const Object*, std::size_t>& p_ranks)
    {
        const auto rank = [&](const Object* p_object) {
            const auto found = p_ranks.find(p_object);
            return found == p_ranks.end() ? p_ranks.size() : found->second;
        };
        const auto before = [&](const Object* p_a, const Object* p_b) { return rank(p_a) < rank(p_b); };
        if (std::is_sorted(p_children.begin(), p_children.end(), before))
            return false;

        std::vector<Object*> old;
        std::copy_if(p_children.begin(), p_children.end(), std::back_inserter(old),
                     [](const Object* p_child) { return p_child->m_isArranged; });
        std::stable_sort(p_children.begin(), p_children.end(), before);
        return !std::is_sorted(old.begin(), old.end(), before);
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
    if (m_tree->reader)
        m_tree->reader->onParameterRead(path, p_paramName);
    const std::uint32_t position = m_parameterIndex.find(parameters, p_paramName);
    return position == NameIndex<NameOf>::k_none ? nullptr : &parameters[position];
}

const std::vector<ModelTree::Parameter>& ModelTree::Object::allParameters() const
{
    if (m_tree->reader)
        m_tree->reader->onChildrenRead(path, {});
    return parameters;
}

std::vector<const ModelTree::Object*>
ModelTree::Object::childrenOf(std::initializer_list<std::string_view> p_types) const
{
    return m_tree->children(path, children, p_types);
}

ModelTree::ModelTree() : m_impl(std::make_unique<Impl>()) {}

ModelTree::ModelTree(const QclDocument& p_document) : ModelTree()
{
    for (const QclObject& object : p_document.objects)
    {
        addObject(object.path);
        for (const QclParameter& parameter : object.parameters)
            setParameter(object.path, parameter.name(), parameter.value());
    }
}

ModelTree::~ModelTree() = default;
ModelTree::ModelTree(ModelTree&&) noexcept = default;
ModelTree& ModelTree::operator=(ModelTree&&) noexcept = default;

const ModelTree::Object* ModelTree::find(std::string_view p_objectPath) const
{
    if (m_impl->reader)
        m_impl->reader->onObjectRead(p_objectPath);
    return m_impl->find(p_objectPath);
}

const std::vector<ModelTree::Object*>& ModelTree::roots() const { return m_impl->roots; }

std::vector<const ModelTree::Object*> ModelTree::rootsOf(std::string_view p_type) const
{
    return m_impl->children({}, m_impl->roots, {p_type});
}

const ModelTree::Object& ModelTree::addObject(std::string_view p_objectPath)
{
    return m_impl->add(p_objectPath);
}

void ModelTree::setParameter(std::string_view p_objectPath, std::string_view p_paramName,
                             std::string_view p_value)
{
    Object& object = m_impl->add(p_objectPath);
    const std::uint32_t position = object.m_parameterIndex.find(object.parameters, p_paramName);
    const bool isNew = position == NameIndex<Object::NameOf>::k_none;
    if (!isNew)
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
    m_impl->changed({ModelChange::Kind::ParameterSet, object.path, object.type, p_paramName, isNew});
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

void ModelTree::arrange(const std::vector<std::string_view>& p_objectPaths)
{
    std::unordered_map<const Object*, std::size_t> ranks;
    std::vector<Object*> parents;    // each once
    for (const std::string_view path : p_objectPaths)
        // From the object up to the first ancestor that has been named.
        for (Object* object = m_impl->find(path); object; object = object->parent)
        {
            if (!ranks.try_emplace(object, ranks.size()).second)
                break;
            parents.push_back(object);
        }

    if (Impl::sort(m_impl->roots, ranks))
        m_impl->changed({ModelChange::Kind::ChildrenReordered, {}, {}, {}});
    for (Object* object : parents)
        if (Impl::sort(object->children, ranks))
            m_impl->changed({ModelChange::Kind::ChildrenReordered, object->path, object->type, {}});
    for (Object* object : parents)
        object->m_isArranged = true;
}

void ModelTree::attach(ModelObserver& p_observer) { m_impl->observers.push_back(&p_observer); }

void ModelTree::detach(const ModelObserver& p_observer) { std::erase(m_impl->observers, &p_observer); }

void ModelTree::tellReads(ModelReader* p_reader) { m_impl->reader = p_reader; }

std::size_t ModelTree::version() const { return m_impl->version; }

std::size_t ModelTree::objectsVersion() const { return m_impl->objectsVersion; }

bool ModelTree::objectExists(const std::string& p_objectPath) const { return find(p_objectPath) != nullptr; }

std::string ModelTree::paramValue(const std::string& p_objectPath, const std::string& p_paramName) const
{
    const Object* object = find(p_objectPath);
    const Parameter* parameter = object ? object->find(p_paramName) : nullptr;
    return parameter ? parameter->value : std::string();
}

namespace {

/// One text of each child of a type.
std::vector<std::string> textsOfChildren(const ModelTree& p_tree, const std::string& p_objectPath,
                                         const std::string& p_type, std::string ModelTree::Object::*p_text)
{
    const ModelTree::Object* const object = p_objectPath.empty() ? nullptr : p_tree.find(p_objectPath);
    std::vector<std::string> texts;
    if (object || p_objectPath.empty())
        for (const ModelTree::Object* child : object ? object->childrenOf({p_type}) : p_tree.rootsOf(p_type))
            texts.push_back(child->*p_text);
    return texts;
}

}    // namespace

std::vector<std::string> ModelTree::childNames(const std::string& p_objectPath,
                                               const std::string& p_type) const
{
    return textsOfChildren(*this, p_objectPath, p_type, &Object::name);
}

std::vector<std::string> ModelTree::childPaths(const std::string& p_objectPath,
                                               const std::string& p_type) const
{
    return textsOfChildren(*this, p_objectPath, p_type, &Object::path);
}

}    // namespace qen::standalone
