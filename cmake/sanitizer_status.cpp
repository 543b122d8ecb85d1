/// What the sanitizers ask a program at its start. A program that they end is told by this status from one
/// that refuses its work with 1 or 2.
extern "C" {
const char* __asan_default_options();
const char* __ubsan_default_options();

const char* __asan_default_options() { return "exitcode=66"; }
const char* __ubsan_default_options() { return "exitcode=66:print_stacktrace=1"; }
}
