// The layer of the faults: an operation with faults goes through here, any other goes straight to
// the layer below.

#include "console/stack/fault_plan.h"
#include "console/stack/layers.h"

#include <Random123/philox.h>

#include <atomic>
#include <list>

namespace orvane::console_stack {

namespace {

/// A planned fault and what has come of it.
struct ActiveFault {
    ActiveFault(const PlannedFault& planned, uint64_t stream) : Planned(planned), Stream(stream) {}

    const PlannedFault Planned;
    const uint64_t Stream; ///< Its draws are independent of those of other faults.
    std::atomic<uint64_t> Calls{0};
    std::atomic<uint64_t> Refused{0};
};

/// What is wrong with one call.
struct CallFaults {
    bool Refused = false;
    bool Unterminated = false;
    std::optional<uint32_t> MemorySize;
    int64_t LatencyNs = 0;
};

/// Written at a start, before the table is handed out. Any thread counts calls.
struct FaultState {
    FaultPlan Plan;
    int64_t StartNs = 0;                                                  ///< On the plan's clock.
    std::array<std::list<ActiveFault>, PortOperationNames.size()> Faults; ///< By operation.
    const PortTable* Below = nullptr;
    PortTable Table;
};
FaultState state;

std::list<ActiveFault>& FaultsOf(PortOperation operation) {
    return state.Faults[static_cast<size_t>(operation)];
}

/// Whether this call is drawn: a function of the seed, the fault and the number of the call.
bool IsDrawn(const ActiveFault& fault, uint64_t call) {
    const auto words = r123::Philox2x64()({{call, fault.Stream}}, {{state.Plan.Seed}});
    return static_cast<double>(words[0] >> 11U) * 0x1p-53 < fault.Planned.Probability;
}

void AddFault(ActiveFault& fault, CallFaults& call) {
    const PlannedFault& planned = fault.Planned;
    if (planned.FromNs > 0 && state.Plan.Now() - state.StartNs < planned.FromNs) {
        return;
    }
    const uint64_t number = fault.Calls.fetch_add(1, std::memory_order_relaxed) + 1;
    if (number < planned.FromCall) {
        return;
    }
    call.LatencyNs += planned.LatencyNs;
    call.Unterminated |= planned.Unterminated;
    if (planned.MemorySize) {
        call.MemorySize = planned.MemorySize;
    }
    if (planned.Refusals > 0 && IsDrawn(fault, number)) {
        call.Refused |= fault.Refused.fetch_add(1, std::memory_order_relaxed) < planned.Refusals;
    }
}

/// Counts a call and waits as long as it takes.
CallFaults Meet(PortOperation operation) {
    CallFaults call;
    call.LatencyNs = state.Plan.BusLatencyNs;
    for (ActiveFault& fault : FaultsOf(operation)) {
        AddFault(fault, call);
    }
    const int64_t waitNs = call.LatencyNs + (call.Refused ? state.Plan.RefusalNs : 0);
    if (waitNs > 0) {
        platform::PauseNanoseconds(waitNs);
    }
    return call;
}

/// \name What a fault does to an answer
/// @{
template <size_t N> void FillUp(char (&field)[N]) {
    std::ranges::replace(field, '\0', ' ');
}

void FillUp(tImageDesc& image) {
    FillUp(image.TypeImage);
}

/// The texts of the records that descriptions of an adapter and of the interface begin with.
template <class Desc> void FillUpIdentity(Desc& desc) {
    FillUp(desc.Nom);
    FillUp(desc.Reference);
    FillUp(desc.Version);
    FillUp(desc.Description);
    FillUp(desc.Image);
    FillUp(desc.NumSerie);
    FillUp(desc.ManufacturerIdent);
}

void FillUp(tAdapterDesc& desc) {
    FillUpIdentity(desc);
}

void FillUp(tInterfaceDesc& desc) {
    FillUpIdentity(desc);
}

void FillUp(tChannelDesc& desc) {
    FillUp(desc.Nom);
    FillUp(desc.Description);
}

void FillUp(tFunctionDesc& desc) {
    FillUp(desc.Nom);
    FillUp(desc.Image);
    FillUp(desc.NomGrandeur);
    FillUp(desc.Grandeur);
    FillUp(desc.Unite);
}

void FillUp(tCalibreDesc& desc) {
    FillUp(desc.Nom);
    FillUp(desc.Format);
}

template <class Argument> void FillUpRecord(Argument argument) {
    if constexpr (requires { FillUp(*argument); }) {
        FillUp(*argument);
    }
}

/// Spoils the answer of any operation but the two below, which may have a record.
template <class... Arguments> void Spoil(const CallFaults& call, Arguments... arguments) {
    if (call.Unterminated) {
        (FillUpRecord(arguments), ...);
    }
}

/// OVReadChannelText.
void Spoil(const CallFaults& call, uint8_t /*connector*/, uint8_t /*channel*/, char* text,
           uint32_t size) {
    if (call.Unterminated) {
        std::replace(text, text + size, '\0', ' ');
    }
}

/// OVGetMemorySize.
void Spoil(const CallFaults& call, uint8_t /*connector*/, int /*area*/, uint32_t* size) {
    *size = call.MemorySize.value_or(*size);
}
/// @}

/// An operation with faults. A refused one without a result is left out.
template <PortOperation Operation, auto Member, class Result, class... Arguments>
Result CallWithFaults(Arguments... arguments) {
    const CallFaults call = Meet(Operation);
    if (call.Refused) {
        return Result();
    }
    if constexpr (std::is_same_v<Result, bool>) {
        const bool done = (state.Below->*Member)(arguments...);
        if (done) {
            Spoil(call, arguments...);
        }
        return done;
    } else {
        return (state.Below->*Member)(arguments...);
    }
}

/// Whether calls of an operation have to come through here.
bool HasFaults(PortOperation operation) {
    return !BeginsOrEnds(operation) &&
           (state.Plan.BusLatencyNs > 0 || !FaultsOf(operation).empty());
}

template <PortOperation Operation, auto Member> auto EntryFor(const PortTable& below) {
    auto entry = below.*Member;
    if (HasFaults(Operation)) {
        entry = &CallWithFaults<Operation, Member>;
    }
    return entry;
}

void Activate(FaultPlan plan, const PortTable& below) {
    for (std::list<ActiveFault>& faults : state.Faults) {
        faults.clear();
    }
    uint64_t stream = 0;
    for (const PlannedFault& planned : plan.Faults) {
        FaultsOf(planned.Operation).emplace_back(planned, stream++);
    }
    state.StartNs = plan.Now();
    state.Plan = std::move(plan);
    state.Below = &below;
#define ORVANE_ENTRY(result, name, parameters, arguments)                                          \
    EntryFor<PortOperation::name, &PortTable::name>(below),
    state.Table = {ORVANE_PORT_OPERATIONS(ORVANE_ENTRY)};
#undef ORVANE_ENTRY
}

} // namespace

const PortTable& Faults(const PortTable& below) {
    if (RequestedFaults.Faults.empty() && RequestedFaults.BusLatencyNs == 0) {
        return below;
    }
    Activate(std::move(RequestedFaults), below);
    return state.Table;
}

} // namespace orvane::console_stack
