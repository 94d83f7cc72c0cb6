#pragma once

// Stands between this program and the disk: counts the calls that change files, makes a chosen one fail or the last
// one that this process ever makes, and notes all of them.

#include <string>
#include <vector>

namespace harden {

/// What becomes of the call with the number `at`, counted from 0.
struct Fault {
    enum Kind {
        NONE,
        ERROR,        // it does nothing and reports `error`
        SHORT_WRITE,  // it writes half; where it is no write, it works
        KILL_AHEAD,   // the process dies before it,
        KILL_AMID,    // when half is written,
        KILL_BEHIND,  // or at once behind it
    };
    Kind kind = NONE;
    int at = 0;
    int error = 0;
    /// Of an error: all calls behind that one fail too, as on a disk that is full and stays it.
    bool lasts = false;
    /// No file gets a second name, as on file systems that know none.
    bool no_second_names = false;
};

/// A call that worked.
struct DiskCall {
    enum Kind { CREATE, WRITE, SYNC, RENAME, LINK, UNLINK };
    Kind kind;
    std::string path;  // also of what is written or flushed: under which name it was opened
    std::string to;    // RENAME, LINK: the new name. WRITE: the bytes
};

/// From here to the end of its life the calls of this thread are counted.
class DiskWatch {
public:
    explicit DiskWatch(const Fault& fault = {});
    ~DiskWatch();
    DiskWatch(const DiskWatch&) = delete;
    DiskWatch& operator=(const DiskWatch&) = delete;
    int count() const;
    /// That the fault has happened.
    bool was_disturbed() const;
    const std::vector<DiskCall>& calls() const;
};

}  // namespace harden
