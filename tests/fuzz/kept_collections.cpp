// Counted references keep a collection that was put into itself.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier): the sanitizer's name

extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier): as above
  return "leak:qvn::host::Collection\n";
}
