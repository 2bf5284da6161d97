// on-private-network PROGRAM ARGUMENT…: runs a program with a loopback of its own, or says why it cannot.

#include "tests/support/PrivateNetwork.h"

#include <unistd.h>

#include <cstdio>

int main(int argc, char **argv) {
    if (argc < 2)
        return 2;
    if (!palomet::test::enterPrivateNetwork()) {
        std::perror("on-private-network");
        return 1;
    }
    execvp(argv[1], argv + 1);
    std::perror(argv[1]);
    return 1;
}
