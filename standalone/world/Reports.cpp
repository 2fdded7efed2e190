#include "world/World.h"

#include "ErrorReporter.h"
#include "QENAssertImpl.h"

#include <iostream>

namespace qen {

ErrorReporter& ErrorReporter::instance()
{
    static ErrorReporter reporter;
    return reporter;
}

void ErrorReporter::report(const ErrorMsg& p_message)
{
    const standalone::World& world = standalone::currentWorld();
    if (world.onReport)
        world.onReport(p_message);
    else
        std::cerr << p_message.getClass() << "::" << p_message.getFunction() << ": " << p_message.getMessage()
                  << '\n';
}

void QENAssertImpl::assertFail(const char* p_message, const char* p_file, int p_line)
{
    const standalone::World& world = standalone::currentWorld();
    if (world.onAssertion)
        world.onAssertion(p_message, p_file, p_line);
    else
        std::cerr << "internal error: " << p_message << " (" << p_file << ", line " << p_line << ")\n";
}

}    // namespace qen
