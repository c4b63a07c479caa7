#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvane {

/// A stretch of an axis.
struct PlotRange {
    double From = 0.0;
    double To = 0.0;
};

/// The points that a picture draws of a series, in ascending order of time. Both equally long.
struct PlotPoints {
    std::vector<double> TimesSec;
    std::vector<double> Values;
};

/// One channel of a picture. Texts are UTF-8.
struct PlotPanel {
    std::string Title;
    std::string ValueLabel; ///< Quantity with unit, for the vertical axis.
    PlotPoints Dots;
    PlotPoints Curve;
    double Min = 0.0; ///< Limits of the calibre: the axis of a flat curve.
    double Max = 0.0;
};

/// Panels one below the other over a common axis of time.
struct PlotPicture {
    std::vector<PlotPanel> Panels;
    PlotRange TimeSec; ///< What the axis of time shows.
    std::string TimeLabel = "Time (s)";
    std::string DotsLegend; ///< In the colour of the dots; may be empty.
    std::string CurveLegend;
    int Width = 0; ///< Pixels.
    int Height = 0;
    double Scale = 1.0; ///< Of texts and margins; 1 suits a file.
};

/// The drawing area of a panel: pixels from the top left corner, and the values at its lower and
/// upper end.
struct PlotArea {
    double Left = 0.0;
    double Right = 0.0;
    double Top = 0.0;
    double Bottom = 0.0;
    PlotRange Value;
};

/// The width of a picture in a file.
constexpr int FileWidth = 1600;
/// The height of a file with this many panels.
int FileHeight(size_t panels);

/// The areas of the panels of a picture, in their order.
std::vector<PlotArea> PlotAreas(const PlotPicture& picture);

/// The plotting device for a file name, by its suffix .png or .svg. Throws HostError if the suffix
/// is another one or the device is not installed.
std::string PlotDeviceFor(const std::string& fileName);

/// Draws to a file. Throws HostError if the picture could not be written in full; `name` is what
/// the error calls the file.
void DrawToFile(const PlotPicture& picture, const std::filesystem::path& file,
                const std::string& name, const std::string& device);

/// Draws to memory: Width times Height pixels of red, green and blue, row by row from the top.
void DrawToPixels(const PlotPicture& picture, unsigned char* pixels);

} // namespace orvane
