#include "UsageErrors.h"

#include "LineExcerpt.h"

#include "text/NearestName.h"

#include <fmt/format.h>

#include <cstddef>
#include <vector>

namespace qencheck {
namespace {

/// "check, lint or list".
std::string listed(const std::vector<std::string>& p_words)
{
    std::string text;
    for (std::size_t i = 0; i < p_words.size(); ++i)
        text += (i == 0 ? "" : i + 1 == p_words.size() ? " or " : ", ") + p_words[i];
    return text;
}

std::vector<std::string> commandsOf(const CLI::App& p_command)
{
    std::vector<std::string> names;
    for (const CLI::App* subcommand : p_command.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(subcommand->get_name());
    return names;
}

/// The subcommand that was given; the command itself where there is none.
const CLI::App& parsedCommand(const CLI::App& p_command)
{
    const std::vector<CLI::App*> parsed = p_command.get_subcommands();
    return parsed.empty() ? p_command : *parsed.front();
}

std::string missingCommand(const CLI::App& p_command)
{
    const std::vector<std::string> commands = commandsOf(p_command);
    for (const std::string& word : p_command.remaining())
    {
        if (word.starts_with('-'))
            continue;
        const std::string nearest = qen::standalone::nearestName(word, commands);
        return fmt::format("there is no command '{}'; expected {}.{}", excerpt(word, 1, 0, 80).text,
                           listed(commands), nearest.empty() ? "" : " Did you mean '" + nearest + "'?");
    }
    return fmt::format("a command is missing; expected {}.", listed(commands));
}

}    // namespace

std::string usageError(const CLI::App* p_command, const CLI::Error& p_error)
{
    const CLI::App& command = parsedCommand(*p_command);
    std::string message = p_error.what();
    if (&command == p_command && p_error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError))
        message = missingCommand(*p_command);
    else if (&command != p_command && !message.starts_with(command.get_name() + ": "))
        message = command.get_name() + ": " + message;

    const std::string help = &command == p_command ? "qencheck" : "qencheck " + command.get_name();
    return fmt::format("qencheck: {}\nSee '{} --help'.\n", message, help);
}

}    // namespace qencheck
