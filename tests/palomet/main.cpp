#include "tests/support/PrivateNetwork.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    // Where that is allowed: a Palomet in use on this machine is then not in the way, nor are other tests.
    palomet::test::enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
