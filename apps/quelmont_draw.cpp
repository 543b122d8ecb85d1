#include "commandline/draw_command.h"
#include "core/stop_signals.h"

#include <iostream>

int main(int argc, char** argv) {
    quelmont::TakeFailedWritesAsErrors();
    return quelmont::DrawCommand({argv + 1, argv + argc}, std::cout, std::cerr);
}
