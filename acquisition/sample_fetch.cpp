#include "acquisition/sample_fetch.h"

#include "console/console_port.h"

#include <algorithm>

namespace orvane {
namespace {

constexpr std::size_t maxInBlock = 65536;

/// Reads console values in one call. Returns how many were read: 0 if the console refuses.
std::size_t ReadBlock(const TvlVoieOrvane& voie, uint32_t first, std::span<double> block) {
    std::ranges::fill(block, 0.0); // For values that the console leaves alone.
    uint32_t got = 0;
    const bool given = OVAutoGetPoints(voie.Connecteur, voie.Canal, first,
                                       static_cast<uint32_t>(block.size()), block.data(), &got);
    return given ? std::min<std::size_t>(got, block.size()) : 0;
}

} // namespace

double FetchSample(const TvlVoieOrvane& voie, uint32_t index) {
    double valeur = 0.0;
    OVAutoGetPoint(voie.Connecteur, voie.Canal, index, 0, &valeur);
    return voie.ConvertirBrut(valeur, true);
}

void FetchSamples(const TvlVoieOrvane& voie, std::span<double> samples) {
    const HostScale scale = voie.Scale();
    for (std::size_t first = 0; first < samples.size(); first += maxInBlock) {
        const auto block = samples.subspan(first, std::min(maxInBlock, samples.size() - first));
        const std::size_t got = ReadBlock(voie, static_cast<uint32_t>(first), block);
        for (double& sample : block.first(got)) {
            sample = scale.Converted(sample);
        }
        for (std::size_t index = got; index < block.size(); ++index) {
            block[index] = FetchSample(voie, static_cast<uint32_t>(first + index));
        }
    }
}

} // namespace orvane
