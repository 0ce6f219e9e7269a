// What the engine's libraries keep until the process ends and the leak sanitizer cannot see them use any more: the big
// numbers of the log-in protocol, the tables of the Unicode library, the converters of file names, the settings of
// fonts and, under the name of the library that allocates them, conditions and refused statements of the reader of
// Access files.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier): the sanitizer's name

extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier): as above
  return "leak:libtommath\nleak:libicuuc\nleak:gconv\nleak:libglib-2.0\nleak:libfontconfig\n";
}

// The program's standard error is compared whole.
extern "C" const char* __lsan_default_options();  // NOLINT(bugprone-reserved-identifier): as above

extern "C" const char* __lsan_default_options() {  // NOLINT(bugprone-reserved-identifier): as above
  return "print_suppressions=0";
}

// A library that is unloaded takes its threads' variables along; the leak sanitizer would still read where they were,
// and ends the test when that memory is gone.
extern "C" const char* __asan_default_options();  // NOLINT(bugprone-reserved-identifier): as above

extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier): as above
  return "intercept_tls_get_addr=0";
}
