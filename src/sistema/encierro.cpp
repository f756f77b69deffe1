#include "sistema/encierro.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <linux/landlock.h>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

void fLimitar(__rlimit_resource recurso, rlim_t lngCuanto)
{
    const rlimit limite{lngCuanto, lngCuanto};
    setrlimit(recurso, &limite);
}

/// What Landlock is asked to take care of. Source: Documentation/userspace-api/landlock.rst. Not
/// that of linux/landlock.h, which knows as many fields as Linux had when it was packed; a kernel
/// takes a longer one as long as what it does not know is 0.
struct clsCuidado {
    std::uint64_t lngArchivos; ///< everything that can be done with files, a bit each
    std::uint64_t lngPuertos;  ///< binding and connecting TCP
    std::uint64_t lngAmbitos;  ///< abstract sockets, signals
};

/// @param intVersion of Landlock, 1 or more.
clsCuidado fCuidado(long intVersion)
{
    constexpr std::array lstArchivos{13, 14, 15, 15, 16}; // bits that versions 1 to 5 know
    const auto lngLugar = static_cast<std::size_t>(intVersion) - 1;
    const int intBits = lngLugar < lstArchivos.size() ? lstArchivos[lngLugar] : lstArchivos.back();
    return {(std::uint64_t{1} << intBits) - 1, intVersion >= 4 ? 3U : 0U,
            intVersion >= 6 ? 3U : 0U};
}

using clsFiltro = std::unique_ptr<void, decltype(&seccomp_release)>;

/// What is allowed whatever it is given: memory, threads, the time, the end.
constexpr int lstLibres[] = {
    SCMP_SYS(pread64),
    SCMP_SYS(close),
    SCMP_SYS(poll),
    SCMP_SYS(ppoll),
    SCMP_SYS(brk),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(madvise),
    SCMP_SYS(futex),
    SCMP_SYS(set_robust_list),
    SCMP_SYS(rseq),
    SCMP_SYS(sched_yield),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(getcpu),
    SCMP_SYS(sysinfo),
    SCMP_SYS(getrandom),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(time),
    SCMP_SYS(nanosleep),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(exit),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(exit_group),
};

/// What is allowed depending on one of its arguments.
struct clsCondicion {
    int intLlamada;
    scmp_arg_cmp condicion;
};
const clsCondicion lstCondiciones[] = {
    {SCMP_SYS(recvmsg),    SCMP_A0(SCMP_CMP_EQ, STDIN_FILENO)},
    {                  SCMP_SYS(write), SCMP_A0(SCMP_CMP_EQ,      STDOUT_FILENO)             },
    {     SCMP_SYS(mmap),           SCMP_A2(SCMP_CMP_MASKED_EQ,                            PROT_EXEC,              0)},
    { SCMP_SYS(mprotect),           SCMP_A2(SCMP_CMP_MASKED_EQ,                            PROT_EXEC,              0)},
    {    SCMP_SYS(clone),        SCMP_A0(SCMP_CMP_MASKED_EQ,              CLONE_THREAD,              CLONE_THREAD)},
};

/// @return 0, or minus an error's number, as libseccomp has it.
int fLlenar(scmp_filter_ctx filtro)
{
    int intFin = seccomp_attr_set(filtro, SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ERRNO(EPERM));
    for (const int intLlamada : lstLibres) {
        intFin = intFin != 0 ? intFin : seccomp_rule_add(filtro, SCMP_ACT_ALLOW, intLlamada, 0);
    }
    for (const auto &[intLlamada, condicion] : lstCondiciones) {
        intFin = intFin != 0
                     ? intFin
                     : seccomp_rule_add_array(filtro, SCMP_ACT_ALLOW, intLlamada, 1, &condicion);
    }
    // Its argument lies in memory, where no filter sees it; the C library then takes the older one.
    return intFin != 0 ? intFin
                       : seccomp_rule_add(filtro, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0);
}

} // namespace

void fLimitarPrograma([[maybe_unused]] std::uint64_t lngMemoria, std::chrono::seconds procesador)
{
#ifndef __SANITIZE_ADDRESS__ // which reserves far more
    fLimitar(RLIMIT_AS, lngMemoria);
#endif
    fLimitar(RLIMIT_CPU, static_cast<rlim_t>(procesador.count()));
    fLimitar(RLIMIT_NOFILE, 4);
    fLimitar(RLIMIT_FSIZE, 0);
    fLimitar(RLIMIT_CORE, 0);
    std::signal(SIGPIPE, SIG_IGN);
}

bool fCerrarArchivos()
{
    const long intVersion =
        syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (intVersion < 1 || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        return false;
    }
    const clsCuidado cuidado = fCuidado(intVersion);
    const long intReglas = syscall(SYS_landlock_create_ruleset, &cuidado, sizeof cuidado, 0);
    // Without a rule that allows anything.
    const bool bolHecho = intReglas >= 0 && syscall(SYS_landlock_restrict_self, intReglas, 0) == 0;
    if (intReglas >= 0) {
        close(static_cast<int>(intReglas));
    }
    return bolHecho;
}

clsError fEncerrar()
{
    fCerrarArchivos();
    const clsFiltro filtro(seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release);
    if (!filtro) {
        return ENOMEM;
    }
    int intFin = fLlenar(filtro.get());
    intFin = intFin != 0 ? intFin : seccomp_load(filtro.get());
    return -intFin;
}
