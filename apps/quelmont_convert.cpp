#include "convert/convert_command.h"
#include "core/stop_signals.h"

#include <iostream>

#include <unistd.h>

int main(int argc, char** argv) {
    quelmont::TakeFailedWritesAsErrors();
    return quelmont::ConvertCommand({argv + 1, argv + argc}, std::cout, std::cerr,
                                    isatty(STDERR_FILENO) != 0);
}
