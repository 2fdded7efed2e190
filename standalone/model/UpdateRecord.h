#pragma once

#include "QCLUpdateInfo.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qen::standalone {

class ModelTree;

/// A list of changes of a model, kept in the order in which they were recorded.
class QEN_STANDALONE_API UpdateRecord final : public QCLUpdateInfo {
public:
    /// The record that says of everything in a model that it was changed: the objects from the top, each before its
    /// children, all in the model's order. An object without parameters is not mentioned.
    static UpdateRecord everythingIn(const ModelTree& p_model);

    /// The changes of one object's parameters begin.
    void beginObject(std::string p_objectPath);

    /// @param p_flag  Handed on to the handler as it is.
    void changeParameter(std::string p_objectPath, std::string p_paramName, std::string p_value,
                         bool p_flag = true);

    void deleteParameter(std::string p_objectPath, std::string p_paramName);
    void deleteObject(std::string p_objectPath);

    /// The changes of that object's parameters end.
    void endObject(std::string p_objectPath);

    /// The number of changes, beginnings and ends counted as well.
    std::size_t size() const { return m_changes.size(); }

    bool empty() const { return m_changes.empty(); }

    void clear() { m_changes.clear(); }

    /// Hands each change to the handler, in order. The record stays as it is; what the handler throws passes.
    void replay(QCLUpdateHandler& p_handler) const override;

private:
    enum class Kind { BeginObject, ChangeParameter, DeleteParameter, DeleteObject, EndObject };

    struct Change {
        Kind kind;
        std::string objectPath;
        std::string paramName;
        std::string value;
        bool flag;
    };

    void record(Kind p_kind, std::string p_objectPath, std::string p_paramName = {}, std::string p_value = {},
                bool p_flag = false);

    std::vector<Change> m_changes;
};

}    // namespace qen::standalone
