/// @file
/// Uses the standalone host from a program of one's own: installs a world, and takes it away again.

#include "world/World.h"

#include <iostream>

int main()
{
    qen::standalone::World world;
    world.onAssertion = [](const std::string& p_message, const std::string&, int) {
        std::cout << p_message << '\n';
    };
    {
        const qen::standalone::WorldScope scope(world);
        qen::standalone::currentWorld().onAssertion("a world is installed", "", 0);
    }
    return qen::standalone::currentWorld().onAssertion ? 1 : 0;
}
