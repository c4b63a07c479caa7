// The host that every test program is; it has a GUI where the build says so.

#include "tests/support/test_host.h"

#include <wx/init.h>

#include <gmock/gmock.h>

#include <clocale>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    BecomeTestHost<TEST_APPLICATION>();
    const wxInitializer toolkit(argc, argv);
    const bool passed = toolkit && RUN_ALL_TESTS() == 0;
    // A name that no test has is a failure too.
    return passed && testing::UnitTest::GetInstance()->test_to_run_count() > 0 ? EXIT_SUCCESS
                                                                               : EXIT_FAILURE;
}
