#include "commandline/draw_command.h"

#include <iostream>

int main(int argc, char** argv) {
    return quelmont::DrawCommand({argv + 1, argv + argc}, std::cout, std::cerr);
}
