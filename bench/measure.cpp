// Runs a command on one core and prints what it took: user and system seconds, peak
// memory in MB, exit code.
//
//   measure CORE INPUT OUTPUT COMMAND [ARGUMENT...]
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool Redirect(const char* path, int flags, int target) {
    const int file = open(path, flags, 0644);
    return file != -1 && dup2(file, target) != -1;
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fputs("usage: measure CORE INPUT OUTPUT COMMAND [ARGUMENT...]\n", stderr);
        return 2;
    }
    const pid_t child = fork();
    if (child == 0) {
        cpu_set_t cores;
        CPU_ZERO(&cores);
        CPU_SET(static_cast<unsigned>(std::atoi(argv[1])), &cores);
        if (sched_setaffinity(0, sizeof cores, &cores) != 0 || !Redirect(argv[2], O_RDONLY, 0) ||
            !Redirect(argv[3], O_WRONLY | O_CREAT | O_TRUNC, 1))
            std::perror("measure");
        else
            execvp(argv[4], argv + 4);
        std::perror(argv[4]);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child == -1 || wait4(child, &status, 0, &usage) == -1) {
        std::perror("measure");
        return 1;
    }
    std::printf("%.4f %.1f %d\n", Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
                static_cast<double>(usage.ru_maxrss) / 1024, WIFEXITED(status) ? WEXITSTATUS(status) : 128);
    return 0;
}
