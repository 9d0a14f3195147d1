#include "support/Child_portable.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <exception>
#include <grp.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <pwd.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string Told(const std::function<std::string()>& work) {
    try {
        return work();
    } catch (const std::exception& failure) {
        return std::string("threw: ") + failure.what();
    } catch (...) {
        return "threw";
    }
}

} // namespace

std::string InChild(const std::function<std::string()>& work) {
    int ends[2];
    if (pipe(ends) != 0) return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const std::string told = Told(work);
        for (std::size_t at = 0; at < told.size();) {
            const ssize_t written = write(ends[1], told.data() + at, told.size() - at);
            if (written <= 0) _exit(99);
            at += static_cast<std::size_t>(written);
        }
        _exit(0);
    }
    close(ends[1]);
    std::string told;
    char room[4096];
    for (ssize_t length; (length = read(ends[0], room, sizeof room)) > 0;)
        told.append(room, static_cast<std::size_t>(length));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return "died: signal " + std::to_string(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return "died: exit code " + std::to_string(WEXITSTATUS(status));
    return told;
}

std::string InChildAsNobody(const std::function<std::string()>& work) {
    return InChild([&]() -> std::string {
        if (geteuid() == 0) {
            const passwd* const nobody = getpwnam("nobody");
            if (!nobody || setgroups(0, nullptr) != 0 || setgid(nobody->pw_gid) != 0 ||
                setuid(nobody->pw_uid) != 0)
                return "cannot become nobody";
        }
        return work();
    });
}

std::string MountSmallDisk(const std::string& folder, const std::string& size) {
    const bool isRoot = geteuid() == 0;
    if (unshare(isRoot ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0)
        return std::string("no mounts of its own: ") + std::strerror(errno);
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", folder.c_str(), "tmpfs", 0, ("size=" + size + ",mode=0777").c_str()) != 0)
        return std::string("mounting is not permitted: ") + std::strerror(errno);
    return {};
}

bool FailCall(int number, int error) {
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(number), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<__u32>(error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{4, steps};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}
