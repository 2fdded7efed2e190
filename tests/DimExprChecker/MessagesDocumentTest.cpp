#include "CheckMessages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace qen {
namespace {

/// The catalogue as people read it.
std::string messagesDocument()
{
    std::string text =
        "# Messages\n"
        "\n"
        "Every text that the library can raise, with the identifier that `qencheck` shows in square "
        "brackets, "
        "the level of the\nrecord, and what the placeholders stand for. Printed from the catalogue.\n";
    for (const CheckMessage& message : CheckMessages::all())
    {
        text += "\n## " + std::string(message.identifier) + "\n\n";
        text += message.level == ExpressionErrors::Warning ? "Warning." : "Error.";
        for (std::size_t i = 0; i < message.placeholders.size(); ++i)
            text += " %" + std::to_string(i + 1) + ": " + message.placeholders[i] + ".";
        text += "\n\n```\n" + std::string(message.text) + "\n```\n";
    }
    return text;
}

std::string readFile(const std::string& p_path)
{
    std::ifstream file(p_path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(MessagesDocument, IsWhatTheCatalogueSays)
{
    const std::string current = messagesDocument();
    const bool isCurrent = readFile(QEN_MESSAGES_DOCUMENT) == current;
    if (!isCurrent)
        std::ofstream(QEN_CURRENT_MESSAGES) << current;

    EXPECT_TRUE(isCurrent) << "to be replaced by " QEN_CURRENT_MESSAGES;
}

}    // namespace
}    // namespace qen
