#include "hosts/session/run_follower.h"

#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/run_setup.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

namespace orvane {

namespace {

std::vector<Samples> ReservedSamples(size_t channels, size_t points) {
    std::vector<Samples> samples(channels);
    for (Samples& one : samples) {
        one.reserve(points);
    }
    return samples;
}

/// Reads the points up to `end` that the samples do not hold yet, but no more than `most` of each
/// channel.
/// \return samples read
size_t ReadUpTo(const FollowedRun& run, size_t end, size_t most, std::vector<Samples>& samples) {
    const size_t known = samples.front().size();
    if (end <= known) {
        return 0;
    }
    end = known + std::min(end - known, most);
    for (size_t channel = 0; channel < samples.size(); ++channel) {
        for (size_t i = known; i < end; ++i) {
            // Pre-trigger points lie at the wrapped negatives.
            const auto point =
                static_cast<uint32_t>(i) - static_cast<uint32_t>(run.Recording.PreTriggerPoints);
            samples[channel].push_back(run.Driver.RecuperationPoint(run.Positions[channel], point));
        }
    }
    return (end - known) * samples.size();
}

void CutTo(std::vector<Samples>& samples, size_t points) {
    for (Samples& one : samples) {
        one.resize(points);
    }
}

/// The position of each channel in the run: the driver has them in ascending order.
std::vector<int32_t> PositionsOf(const std::vector<int>& channels) {
    std::vector<int32_t> positions;
    for (const int channel : channels) {
        const auto before = std::ranges::count_if(channels, [&](int c) { return c < channel; });
        positions.push_back(static_cast<int32_t>(before));
    }
    return positions;
}

void MakeLongCall(FollowedRun& run, std::function<void()> call) {
    if (run.Long == FollowedRun::LongCalls::Inline) {
        call();
    } else {
        run.LongCall = std::async(std::launch::async, std::move(call));
    }
}

void End(FollowedRun& run, RunEnd end) {
    if (run.Now == FollowedRun::Phase::Running) {
        run.Driver.StopAcqBuff();
    }
    run.Now = FollowedRun::Phase::Ended;
    run.Recording.End = end;
}

size_t StepLive(FollowedRun& run, size_t most) {
    AcquisitionRecording& recording = run.Recording;
    std::vector<Samples>& live = recording.Live;
    const bool full = run.Driver.TestFinAcq();
    const auto acquired = static_cast<size_t>(std::max(run.Driver.TestNombreDePointAcqui(), 0));
    const size_t known = live.front().size();
    const size_t points = acquired / live.size();
    const size_t there = points > 0 ? points + recording.PreTriggerPoints : 0;
    const size_t read = ReadUpTo(run, there, most, live);
    // Checked after the reads: samples read before a change is noted are 0.0 and not valid.
    if (!run.Driver.VerifCanaux()) {
        CutTo(live, known);
        End(run, RunEnd::AdaptersChanged);
        return 0;
    }
    if (full && live.front().size() >= there) {
        run.Now = FollowedRun::Phase::Fetching;
        MakeLongCall(run, [&driver = run.Driver] { driver.StopAcqBuff(); });
    }
    return read;
}

size_t StepFetch(FollowedRun& run, size_t most) {
    std::vector<Samples>& fetched = run.Recording.Fetched;
    const size_t read = ReadUpTo(run, run.Points, most, fetched);
    if (!run.Driver.VerifCanaux()) {
        CutTo(fetched, 0);
        End(run, RunEnd::AdaptersChanged);
        return 0;
    }
    if (fetched.front().size() >= run.Points) {
        End(run, RunEnd::Full);
    }
    return read;
}

} // namespace

FollowedRun::FollowedRun(const DriverExports& exports, const AcquisitionRequest& request,
                         LongCalls longCalls)
    : Driver(exports), Points(PointsInAll(request, exports)),
      Positions(PositionsOf(request.Channels)), Long(longCalls) {
    const size_t channels = request.Channels.size();
    Recording.PreTriggerPoints = Points - static_cast<size_t>(request.Points);
    Recording.Live = ReservedSamples(channels, Points);
    Recording.Fetched = ReservedSamples(channels, Points);
    uint32_t mask = 0;
    for (const int channel : request.Channels) {
        mask |= ChannelBit(channel);
    }
    Recording.PeriodSec = SetUpRun(Driver, PeriodForDriver(request.PeriodSec), request.Points, mask,
                                   request.PreTrigger);
    if (Recording.PeriodSec <= 0.0) {
        throw HostError(Translated("The console refuses this acquisition."));
    }
    MakeLongCall(*this, [&driver = Driver, trigger = request.Trigger] {
        const AcquisitionTrigger used = trigger.value_or(AcquisitionTrigger{});
        driver.StartAcqBuff(trigger.has_value() ? 1 : 0, used.Rising ? 1 : 0, used.Level,
                            used.Channel);
    });
}

FollowedRun::~FollowedRun() {
    if (LongCall.valid()) {
        LongCall.wait();
    }
    if (Now == Phase::Running) {
        Driver.StopAcqBuff();
    }
}

bool IsBusy(const FollowedRun& run) {
    return run.LongCall.valid() &&
           run.LongCall.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

size_t StepRun(FollowedRun& run, size_t samples) {
    if (IsBusy(run)) {
        return 0;
    }
    if (run.StopRequested) {
        InterruptRun(run);
        return 0;
    }
    const size_t most = std::max(samples / run.Recording.Live.size(), size_t{1});
    switch (run.Now) {
    case FollowedRun::Phase::Running:
        return StepLive(run, most);
    case FollowedRun::Phase::Fetching:
        return StepFetch(run, most);
    case FollowedRun::Phase::Ended:
        break;
    }
    return 0;
}

void InterruptRun(FollowedRun& run) {
    run.StopRequested = true;
    if (!IsBusy(run) && run.Now != FollowedRun::Phase::Ended) {
        CutTo(run.Recording.Fetched, 0);
        End(run, RunEnd::Interrupted);
    }
}

} // namespace orvane
