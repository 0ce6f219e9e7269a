// What the engine's libraries keep until the process ends and the leak sanitizer cannot see them use any more: the big
// numbers of the log-in protocol, the tables of the Unicode library and the converters of file names.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier): the sanitizer's name

extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier): as above
  return "leak:libtommath\nleak:libicuuc\nleak:gconv\n";
}
