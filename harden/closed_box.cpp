#include "harden/closed_box.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>

namespace harden {
namespace {

constexpr std::array allowed = {
    SYS_brk,   SYS_mmap,       SYS_munmap,        SYS_mremap,    SYS_madvise,      SYS_mprotect, SYS_futex,
    SYS_write, SYS_writev,     SYS_clock_gettime, SYS_getrusage, SYS_gettimeofday, SYS_time,     SYS_getrandom,
    SYS_exit,  SYS_exit_group, SYS_rt_sigreturn,  SYS_lseek,     SYS_sched_yield,
};

volatile std::sig_atomic_t tried = 0;
volatile std::sig_atomic_t last_tried = 0;

// The call has not been made; to its caller it has failed.
void note_call(int, siginfo_t* info, void* context) {
    tried = tried + 1;
    last_tried = info->si_syscall;
    static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RAX] = -EPERM;
}

}  // namespace

bool forbid_all_but_computing() {
    struct sigaction action = {};
    action.sa_sigaction = &note_call;
    action.sa_flags = SA_SIGINFO;
    if (sigaction(SIGSYS, &action, nullptr) != 0) return false;

    // Compares the number of the call with each that is allowed.
    std::array<sock_filter, allowed.size() + 3> program{};
    program[0] = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr));
    for (std::size_t at = 0; at < allowed.size(); ++at) {
        const auto to_the_end = static_cast<std::uint8_t>(allowed.size() - at);
        program[at + 1] = BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(allowed[at]), to_the_end, 0);
    }
    program[allowed.size() + 1] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRAP);
    program[allowed.size() + 2] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

int forbidden_calls() { return tried; }

int last_forbidden_call() { return last_tried; }

}  // namespace harden
