// Linked into the test programs of a thread-sanitizer build only.
//
// QProcess (Qt 6.4, Linux 5.4 and later) starts a program with clone(CLONE_VM | CLONE_VFORK |
// CLONE_PIDFD): the child runs on a small stack in the parent's memory until it calls exec.
// The thread sanitizer of clang 14 (and 16) intercepts clone and then treats the child as a
// forked process, which trips its own check ("((!thr->slot)) != (0)") and kills the test
// before the pump simulator or brackwater-cli has started. The sanitizer's interceptor is a
// weak symbol; this definition takes its place and hands the call to the C library unchanged.
// The sanitizer loses nothing it could check: the child only calls exec, in uninstrumented Qt
// code, while the parent waits.

#include <dlfcn.h>
#include <sys/types.h>

#include <cstdarg>

extern "C" int clone(int (*function)(void*), void* stack, int flags, void* argument, ...) {
    using Clone = int (*)(int (*)(void*), void*, int, void*, ...);
    static const auto libraryClone = reinterpret_cast<Clone>(dlsym(RTLD_NEXT, "clone"));
    va_list rest;
    va_start(rest, argument);
    auto* parentThreadId = va_arg(rest, pid_t*);
    void* threadStorage = va_arg(rest, void*);
    auto* childThreadId = va_arg(rest, pid_t*);
    va_end(rest);
    return libraryClone(function, stack, flags, argument, parentThreadId, threadStorage,
                        childThreadId);
}
