// LeakSanitizer asks for this by its name: glibc keeps the list that it makes of LOCPATH.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:__argz_add_sep\n"; }
