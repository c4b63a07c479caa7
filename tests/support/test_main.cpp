// The host that every test program is: an application object, the toolkit running, and a home
// folder of its own that goes with it.

#include "tests/support/test_application.h"

#include <wx/init.h>

#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

class TemporaryHome {
public:
    TemporaryHome() {
        if (mkdtemp(folder.data()) == nullptr) {
            throw std::runtime_error("No folder " + folder);
        }
        setenv("HOME", folder.c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
    }
    ~TemporaryHome() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

private:
    std::string folder = std::filesystem::temp_directory_path() / "orvane-test-XXXXXX";
};

} // namespace

int main(int argc, char** argv) try {
    testing::InitGoogleMock(&argc, argv);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    const TemporaryHome home;
    // The toolkit deletes the application object when it is uninitialised.
    wxApp::SetInstance(MakeTestApplication().release());
    const wxInitializer toolkit(argc, argv);
    if (!toolkit.IsOk()) {
        throw std::runtime_error("The toolkit does not start.");
    }
    const int result = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        throw std::runtime_error("No test is there to run.");
    }
    return result;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
