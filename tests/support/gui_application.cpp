#include "tests/support/test_application.h"

std::unique_ptr<wxAppConsole> MakeTestApplication() {
    return std::make_unique<wxApp>();
}
