#include "fatal_messages.h"
#include "sqlite_errors.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    installFatalMessages();
    installSqliteErrorWatch();
    return RUN_ALL_TESTS();
}
