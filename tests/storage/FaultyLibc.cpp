#include "storage/FaultyCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

// The C library's functions that a save calls; each can be made to fail.

using FaultyCalls::errorFor;

namespace {

/// Opening a file without a name counts as a separate function, because not every file system supports it.
const char* nameOfOpen(int flags) {
    return (flags & O_TMPFILE) == O_TMPFILE ? "tmpfile" : "open";
}

int fail(int error) {
    errno = error;
    return -1;
}

/// The C library's own function, which this file replaces.
template <typename Function>
Function* next(Function* /*type*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// Each function is declared as in the C library and contains `return failing ? failure : the real function`.
#define CORVELLA_REAL(function) static const auto real = next(&::function, #function)

// The headers use reserved names for the parameters.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open(const char* path, int flags, ...) {
    CORVELLA_REAL(open);
    const int error = errorFor(nameOfOpen(flags), path);
    std::va_list arguments;
    va_start(arguments, flags);
    // open() has a mode argument only with these two flags.
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return error ? fail(error) : real(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    CORVELLA_REAL(open64);
    const int error = errorFor(nameOfOpen(flags), path);
    std::va_list arguments;
    va_start(arguments, flags);
    // open() has a mode argument only with these two flags.
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return error ? fail(error) : real(path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    CORVELLA_REAL(write);
    const int error = errorFor("write", descriptor);
    FaultyCalls::noteMode(descriptor);
    if (error == FaultyCalls::kShort)
        return real(descriptor, bytes, std::max<size_t>(size / 2, 1));
    return error ? fail(error) : real(descriptor, bytes, size);
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t offset) {
    CORVELLA_REAL(pwrite);
    const int error = errorFor("write", descriptor);
    if (error == FaultyCalls::kShort)
        return real(descriptor, bytes, std::max<size_t>(size / 2, 1), offset);
    return error ? fail(error) : real(descriptor, bytes, size, offset);
}

int futimens(int descriptor, const struct timespec times[2]) noexcept {
    CORVELLA_REAL(futimens);
    const int error = errorFor("futimens", descriptor);
    return error ? fail(error) : real(descriptor, times);
}

int flock(int descriptor, int operation) noexcept {
    CORVELLA_REAL(flock);
    const int error = errorFor("flock", descriptor);
    return error ? fail(error) : real(descriptor, operation);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    CORVELLA_REAL(read);
    const int error = errorFor("read", descriptor);
    return error ? fail(error) : real(descriptor, bytes, size);
}

ssize_t sendfile(int to, int from, off_t* offset, size_t size) noexcept {
    CORVELLA_REAL(sendfile);
    const int error = errorFor("sendfile", to);
    FaultyCalls::noteMode(to);
    return error ? fail(error) : real(to, from, offset, size);
}

int ioctl(int descriptor, unsigned long request, ...) noexcept {
    CORVELLA_REAL(ioctl);
    std::va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    const int error = errorFor("ioctl", descriptor);
    return error ? fail(error) : real(descriptor, request, argument);
}

int close(int descriptor) {
    CORVELLA_REAL(close);
    const int error = errorFor("close", descriptor);
    // The descriptor is closed even when close() reports that the last bytes could not be written.
    const int result = real(descriptor);
    return error ? fail(error) : result;
}

int fsync(int descriptor) {
    const int error = errorFor("fsync", descriptor);
    return error ? fail(error) : 0;
}

int fdatasync(int descriptor) {
    const int error = errorFor("fdatasync", descriptor);
    return error ? fail(error) : 0;
}

int ftruncate64(int descriptor, off64_t size) noexcept {
    CORVELLA_REAL(ftruncate64);
    const int error = errorFor("ftruncate", descriptor);
    return error ? fail(error) : real(descriptor, size);
}

int rename(const char* from, const char* to) noexcept {
    CORVELLA_REAL(rename);
    const int error = errorFor("rename", to, from);
    return error ? fail(error) : real(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    CORVELLA_REAL(renameat2);
    const int error = errorFor("renameat2", to, from);
    return error ? fail(error) : real(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    CORVELLA_REAL(link);
    const int error = errorFor("link", to, from);
    return error ? fail(error) : real(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    CORVELLA_REAL(linkat);
    const int error = errorFor("link", to, from);
    return error ? fail(error) : real(fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept {
    CORVELLA_REAL(unlink);
    const int error = errorFor("unlink", path);
    return error ? fail(error) : real(path);
}

int rmdir(const char* path) noexcept {
    CORVELLA_REAL(rmdir);
    const int error = errorFor("rmdir", path);
    return error ? fail(error) : real(path);
}

int chmod(const char* path, mode_t mode) noexcept {
    CORVELLA_REAL(chmod);
    const int error = errorFor("chmod", path);
    return error ? fail(error) : real(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    CORVELLA_REAL(fchmod);
    const int error = errorFor("chmod", descriptor);
    return error ? fail(error) : real(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
    CORVELLA_REAL(fchown);
    const int error = errorFor("chown", descriptor);
    return error ? fail(error) : real(descriptor, owner, group);
}

int fsetxattr(int descriptor, const char* name, const void* value, size_t size, int flags) noexcept {
    CORVELLA_REAL(fsetxattr);
    const int error = errorFor("setxattr", descriptor);
    return error ? fail(error) : real(descriptor, name, value, size, flags);
}

int fremovexattr(int descriptor, const char* name) noexcept {
    CORVELLA_REAL(fremovexattr);
    const int error = errorFor("removexattr", descriptor);
    return error ? fail(error) : real(descriptor, name);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    CORVELLA_REAL(getxattr);
    const int error = errorFor("getxattr", path);
    return error ? fail(error) : real(path, name, value, size);
}

ssize_t listxattr(const char* path, char* names, size_t size) noexcept {
    CORVELLA_REAL(listxattr);
    const int error = errorFor("listxattr", path);
    return error ? fail(error) : real(path, names, size);
}

int mkdir(const char* path, mode_t mode) noexcept {
    CORVELLA_REAL(mkdir);
    const int error = errorFor("mkdir", path);
    return error ? fail(error) : real(path, mode);
}

int stat(const char* path, struct stat* status) noexcept {
    CORVELLA_REAL(stat);
    const int error = errorFor("stat", path);
    return error ? fail(error) : real(path, status);
}

int stat64(const char* path, struct stat64* status) noexcept {
    CORVELLA_REAL(stat64);
    const int error = errorFor("stat", path);
    return error ? fail(error) : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    CORVELLA_REAL(lstat);
    const int error = errorFor("lstat", path);
    return error ? fail(error) : real(path, status);
}

int lstat64(const char* path, struct stat64* status) noexcept {
    CORVELLA_REAL(lstat64);
    const int error = errorFor("lstat", path);
    return error ? fail(error) : real(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept {
    CORVELLA_REAL(fstat);
    const int error = errorFor("fstat", descriptor);
    return error ? fail(error) : real(descriptor, status);
}

int fstat64(int descriptor, struct stat64* status) noexcept {
    CORVELLA_REAL(fstat64);
    const int error = errorFor("fstat", descriptor);
    return error ? fail(error) : real(descriptor, status);
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
    CORVELLA_REAL(statx);
    const int error = *path ? errorFor("statx", path) : errorFor("statx", folder);
    return error ? fail(error) : real(folder, path, flags, mask, status);
}

int access(const char* path, int mode) noexcept {
    CORVELLA_REAL(access);
    const int error = errorFor("access", path);
    return error ? fail(error) : real(path, mode);
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    CORVELLA_REAL(readlink);
    const int error = errorFor("readlink", path);
    return error ? fail(error) : real(path, target, size);
}

char* realpath(const char* path, char* resolved) noexcept {
    CORVELLA_REAL(realpath);
    const int error = errorFor("realpath", path);
    if (error) {
        errno = error;
        return nullptr;
    }
    return real(path, resolved);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
