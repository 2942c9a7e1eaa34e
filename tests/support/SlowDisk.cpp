// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program, a disk that takes two seconds to replace a file.

#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <thread>

extern "C" int rename(const char *from, const char *to) noexcept
{
    std::this_thread::sleep_for(std::chrono::seconds(2));
    using Rename = int (*)(const char *, const char *);
    return reinterpret_cast<Rename>(dlsym(RTLD_NEXT, "rename"))(from, to);
}
