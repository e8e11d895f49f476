/// libgsf 1.14.50 forgets a directory entry (some hundred bytes) where a damaged container makes it give up
/// half-way. The stack of such a leak shows nothing but the allocating library. Leaks of ours come from
/// operator new or QArrayData.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libglib-2.0\n";
}
