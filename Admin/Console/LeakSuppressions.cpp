// The font configuration library that PDF output goes through keeps allocations that it
// never frees and the leak checker reports. They are the library's, not ours; this hook
// tells the checker of the sanitizer build to pass over them.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
