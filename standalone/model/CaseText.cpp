#include "model/CaseText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace qen::standalone {
namespace {

bool haveTheSameObjects(const QclDocument& p_a, const QclDocument& p_b)
{
    return std::ranges::equal(p_a.objects, p_b.objects, {}, &QclObject::path, &QclObject::path);
}

/// Deletes every object that a text does not name, also not in the path of another.
void deleteObjects(ModelTree& p_model, const QclDocument& p_text)
{
    std::unordered_set<std::string_view> named;
    for (const QclObject& object : p_text.objects)
    {
        std::string_view path = object.path;
        while (!path.empty() && named.insert(path).second)
            path = path.substr(0, path.rfind('/'));
    }

    std::vector<std::string> doomed;
    std::vector<const ModelTree::Object*> waiting(p_model.roots().begin(), p_model.roots().end());
    while (!waiting.empty())
    {
        const ModelTree::Object* const object = waiting.back();
        waiting.pop_back();
        if (named.contains(object->path))
            waiting.insert(waiting.end(), object->children.begin(), object->children.end());
        else
            doomed.push_back(object->path);
    }
    for (const std::string& path : doomed)
        p_model.deleteObject(path);
}

/// Sets the parameters of an object to those of the text, and deletes the others.
void setParameters(ModelTree& p_model, const std::string& p_objectPath,
                   const std::vector<QclParameter>& p_parameters)
{
    const ModelTree::Object* const object = p_model.find(p_objectPath);
    if (!object)
        return;
    for (const QclParameter& parameter : p_parameters)
        p_model.setParameter(p_objectPath, parameter.name(), parameter.value());
    if (object->parameters.size() == p_parameters.size())
        return;
    std::unordered_set<std::string_view> names;
    for (const QclParameter& parameter : p_parameters)
        names.insert(parameter.name());
    std::vector<std::string> doomed;
    for (const ModelTree::Parameter& parameter : object->parameters)
        if (!names.contains(parameter.name))
            doomed.push_back(parameter.name);
    for (const std::string& name : doomed)
        p_model.deleteParameter(p_objectPath, name);
}

/// Deletes and adds objects, and puts them into the order of the text.
void setObjects(ModelTree& p_model, const QclDocument* p_before, const QclDocument& p_now)
{
    deleteObjects(p_model, p_now);

    std::vector<std::string_view> paths;
    for (const QclObject& object : p_now.objects)
    {
        p_model.addObject(object.path);
        paths.push_back(object.path);
    }
    p_model.arrange(paths);

    // What is named only in the paths of others by now has no parameters.
    if (!p_before)
        return;
    const std::unordered_set<std::string_view> withSection(paths.begin(), paths.end());
    for (const QclObject& object : p_before->objects)
        if (!withSection.contains(object.path))
            setParameters(p_model, object.path, {});
}

}    // namespace

void bringUpTo(ModelTree& p_model, const QclDocument* p_before, const QclDocument& p_now)
{
    const bool sameObjects = p_before && haveTheSameObjects(*p_before, p_now);
    if (!sameObjects)
        setObjects(p_model, p_before, p_now);

    std::unordered_map<std::string_view, std::uint64_t>
        contents;    // of objects that may stand elsewhere now
    if (p_before && !sameObjects)
        for (const QclObject& object : p_before->objects)
            contents.emplace(object.path, object.content);

    for (std::size_t i = 0; i < p_now.objects.size(); ++i)
    {
        const QclObject& object = p_now.objects[i];
        std::uint64_t before = 0;    // unknown
        if (sameObjects)
            before = p_before->objects[i].content;
        else if (const auto known = contents.find(object.path); known != contents.end())
            before = known->second;
        if (before == 0 || before != object.content)
            setParameters(p_model, object.path, object.parameters);
    }
}

}    // namespace qen::standalone
