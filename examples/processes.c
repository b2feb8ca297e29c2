// Shell commands, and a child that inherits no open files.
#include <fcntl.h>
#include <orvautil/fileutils.h>
#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>

int main(void) {
    // Good to know: nothing is flushed for the child, so what was printed before may come after
    // its output. Without a buffer it does not.
    setvbuf(stdout, NULL, _IONBF, 0);

    printf("status: %d\n", systemEx("echo from the shell"));
    // The result is the wait status, not the exit code: look at it with the macros.
    const int status = systemEx("exit 3");
    printf("exit code: %d, in the status %d\n", WEXITSTATUS(status), status);
    printf("signal: %d\n", WTERMSIG(systemEx("kill -9 $$")));
    printf("not found: %d\n", WEXITSTATUS(systemEx("no-such-command 2>/dev/null")));
    printf("NULL: %d\n", systemEx(NULL));

    // A child keeps the files of its parent open, as a socket whose port then stays taken. It
    // closes them before it starts another program: standard output too, so open what it needs.
    const int file = open("/dev/null", O_RDONLY);
    const pid_t child = fork();
    if (child == 0) {
        CloseChildProcFd((int)getpid());
        _exit(fcntl(file, F_GETFD) == -1 && fcntl(STDOUT_FILENO, F_GETFD) == -1 ? 0 : 1);
    }
    int child_status = -1;
    waitpid(child, &child_status, 0);
    printf("the child's files are closed: %s\n", child_status == 0 ? "yes" : "no");
    return 0;
}
