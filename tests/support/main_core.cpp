#include "fatal_messages.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    installFatalMessages();
    return RUN_ALL_TESTS();
}
