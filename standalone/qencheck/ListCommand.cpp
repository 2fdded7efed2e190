#include "ListCommand.h"

#include "LineExcerpt.h"
#include "Listing.h"
#include "NamePattern.h"
#include "TextReport.h"

#include "definitions/Definitions.h"
#include "text/NearestName.h"

#include "StringUtilities.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qencheck {

using qen::StringUtilities;
using qen::standalone::Definitions;
using qen::standalone::nearestName;

namespace {

constexpr const char* k_listHelp = R"help(
PATTERN is looked for in names and quantities, and in the paths of a parameter's objects. Small
and capital letters are the same. With '*' (any characters) or '?' (one character) it must fit a
whole name, else stand somewhere in it. The name of a component finds its vector.

A column in which nothing would stand is left out; nothing is cut. "-" stands for dimensionless.
  variables   "vel: u, v, w" has the components "vel u", "vel v" and "vel w"; "vel (u, v, w)" has
              components named as they stand. "Used In" is the general availability, "Needs"
              the physical one: "!" for what must not be.
  callbacks   The result's units multiply those of the argument.
  parameters  They stand at the objects where their rules are defined.
  units       "Size" is one unit in base units.

Examples:
  qencheck list variables turbulence
  qencheck list variables --availability TURBULENT --availability '!LES' --scope PHASE
  qencheck list units 'Mass Flow*' --format json

Exit status: 0, also when nothing matches; 2 could not list.)help";

struct Kind {
    const char* word;
    Listing (*list)(const Definitions&);
    bool hasAvailability;
    bool hasScope;
};

constexpr std::array k_kinds {
    Kind {"variables", &listVariables, true, true},   Kind {"operators", &listOperators, true, false},
    Kind {"callbacks", &listCallbacks, false, false}, Kind {"parameters", &listParameters, false, false},
    Kind {"units", &listUnits, false, false},
};

std::vector<std::string> kindWords()
{
    std::vector<std::string> words;
    words.reserve(k_kinds.size());
    for (const Kind& kind : k_kinds)
        words.emplace_back(kind.word);
    return words;
}

struct ListArguments {
    std::string kind;
    std::string pattern;
    std::vector<std::string> availability;
    std::vector<std::string> scopes;
    std::string format = "text";
};

bool isSameWord(const std::string& p_one, const std::string& p_other)
{
    return StringUtilities::toLowerCase(p_one) == StringUtilities::toLowerCase(p_other);
}

bool holds(const std::vector<std::string>& p_words, const std::string& p_word)
{
    return std::any_of(p_words.begin(), p_words.end(),
                       [&](const std::string& p_one) { return isSameWord(p_one, p_word); });
}

bool holdsAll(const std::vector<std::string>& p_words, const std::vector<std::string>& p_wanted)
{
    return std::all_of(p_wanted.begin(), p_wanted.end(),
                       [&](const std::string& p_word) { return holds(p_words, p_word); });
}

/// What the user typed, as it may be shown on a terminal.
std::string shown(const std::string& p_text) { return excerpt(p_text, 1, 0, 80).text; }

/// An option that asks for one of the words that the definitions use.
struct WordOption {
    const char* name;
    const char* meaning;
    const std::vector<std::string>& wanted;
    std::vector<std::string> ListedItem::*words;
};

std::string didYouMean(const std::string& p_text, const std::vector<std::string>& p_known)
{
    const std::string nearest = nearestName(p_text, p_known);
    return nearest.empty() ? "" : " Did you mean '" + nearest + "'?";
}

/// The check of a KIND: what is wrong with it; an empty text for nothing.
std::string whyNoKind(const std::string& p_word)
{
    const std::vector<std::string> words = kindWords();
    if (std::find(words.begin(), words.end(), p_word) != words.end())
        return {};
    return fmt::format("there is no kind '{}'; expected {}.{}", shown(p_word), joined(words),
                       didYouMean(p_word, words));
}

void refuseUseless(const WordOption& p_option, const Kind& p_kind, bool p_isUseful, const char* p_useful)
{
    if (!p_isUseful && !p_option.wanted.empty())
        throw std::runtime_error(
            fmt::format("list {}: {} is for {} only", p_kind.word, p_option.name, p_useful));
}

void refuseUnknownWords(const WordOption& p_option, const Kind& p_kind, const Listing& p_listing)
{
    std::map<std::string, std::string> known;    // by lower case, as it was written first
    for (const ListedItem& item : p_listing.items)
        for (const std::string& word : item.*p_option.words)
            known.emplace(StringUtilities::toLowerCase(word), word);
    std::vector<std::string> words;
    words.reserve(known.size());
    for (const auto& [lower, word] : known)
        words.push_back(word);

    for (const std::string& wanted : p_option.wanted)
        if (!holds(words, wanted))
            throw std::runtime_error(fmt::format("list {}: there is no {} '{}'.{} Known: {}", p_kind.word,
                                                 p_option.meaning, shown(wanted), didYouMean(wanted, words),
                                                 words.empty() ? "none" : joined(words)));
}

bool matches(const ListedItem& p_item, const NamePattern& p_pattern)
{
    return std::any_of(p_item.names.begin(), p_item.names.end(),
                       [&](const std::string& p_name) { return p_pattern.matches(p_name); });
}

