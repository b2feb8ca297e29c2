/* FILE: opens it as a library, and prints what comes of it. */
#include <dlfcn.h>
#include <stdio.h>

int main(int argc, char** argv) {
    const int opened = argc == 2 && dlopen(argv[1], RTLD_NOW) != NULL;
    puts(opened ? "opened" : dlerror());
    return 0;
}
