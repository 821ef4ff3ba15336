// Loads all libraries into a program that knows none of them, uses them, unloads them, and again.
#include "Check.h"

#include <thread>

#include <dlfcn.h>

namespace {

using orlix::test::check;

void useOnce(const char* file, int scope)
{
    void* const library = ::dlopen(file, RTLD_NOW | scope);
    if (library == nullptr) {
        check(false, ::dlerror());
        return;
    }
    const auto use = reinterpret_cast<bool (*)(unsigned long, unsigned long)>(::dlsym(library, "useOperators"));
    check(use(40, 30), "a use on the loading thread");
    std::thread([&] { check(use(40, 30), "a use on a thread that ends before"); }).join();
    check(use(3000, 2000), "a use by several threads");
    const auto places = orlix::test::findMapped("libORLIX");
    check(::dlclose(library) == 0, "closing what uses the operators");
    check(!orlix::test::isMapped("libORLIX"), "the libraries are still there after they were unloaded");
    orlix::test::block(places);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: unloadAll <library that uses the operators>\n", stderr);
        return 2;
    }
    for (const int scope : {RTLD_LOCAL, RTLD_GLOBAL, RTLD_LOCAL}) {
        useOnce(argv[1], scope);
    }
    return orlix::test::g_nbFailures == 0 ? 0 : 1;
}
