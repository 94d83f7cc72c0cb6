#include "harden/disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <map>

namespace {

using harden::DiskCall;
using harden::Fault;

struct Watched {
    Fault fault;
    int count = 0;
    bool was_disturbed = false;
    std::vector<DiskCall> calls;
    std::map<int, std::string> open_files;
};
thread_local Watched* watched = nullptr;  // null: calls go straight through

template <class Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// One counted call. `work` does it, or a part of it where `half` is set, and gives -1 where it fails.
template <class Work>
auto counted(bool has_parts, Work work) -> decltype(work(false)) {
    if (!watched) return work(false);
    const int number = watched->count++;
    if (number < watched->fault.at || (number > watched->fault.at && !watched->fault.lasts)) return work(false);
    const Fault::Kind kind = watched->fault.kind;
    watched->was_disturbed = kind != Fault::NONE && (kind != Fault::SHORT_WRITE || has_parts);
    if (kind == Fault::KILL_AHEAD) std::raise(SIGKILL);
    if (kind == Fault::ERROR) {
        errno = watched->fault.error;
        return -1;
    }
    const auto result = work(kind == Fault::SHORT_WRITE || kind == Fault::KILL_AMID);
    if (kind == Fault::KILL_AMID || kind == Fault::KILL_BEHIND) std::raise(SIGKILL);
    return result;
}
template <class Work>
auto counted(Work work) {
    return counted(false, [&work](bool) { return work(); });
}

void note(DiskCall::Kind kind, std::string path, std::string to = {}) {
    if (watched) watched->calls.push_back({kind, std::move(path), std::move(to)});
}
std::string name_of(int file) {
    if (!watched) return {};
    const auto found = watched->open_files.find(file);
    return found == watched->open_files.end() ? std::string() : found->second;
}

}  // namespace

// Ahead of the C library's own, for every library of the process.
extern "C" {

int mkstemp(char* pattern) {
    return counted([&] {
        const int file = real<int(char*)>("mkstemp")(pattern);
        if (watched && file >= 0) {
            watched->open_files[file] = pattern;
            note(DiskCall::CREATE, pattern);
        }
        return file;
    });
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const auto work = [&] {
        const int file = real<int(const char*, int, ...)>("open")(path, flags, mode);
        if (watched && file >= 0) watched->open_files[file] = path;
        return file;
    };
    return counted(work);
}

ssize_t write(int file, const void* bytes, size_t count) {
    return counted(count > 1, [&](bool half) {
        const size_t length = half ? (count + 1) / 2 : count;
        const ssize_t written = real<ssize_t(int, const void*, size_t)>("write")(file, bytes, length);
        if (watched && written > 0)
            note(DiskCall::WRITE, name_of(file), {static_cast<const char*>(bytes), static_cast<size_t>(written)});
        return written;
    });
}

int fchmod(int file, mode_t mode) {
    return counted([&] { return real<int(int, mode_t)>("fchmod")(file, mode); });
}

int fsync(int file) {
    return counted([&] {
        const int result = real<int(int)>("fsync")(file);
        if (result == 0) note(DiskCall::SYNC, name_of(file));
        return result;
    });
}

int close(int file) {
    // Also a call that fails leaves the file closed.
    const int result = real<int(int)>("close")(file);
    return counted([result] { return result; });
}

int rename(const char* from, const char* to) {
    return counted([&] {
        const int result = real<int(const char*, const char*)>("rename")(from, to);
        if (result == 0) note(DiskCall::RENAME, from, to);
        return result;
    });
}

int link(const char* from, const char* to) {
    if (watched && watched->fault.no_second_names) {
        errno = EPERM;
        return -1;
    }
    return counted([&] {
        const int result = real<int(const char*, const char*)>("link")(from, to);
        if (result == 0) note(DiskCall::LINK, from, to);
        return result;
    });
}

int unlink(const char* path) {
    const int result = real<int(const char*)>("unlink")(path);
    if (result == 0) note(DiskCall::UNLINK, path);
    return result;
}

}  // extern "C"

namespace harden {

DiskWatch::DiskWatch(const Fault& fault) {
    static thread_local Watched state;
    state = {fault, 0, false, {}, {}};
    watched = &state;
}

DiskWatch::~DiskWatch() { watched = nullptr; }

int DiskWatch::count() const { return watched->count; }

bool DiskWatch::was_disturbed() const { return watched->was_disturbed; }

const std::vector<DiskCall>& DiskWatch::calls() const { return watched->calls; }

}  // namespace harden
