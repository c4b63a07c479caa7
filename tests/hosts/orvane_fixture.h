#pragma once

#include "tests/hosts/file_content.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <regex>
#include <set>

struct Result {
    int Code;
    std::string Out;
    std::vector<std::string> Complaints; ///< What the program itself says on standard error.
};

/// In front of a command that goes on until then.
inline const std::string interruptIn1s = "timeout --preserve-status -s INT 1";

class Orvane : public testing::Test {
protected:
    Orvane() {
        fs::create_directory(Files);
        setenv("ORVANE_CALLS", (Home / "calls").c_str(), 1);
        setenv("LSAN_OPTIONS", "print_suppressions=0:suppressions=" CHART_LEAKS, 1);
        setenv("TSAN_OPTIONS", "suppressions=" CHART_RACES, 1);
    }

    /// Runs the program with the new folder for %, `before` being a command that starts it.
    [[nodiscard]] Result Run(const std::string& arguments, const std::string& before = "") const {
        const std::string command = before + " " ORVANE_PROGRAM " " +
                                    std::regex_replace(arguments, std::regex("%"), Files.string()) +
                                    " >" + Home.string() + "/out 2>" + Home.string() +
                                    "/err </dev/null";
        const int status = std::system(command.c_str());
        Result result{WEXITSTATUS(status), Content(Home / "out"), Lines(Content(Home / "err"))};
        std::erase_if(result.Complaints,
                      [](const std::string& line) { return !line.starts_with("orvane: "); });
        return result;
    }

    /// Each end of a command leads to this exit code and to one sentence, which fits.
    void Fails(int code, const std::string& begin, const std::vector<std::string>& ends,
               const std::string& library = "",
               const testing::Matcher<std::string>& sentence = testing::Not(testing::ContainsRegex(
                   "not a duration.*\"0\"|Could not|: [A-Z].*: [A-Z]|required .* missing"))) const {
        for (const std::string& end : ends) {
            const Result run = Run(begin + " " + end + library);
            EXPECT_EQ(run.Code, code) << begin << " " << end;
            EXPECT_THAT(run.Complaints, testing::ElementsAre(sentence)) << begin << " " << end;
        }
    }

    /// What the console with instruments was told last.
    [[nodiscard]] std::string Calls() const {
        return Content(Home / "calls");
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
