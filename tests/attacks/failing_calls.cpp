// Loaded ahead of a program, it lets one call of the system fail, or all from one on:
//
//     MRL_FAIL_CALL=N      the n-th call that opens, reads, writes, syncs, locks, names or removes a file
//     MRL_FAIL_MALLOC=N    the n-th allocation
//     MRL_FAIL_ERRNO=E     with this number (5: EIO)
//     MRL_FAIL_ALL=1       and all that follow
//     MRL_CALLS_FILE=F     writes the numbers of calls and allocations there at the end
//     MRL_FILE_SYSTEM=T    every file lies on a file system of this type, as statfs tells it

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

long numberOf(const char* variable)
{
    const char* text = std::getenv(variable);
    return text != nullptr ? std::strtol(text, nullptr, 0) : 0;
}

/// The calls of one kind, counted.
struct Counter
{
    long done = 0;
    long failing = 0;
    bool all = false;
    bool fails()
    {
        ++done;
        return failing > 0 && (all ? done >= failing : done == failing);
    }
};

Counter calls;
Counter allocations;
int number = EIO;
bool ready = false; // what the loader does by itself never fails

bool callFails()
{
    if (!ready || !calls.fails()) {
        return false;
    }
    errno = number;
    return true;
}

__attribute__((constructor)) void begin()
{
    calls = {0, numberOf("MRL_FAIL_CALL"), numberOf("MRL_FAIL_ALL") != 0};
    allocations = {0, numberOf("MRL_FAIL_MALLOC"), numberOf("MRL_FAIL_ALL") != 0};
    if (numberOf("MRL_FAIL_ERRNO") != 0) {
        number = static_cast<int>(numberOf("MRL_FAIL_ERRNO"));
    }
    ready = true;
}

__attribute__((destructor)) void end()
{
    ready = false;
    if (const char* name = std::getenv("MRL_CALLS_FILE")) {
        if (FILE* file = std::fopen(name, "w")) {
            std::fprintf(file, "%ld %ld\n", calls.done, allocations.done);
            std::fclose(file);
        }
    }
}

template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

// glibc's own, so that the allocation of the first one needs no search.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);

void* malloc(std::size_t size)
{
    if (ready && allocations.fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size)
{
    if (ready && allocations.fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}
void* realloc(void* old, std::size_t size)
{
    if (ready && allocations.fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(old, size);
}

#define MRL_CALL(RESULT, NAME, PARAMETERS, ARGUMENTS)                                                        \
    RESULT NAME PARAMETERS                                                                                   \
    {                                                                                                        \
        static const auto real = next(&NAME, #NAME);                                                         \
        return callFails() ? -1 : real ARGUMENTS;                                                            \
    }

MRL_CALL(ssize_t, read, (int file, void* to, size_t size), (file, to, size))
MRL_CALL(ssize_t, pread, (int file, void* to, size_t size, off_t at), (file, to, size, at))
MRL_CALL(ssize_t, pread64, (int file, void* to, size_t size, off64_t at), (file, to, size, at))
MRL_CALL(ssize_t, write, (int file, const void* from, size_t size), (file, from, size))
MRL_CALL(ssize_t, pwrite, (int file, const void* from, size_t size, off_t at), (file, from, size, at))
MRL_CALL(ssize_t, pwrite64, (int file, const void* from, size_t size, off64_t at), (file, from, size, at))
MRL_CALL(int, fsync, (int file), (file))
MRL_CALL(int, fdatasync, (int file), (file))
MRL_CALL(int, ftruncate, (int file, off_t size), (file, size))
MRL_CALL(int, ftruncate64, (int file, off64_t size), (file, size))
MRL_CALL(int, unlink, (const char* name), (name))
MRL_CALL(int, rename, (const char* from, const char* to), (from, to))
MRL_CALL(int, renameat2, (int a, const char* from, int b, const char* to, unsigned flags),
         (a, from, b, to, flags))
MRL_CALL(int, link, (const char* from, const char* to), (from, to))
MRL_CALL(int, flock, (int file, int how), (file, how))
MRL_CALL(int, access, (const char* name, int how), (name, how))

#define MRL_OPEN(NAME)                                                                                       \
    int NAME(const char* name, int flags, ...)                                                               \
    {                                                                                                        \
        static const auto real = next(&NAME, #NAME);                                                         \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const auto mode = va_arg(rest, mode_t);                                                              \
        va_end(rest);                                                                                        \
        return callFails() ? -1 : real(name, flags, mode);                                                   \
    }

MRL_OPEN(open)
MRL_OPEN(open64)

#define MRL_FCNTL(NAME)                                                                                      \
    int NAME(int file, int what, ...)                                                                        \
    {                                                                                                        \
        static const auto real = next(&NAME, #NAME);                                                         \
        va_list rest;                                                                                        \
        va_start(rest, what);                                                                                \
        void* argument = va_arg(rest, void*);                                                                \
        va_end(rest);                                                                                        \
        return callFails() ? -1 : real(file, what, argument);                                                \
    }

MRL_FCNTL(fcntl)
MRL_FCNTL(fcntl64)

int statfs(const char* name, struct statfs* out)
{
    static const auto real = next(&statfs, "statfs");
    const int result = real(name, out);
    if (numberOf("MRL_FILE_SYSTEM") != 0) {
        out->f_type = static_cast<decltype(out->f_type)>(numberOf("MRL_FILE_SYSTEM"));
    }
    return result;
}
int statfs64(const char* name, struct statfs64* out)
{
    static const auto real = next(&statfs64, "statfs64");
    const int result = real(name, out);
    if (numberOf("MRL_FILE_SYSTEM") != 0) {
        out->f_type = static_cast<decltype(out->f_type)>(numberOf("MRL_FILE_SYSTEM"));
    }
    return result;
}

} // extern "C"
