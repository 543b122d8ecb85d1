#include "desktop/desktop.h"

int main(int argc, char** argv) { return quelmont::RunDesktop(argc, argv); }
