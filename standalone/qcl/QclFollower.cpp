#include "qcl/QclFollower.h"

#include "qcl/DocumentBuilder.h"
#include "qcl/SectionParser.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace qen::standalone {

namespace {

/// A section of a reading. Its text is a view into one of the reading's files.
struct FollowedSection {
    std::string_view text;
    std::shared_ptr<const ParsedSection> parsed;
    std::uint64_t number = 0;    // equal for equal texts of one kind
    std::size_t hash = 0;        // of the text
    SectionKind kind = SectionKind::Headed;
};

/// Finds sections by their texts. Of several with the same text it knows the first.
class SectionIndex {
public:
    explicit SectionIndex(const std::vector<FollowedSection>& p_sections)
        : m_sections(p_sections), m_slots(4 * p_sections.size() + 1)
    {
        for (std::uint32_t position = 0; position < p_sections.size(); ++position)
        {
            const FollowedSection& section = p_sections[position];
            std::uint32_t& slot = slotOf(section.kind, section.text, section.hash);
            if (slot == 0)
                slot = position + 1;
        }
    }

    const FollowedSection* find(SectionKind p_kind, std::string_view p_text, std::size_t p_hash)
    {
        const std::uint32_t positionPlus1 = slotOf(p_kind, p_text, p_hash);
        return positionPlus1 == 0 ? nullptr : &m_sections[positionPlus1 - 1];
    }

private:
    /// The slot of the section with that text; the free one in which it would go.
    std::uint32_t& slotOf(SectionKind p_kind, std::string_view p_text, std::size_t p_hash)
    {
        for (std::size_t slot = p_hash % m_slots.size();; slot = slot + 1 == m_slots.size() ? 0 : slot + 1)
        {
            if (m_slots[slot] == 0)
                return m_slots[slot];
            const FollowedSection& section = m_sections[m_slots[slot] - 1];
            if (section.hash == p_hash && section.kind == p_kind && section.text == p_text)
                return m_slots[slot];
        }
    }

    const std::vector<FollowedSection>& m_sections;
    std::vector<std::uint32_t> m_slots;    // positions plus 1, at most a quarter of them taken; 0 where free
};

/// Whether a section that stands at the beginning of a text ends where it did before.
bool endsThere(const FollowedSection& p_section, std::string_view p_text)
{
    const std::string_view behind = p_text.substr(p_section.text.size());
    return behind.empty() || (!p_section.parsed->endsWithFile && lineStart(behind) != LineStart::Other);
}

}    // namespace

struct QclFollower::Impl final : public SectionSource {
    using Contents = std::map<std::pair<std::uint64_t, std::uint64_t>, std::uint64_t>;

    Impl(std::string p_path, const QclLimits& p_limits) : path(std::move(p_path)), limits(p_limits) {}

    QclDocument read()
    {
        sections.clear();    // of a reading that did not come to its end
        sections.reserve(before.size() + 1);
        contents.clear();
        expected = 0;
        parsed = 0;
        parser.emplace(limits);
        index.reset();

        DocumentBuilder builder(limits, *this);
        builder.expectObjects(objectsBefore);
        QclDocument document = builder.readFile(path);

        objectsBefore = document.objects.size();
        index.reset();
        parser.reset();
        before.swap(sections);
        sections.clear();
        contentsBefore.swap(contents);
        contents.clear();
        files = document.files;    // which holds the texts
        return document;
    }

    const ParsedSection& section(SectionKind p_kind, std::string_view p_text) override
    {
        const FollowedSection* const known = find(p_kind, p_text);
        if (known)
        {
            expected = static_cast<std::size_t>(known - before.data()) + 1;
            sections.push_back(*known);
            sections.back().text = p_text.substr(0, known->text.size());
        }
        else
        {
            ++expected;    // in place of the one that stood here before
            ++parsed;
            FollowedSection& read = sections.emplace_back();
            read.kind = p_kind;
            read.text = p_text.substr(0, sectionLength(p_kind, p_text));
            read.hash = std::hash<std::string_view> {}(read.text);
            read.number = ++latestNumber;
            parser->parse(p_kind, read.text, scratch);
            read.parsed = std::make_shared<const ParsedSection>(scratch);
        }
        return *sections.back().parsed;
    }

    /// The section of the last reading that stands at the beginning of a text; null when there is none.
    const FollowedSection* find(SectionKind p_kind, std::string_view p_text)
    {
        if (expected < before.size())
            if (const FollowedSection& next = before[expected];
                next.kind == p_kind && p_text.starts_with(next.text) && endsThere(next, p_text))
                return &next;

        if (!index)
            index.emplace(before);
        const std::string_view text = p_text.substr(0, sectionLength(p_kind, p_text));
        return index->find(p_kind, text, std::hash<std::string_view> {}(text));
    }

    std::uint64_t content(std::uint64_t p_earlier) override
    {
        const std::uint64_t number = sections.back().number;
        if (p_earlier == 0)
            return number;

        const std::pair key(p_earlier, number);
        const auto known = contentsBefore.find(key);
        return contents.try_emplace(key, known == contentsBefore.end() ? ++latestNumber : known->second)
            .first->second;
    }

    std::string path;
    QclLimits limits;
    std::uint64_t latestNumber = 0;
    std::size_t parsed = 0;

    // Of the last reading.
    std::vector<SourceFile> files;
    std::vector<FollowedSection> before;
    Contents
        contentsBefore;    // of objects with several sections: by that of the earlier ones, and the last's number
    std::size_t objectsBefore = 0;

    // Of the reading at hand.
    std::vector<FollowedSection> sections;
    Contents contents;
    std::size_t expected = 0;             // the position before of the section that mostly comes next
    std::optional<SectionIndex> index;    // of those before; not before one is looked for
    std::optional<SectionParser> parser;
    ParsedSection scratch;
};

QclFollower::QclFollower(std::string p_path, const QclLimits& p_limits)
    : m_impl(std::make_unique<Impl>(std::move(p_path), p_limits))
{}

QclFollower::~QclFollower() = default;
QclFollower::QclFollower(QclFollower&& p_other) noexcept = default;
QclFollower& QclFollower::operator=(QclFollower&& p_other) noexcept = default;

QclDocument QclFollower::read() { return m_impl->read(); }

std::size_t QclFollower::sectionsParsed() const { return m_impl->parsed; }

}    // namespace qen::standalone
