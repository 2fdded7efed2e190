#include "model/UpdateRecord.h"

#include "model/ModelTree.h"

#include "QCLUpdateHandler.h"

#include <utility>

namespace qen::standalone {

UpdateRecord UpdateRecord::everythingIn(const ModelTree& p_model)
{
    UpdateRecord record;

    // The next object on top. Without recursion: a path may have any number of levels.
    std::vector<const ModelTree::Object*> waiting(p_model.roots().rbegin(), p_model.roots().rend());
    while (!waiting.empty())
    {
        const ModelTree::Object* object = waiting.back();
        waiting.pop_back();
        waiting.insert(waiting.end(), object->children.rbegin(), object->children.rend());
        if (object->parameters.empty())
            continue;

        record.beginObject(object->path);
        for (const ModelTree::Parameter& parameter : object->parameters)
            record.changeParameter(object->path, parameter.name, parameter.value);
        record.endObject(object->path);
    }
    return record;
}

void UpdateRecord::beginObject(std::string p_objectPath)
{
    record(Kind::BeginObject, std::move(p_objectPath));
}

void UpdateRecord::changeParameter(std::string p_objectPath, std::string p_paramName, std::string p_value,
                                   bool p_flag)
{
    record(Kind::ChangeParameter, std::move(p_objectPath), std::move(p_paramName), std::move(p_value),
           p_flag);
}

void UpdateRecord::deleteParameter(std::string p_objectPath, std::string p_paramName)
{
    record(Kind::DeleteParameter, std::move(p_objectPath), std::move(p_paramName));
}

void UpdateRecord::deleteObject(std::string p_objectPath)
{
    record(Kind::DeleteObject, std::move(p_objectPath));
}

void UpdateRecord::endObject(std::string p_objectPath) { record(Kind::EndObject, std::move(p_objectPath)); }

void UpdateRecord::record(Kind p_kind, std::string p_objectPath, std::string p_paramName, std::string p_value,
                          bool p_flag)
{
    m_changes.push_back(
        {p_kind, std::move(p_objectPath), std::move(p_paramName), std::move(p_value), p_flag});
}

void UpdateRecord::replay(QCLUpdateHandler& p_handler) const
{
    for (const Change& change : m_changes)
        switch (change.kind)
        {
        case Kind::BeginObject:
            p_handler.onBeginObjectParamChanges(change.objectPath);
            break;
        case Kind::ChangeParameter:
            p_handler.onParamChange(change.objectPath, change.paramName, change.value, change.flag);
            break;
        case Kind::DeleteParameter:
            p_handler.onParamDeletion(change.objectPath, change.paramName);
            break;
        case Kind::DeleteObject:
            p_handler.onObjectDeletion(change.objectPath);
            break;
        case Kind::EndObject:
            p_handler.onEndObjectParamChanges(change.objectPath);
            break;
        }
}

}    // namespace qen::standalone
