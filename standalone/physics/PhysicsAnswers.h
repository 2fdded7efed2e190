#pragma once

#include "model/ReadGraph.h"
#include "physics/PhysicsBook.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Answers physics questions about one model from a book, and keeps each answer for as long as the model stays the same.
/// A question about a domain is worked out once, however many of its objects it is asked at. Asked about another model,
/// it keeps nothing.
///
/// Book and model are neither owned nor copied and must outlive it. One thread at a time.
class QEN_STANDALONE_API PhysicsAnswers final : public PhysicsEvaluator {
public:
    /// @param p_version  Tells a state of the model from every earlier one, as ModelTree::version does.
    /// @param p_reads    Is told from which answers something is worked out; null for nobody.
    PhysicsAnswers(const PhysicsBook& p_book, const ModelQCL& p_model, std::function<std::size_t()> p_version,
                   ReadGraph* p_reads = nullptr);

    bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                  const ModelQCL* p_model) const override;
    std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                      const ModelQCL* p_model) const override;
    void declareBool(const std::string& p_query, bool p_flag) const override;
    void declareList(const std::string& p_query, bool p_flag) const override;

private:
    template <typename Answer>
    using Kept = std::unordered_map<std::string, Answer>;

    /// The answer that is kept, or worked out and kept.
    template <typename Answer, typename WorkOut>
    const Answer& answer(Kept<Answer>& p_kept, const std::string& p_query, const std::string& p_objectPath,
                         const WorkOut& p_workOut) const;
    ReadGraph::Node nodeOf(std::string_view p_query, std::string_view p_path) const;
    bool isKept(const ModelQCL* p_model) const;

    const PhysicsBook& m_book;
    const ModelQCL& m_model;
    std::function<std::size_t()> m_version;
    ReadGraph* m_reads;

    mutable std::size_t m_keptVersion = 0;
    mutable Kept<bool> m_bools;
    mutable Kept<std::vector<std::string>> m_lists;
};

}    // namespace qen::standalone
