#pragma once

/// \file
/// The driver over the laboratory, in virtual time, with a scenario that a test writes.

#include "driver_exports.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace orvane {

class LaboratoryTest : public testing::Test {
protected:
    LaboratoryTest() {
        setenv("ORVANE_CLOCK", "virtual", 1);
    }
    ~LaboratoryTest() override {
        StopDll();
        std::filesystem::remove(File);
    }

    /// Starts the driver over this scenario.
    bool Start(const std::string& toml) {
        std::ofstream(File) << "scenario = 1\nseed = 7\n" << toml;
        const bool started = StartDll(0, wxString("scenario=" + File.string()), "fr", 0);
        VerifCanaux();
        Inputs = CombienDeCanauxEnEntree();
        return started;
    }

    const std::filesystem::path File =
        std::filesystem::temp_directory_path() / ("laboratory-" + std::to_string(getpid()));
    int Inputs = 0;
};

/// An adapter on a connector with a channel of a voltage.
inline std::string Voltmeter(int connector, const std::string& channel) {
    const std::string name = "adapter.v" + std::to_string(connector);
    return "[" + name + "]\nconnector = " + std::to_string(connector) + "\nreference = 482034\n[[" +
           name + ".channel]]\nquantity = [\"u\", \"V\"]\ncalibres = [[-10, 10], [-1, 1]]\n" +
           channel + "\n";
}

} // namespace orvane
