#include "tests/support/WarningGuard.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <clocale>
#include <cstdio>
#include <cstring>

namespace {

/// Every test runs where decimals have a comma, where the clock is half an hour beside the others and where
/// it is put forward in spring: what depends on the user's place without meaning to fails here first.
void goAbroad()
{
    qputenv("LOCPATH", TEST_LOCALES);
    qputenv("LC_ALL", "de_DE.UTF-8");
    qputenv("TZ", "America/St_Johns");
}

/// A locale that is not there would be passed over in silence.
bool isAbroad()
{
    tzset();
    return std::strcmp(std::localeconv()->decimal_point, ",") == 0 && std::strcmp(tzname[0], "NST") == 0;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES")) {
        qputenv("QT_LOGGING_RULES", "algo.*.debug=false");
    }
    goAbroad();
    QApplication application(argc, argv); // takes the locale over
    if (!isAbroad()) {
        std::fputs("the tests' locale or time zone is missing\n", stderr);
        return 1;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    testing::UnitTest::GetInstance()->listeners().Append(new WarningGuard); // gtest deletes it
    return RUN_ALL_TESTS();
}
