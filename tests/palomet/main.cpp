#include "tests/support/PrivateNetwork.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char **argv) {
#if PALOMET_PRIVATE_NETWORKS
    // A Palomet in use on this machine is not in the way, nor are other tests.
    if (!palomet::test::enterPrivateNetwork()) {
        std::perror("no network of its own");
        return 1;
    }
#endif
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
