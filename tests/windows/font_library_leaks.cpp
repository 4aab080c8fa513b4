// The font library keeps its configuration until the process ends and never gives it back: no leak of ours. Nothing
// calls this but the leak sanitizer, which knows it by this name.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
