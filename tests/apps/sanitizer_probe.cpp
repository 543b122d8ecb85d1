// Makes the fault that its argument names, for the sanitizers to find.

#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

namespace {

/// Hides a value from the compiler, which would report the faults itself.
template <typename T>
T Unknown(T value) {
    volatile T hidden = value;
    return hidden;
}

void WriteBehindABlock() {
    std::vector<char> block(Unknown<std::size_t>(8));
    block.data()[Unknown<std::size_t>(8)] = 1;
}

int Overflow() { return std::numeric_limits<int>::max() + Unknown(1); }

void Lose() {
    void* volatile block = std::malloc(Unknown<std::size_t>(64));
    block = nullptr;
    static_cast<void>(block);
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view fault = argc > 1 ? argv[1] : "none";
    if (fault == "memory") {
        WriteBehindABlock();
    } else if (fault == "overflow") {
        return Overflow() == 0 ? 1 : 0;
    } else if (fault == "leak") {
        Lose();
    }
    return 0;
}
