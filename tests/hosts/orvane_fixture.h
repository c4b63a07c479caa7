#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

inline std::string Content(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

inline std::vector<std::string> Lines(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

struct Result {
    int Code;
    std::string Out;
    std::vector<std::string> Complaints; ///< What the program itself says on standard error.
};

class Orvane : public testing::Test {
protected:
    Orvane() {
        fs::create_directory(Files);
        setenv("LSAN_OPTIONS", "print_suppressions=0:suppressions=" PLOTTING_LEAKS, 1);
        setenv("TSAN_OPTIONS", "suppressions=" PLOTTING_RACES, 1);
    }

    /// Runs the program with the new folder for %, `before` being a command that starts it.
    [[nodiscard]] Result Run(std::string arguments, const std::string& before = "") const {
        for (size_t at = 0; (at = arguments.find('%')) != std::string::npos;) {
            arguments.replace(at, 1, Files);
        }
        const std::string command = before + " " ORVANE_PROGRAM " " + arguments + " >" +
                                    Home.string() + "/out 2>" + Home.string() + "/err </dev/null";
        const int status = std::system(command.c_str());
        Result result{WEXITSTATUS(status), Content(Home / "out"), {}};
        for (const std::string& line : Lines(Content(Home / "err"))) {
            if (line.starts_with("orvane: ")) {
                result.Complaints.push_back(line);
            }
        }
        return result;
    }

    [[nodiscard]] std::set<std::string> FileNames() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Files)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    [[nodiscard]] std::vector<std::string> Rows(const char* csv) const {
        return Lines(Content(Files / csv));
    }

    fs::path Home = std::getenv("HOME");
    fs::path Files = Home / "files";
};
