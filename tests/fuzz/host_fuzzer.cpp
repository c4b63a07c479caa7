// A host that calls any export in any order with any arguments, over a console that answers
// anything. The round's bytes choose both.

#include "connection/console_memory.h"
#include "driver_exports.h"
#include "tests/fuzz/any_console.h"
#include "tests/fuzz/fuzz_process.h"

#include <wx/bitmap.h>

#include <algorithm>
#include <new>
#include <type_traits>
#include <vector>

using namespace orvane;

namespace {

/// The host's one object of a type.
template <class Object> Object& HostObject() {
    if constexpr (std::is_same_v<Object, wxCondition>) {
        static wxCondition condition(HostObject<wxMutex>());
        return condition;
    } else {
        static Object object;
        return object;
    }
}

/// Any argument of its type; a pointer is null now and then.
template <class T> T Argument() {
    using Value = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Value, wxString>) {
        return HostObject<wxString>() = wxString::FromUTF8(AnyText());
    } else if constexpr (std::is_same_v<Value, double>) {
        return AnyDouble();
    } else if constexpr (std::is_same_v<Value, bool>) {
        return AnyByte() % 2 == 0;
    } else if constexpr (std::is_enum_v<Value>) {
        return static_cast<Value>(AnyByte() % 5);
    } else if constexpr (std::is_integral_v<Value>) {
        return AnyInteger<Value>();
    } else if (AnyByte() % 16 == 15) {
        return nullptr;
    } else if constexpr (std::is_same_v<T, const wchar_t*>) {
        auto& characters = HostObject<std::wstring>();
        characters = wxString::FromUTF8(AnyText()).ToStdWstring();
        return characters.c_str();
    } else {
        return &HostObject<std::remove_pointer_t<T>>();
    }
}

template <class Result, class... Arguments> void CallWithAny(Result (*called)(Arguments...)) {
    called(Argument<Arguments>()...);
}

template <auto Export> void Call() {
    CallWithAny(Export);
}

/// A host has as many codes as it says.
template <> void Call<KiroDACGenerer>() {
    const auto voie = AnyInteger<int32_t>();
    const int32_t nbPoint = std::min(AnyInteger<int32_t>(), 20000);
    const std::vector<int32_t> codes(static_cast<size_t>(std::max(nbPoint, 0)),
                                     AnyInteger<int32_t>());
    KiroDACGenerer(voie, nbPoint, codes.data(), AnyDouble(), AnyByte());
}

constexpr void (*calls[])() = {
#define ORVANE_EXPORT_ENTRY(name, symbol) Call<name>,
#include "driver_export_list.h"
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    BeFuzzedHost();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    RoundBytes input({data, size});
    FuzzInput = &input;
    MakeAnyConsole();
    ConsoleMemoryLoaded = false;
    StartDll(0, "", AnyByte() % 2 == 0 ? "fr" : "en", 0);
    VerifCanaux();
    CombienDeCanauxEnEntree();
    while (input.AreLeft()) {
        const uint8_t call = AnyByte();
        // The spirometer's thread may be there.
        const wxCriticalSectionLocker inside(HostObject<wxCriticalSection>());
        try {
            calls[call % std::size(calls)]();
        } catch (const std::bad_alloc&) { // All that an export may throw.
        }
        // A neutral answer, and as many pods as there is room for.
        Expect(QuelUnitePour(-1).empty() && QuelValeurPour(1 << 20) == 0.0);
        Expect(GetNbPodConnectedO150() >= 0 && GetNbPodConnectedO150() <= RadioDeviceCount);
    }
    FuzzInput = nullptr; // From here on the console does as it is told.
    DoMesureSpiro(false);
    StopThreadSpiro();
    StopO150();
    StopDll();
    wxAppConsole::GetInstance()->ProcessPendingEvents();
    return 0;
}
