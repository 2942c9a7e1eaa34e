// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

#include <utility>

/// The program's one object of a type that needs the application object when it ends, for
/// example because of its own thread. Made at the first call; it ends with the
/// application object rather than with the process. Main thread.
template<typename Type, typename Make>
Type &applicationSingleton(Make make)
{
    static Type *instance = nullptr;
    if (!instance) {
        instance = make();
        qAddPostRoutine([] { delete std::exchange(instance, nullptr); });
    }
    return *instance;
}
