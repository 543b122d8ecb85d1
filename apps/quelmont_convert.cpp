#include "convert/convert_command.h"

#include <iostream>

#include <unistd.h>

int main(int argc, char** argv) {
    return quelmont::ConvertCommand({argv + 1, argv + argc}, std::cout, std::cerr,
                                    isatty(STDERR_FILENO) != 0);
}
