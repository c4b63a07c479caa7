#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// One channel of a picture. Texts are UTF-8.
struct PlotPanel {
    std::string Title;
    std::string ValueLabel;          ///< Quantity with unit, for the vertical axis.
    std::span<const double> Live;    ///< Drawn as dots.
    std::span<const double> Fetched; ///< Drawn as a curve over the dots; may be empty.
    double Min = 0.0;                ///< Limits of the calibre: the axis of a flat curve.
    double Max = 0.0;
};

/// The plotting device for a file name, by its suffix .png or .svg. Throws HostError if the suffix
/// is another one or the device is not installed.
std::string PlotDeviceFor(const std::string& fileName);

/// Draws one panel below the other over a common axis of time in seconds. Throws HostError if the
/// picture could not be written in full; `name` is what the error calls the file.
void DrawAcquisition(const std::filesystem::path& file, const std::string& name,
                     const std::string& device, std::span<const double> timesSec,
                     const std::vector<PlotPanel>& panels);