/// The name, or word of a name, that a pattern without any match may mean; or what else is known of it.
std::string hint(const Listing& p_listing, const Kind& p_kind, const std::string& p_pattern,
                 const Definitions& p_definitions)
{
    if (NamePattern(p_pattern).isGlob())
        return {};
    const auto meaning = p_definitions.units().parse(p_pattern);
    if (p_kind.list == &listUnits && meaning)
        return fmt::format(" It is understood as units: {:.15g} {}.", meaning->factor,
                           p_definitions.units().baseUnits(meaning->dims));

    std::vector<std::string> known;
    for (const ListedItem& item : p_listing.items)
        for (const std::string& name : item.names)
        {
            known.push_back(name);
            for (std::string& word : StringUtilities::stringToVector(name, ' '))
                known.push_back(std::move(word));
        }
    return didYouMean(p_pattern, known);
}

std::string nothingFound(const Listing& p_listing, const Kind& p_kind, const ListArguments& p_arguments,
                         const Definitions& p_definitions)
{
    if (p_listing.items.empty())
        return fmt::format("The definitions hold no {}.", p_kind.word);

    const NamePattern pattern(p_arguments.pattern);
    const bool patternAlone =
        std::none_of(p_listing.items.begin(), p_listing.items.end(),
                     [&](const ListedItem& p_item) { return matches(p_item, pattern); });
    if (patternAlone)
        return fmt::format("No {} match '{}'.{}", p_kind.word, shown(p_arguments.pattern),
                           hint(p_listing, p_kind, p_arguments.pattern, p_definitions));
    return fmt::format("No {} match all that is asked for.", p_kind.word);
}

std::string tableOf(const Listing& p_listing, const std::vector<const ListedItem*>& p_found, Colour p_colour)
{
    Table table(p_listing.columns);
    for (const ListedItem* item : p_found)
        table.addRow(item->cells);
    return table.text(p_colour);
}

std::string jsonOf(const std::vector<const ListedItem*>& p_found)
{
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const ListedItem* item : p_found)
        array.push_back(item->data);
    return array.dump(2) + "\n";    // what definitions hold is UTF-8: their reader admits nothing else
}

std::string countLine(const Kind& p_kind, std::size_t p_found, std::size_t p_all)
{
    std::string word = p_kind.word;
    if (p_all == 1)
        word.pop_back();
    return p_found == p_all ? fmt::format("{} {}\n", p_all, word)
                            : fmt::format("{} of {} {}\n", p_found, p_all, word);
}

void writeOut(const std::string& p_text)
{
    if (std::fwrite(p_text.data(), 1, p_text.size(), stdout) != p_text.size() || std::fflush(stdout) != 0)
        throw std::runtime_error("the list could not be written");
}

ExitStatus runList(const ListArguments& p_arguments, const Options& p_options)
{
    const Kind& kind = *std::find_if(k_kinds.begin(), k_kinds.end(),
                                     [&](const Kind& p_kind) { return p_arguments.kind == p_kind.word; });
    const WordOption availability {"--availability", "availability", p_arguments.availability,
                                   &ListedItem::availability};
    const WordOption scope {"--scope", "scope", p_arguments.scopes, &ListedItem::scopes};
    refuseUseless(availability, kind, kind.hasAvailability, "variables and operators");
    refuseUseless(scope, kind, kind.hasScope, "variables");

    const Definitions definitions(
        qen::standalone::definitionFolders(p_options.definitionFolders, p_options.executable));
    TextReport(stderr, p_options.colour).write(definitions.problems());
    if (definitions.hasErrors())
    {
        fmt::print(stderr, "The definitions hold errors: nothing was listed.\n");
        return k_couldNotCheck;
    }

    const Listing listing = kind.list(definitions);
    refuseUnknownWords(availability, kind, listing);
    refuseUnknownWords(scope, kind, listing);

    const NamePattern pattern(p_arguments.pattern);
    std::vector<const ListedItem*> found;
    for (const ListedItem& item : listing.items)
        if (matches(item, pattern) && holdsAll(item.availability, p_arguments.availability) &&
            holdsAll(item.scopes, p_arguments.scopes))
            found.push_back(&item);

    const bool asJson = p_arguments.format == "json";
    if (asJson)
        writeOut(jsonOf(found));
    else if (!found.empty())
        writeOut(tableOf(listing, found, colourOf(stdout, p_options.colour)));

    if (found.empty())
        fmt::print(stderr, "{}\n", nothingFound(listing, kind, p_arguments, definitions));
    else if (!asJson)
        fmt::print(stderr, "{}", countLine(kind, found.size(), listing.items.size()));
    return k_clean;
}

}    // namespace

Subcommand addListCommand(CLI::App& p_command)
{
    CLI::App* const subcommand =
        p_command.add_subcommand("list", "Show the variables, operators, callbacks, parameters or units");
    const auto arguments = std::make_shared<ListArguments>();
    subcommand->add_option("KIND", arguments->kind, "What to list")
        ->required()
        ->check(whyNoKind, "{" + fmt::format("{}", fmt::join(kindWords(), ",")) + "}");
    subcommand->add_option("PATTERN", arguments->pattern, "Show only what has such a name or quantity");
    subcommand
        ->add_option("--availability", arguments->availability,
                     "Show only what has this availability; may be given again: all must be there")
        ->type_name("KEYWORD")
        ->allow_extra_args(false);
    subcommand
        ->add_option("--scope", arguments->scopes,
                     "Show only variables with this scope; may be given again: all must be there")
        ->type_name("WORD")
        ->allow_extra_args(false);
    subcommand->add_option("--format", arguments->format, "A table for people, or JSON for programs")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT")
        ->capture_default_str();
    subcommand->footer(k_listHelp);
    return {subcommand, [arguments](const Options& p_options) { return runList(*arguments, p_options); }};
}

}    // namespace qencheck
