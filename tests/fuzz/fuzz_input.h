#pragma once

/// \file
/// The bytes of one fuzzing round: what the host does and what the console answers come out of them
/// by turns.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <thread>

/// Taken from the front; what is no longer there is 0.
class RoundBytes {
public:
    explicit RoundBytes(std::span<const uint8_t> bytes) : left(bytes) {}

    [[nodiscard]] bool AreLeft() const {
        return !left.empty();
    }
    template <class Number> Number Take() {
        Number number{};
        const auto bytes = TakeBytes(sizeof number);
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<uint8_t*>(&number));
        return number;
    }
    std::string TakeText(std::size_t most) {
        const auto bytes = TakeBytes(Take<uint16_t>() % (most + 1));
        return {bytes.begin(), bytes.end()};
    }

private:
    std::span<const uint8_t> TakeBytes(std::size_t count) {
        const auto taken = left.first(std::min(count, left.size()));
        left = left.subspan(taken.size());
        return taken;
    }
    std::span<const uint8_t> left;
};

/// Null between the rounds. Written by the host's thread; other threads take nothing from it.
inline RoundBytes* FuzzInput = nullptr;
inline const std::thread::id HostThread = std::this_thread::get_id();

/// The input, if this thread is the host's and there is still something in it.
inline RoundBytes* InputForThisThread() {
    const bool usable =
        std::this_thread::get_id() == HostThread && FuzzInput != nullptr && FuzzInput->AreLeft();
    return usable ? FuzzInput : nullptr;
}

inline uint8_t AnyByte() {
    RoundBytes* input = InputForThisThread();
    return input != nullptr ? input->Take<uint8_t>() : uint8_t{0};
}

/// Small most of the time, and any value else.
template <class Integer> Integer AnyInteger() {
    constexpr uint8_t firstOfAny = 224;
    const uint8_t byte = AnyByte();
    RoundBytes* input = InputForThisThread();
    return byte < firstOfAny || input == nullptr ? static_cast<Integer>(byte % 6)
                                                 : input->Take<Integer>();
}

/// One of the values, as the byte says.
template <class Value, class... Values> Value OneOf(uint8_t byte, Values... values) {
    const Value all[] = {static_cast<Value>(values)...};
    return all[byte % sizeof...(values)];
}

/// One that matters to somebody, or any bit pattern.
inline double AnyDouble() {
    using Limits = std::numeric_limits<double>;
    const uint8_t byte = AnyByte();
    if (RoundBytes* input = InputForThisThread(); byte >= 200 && input != nullptr) {
        return input->Take<double>();
    }
    return OneOf<double>(byte, 0.0, 1.0, -1.0, 1e-3, 1e-6, 0.5, 5.0, 1000.0, 4.29, 1e-12, 4294.97,
                         2147483647.0, Limits::max(), -0.0, Limits::denorm_min(),
                         Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN());
}

/// A text that means something to the driver or its console, or any bytes.
inline std::string AnyText() {
    const uint8_t byte = AnyByte();
    if (RoundBytes* input = InputForThisThread(); byte >= 200 && input != nullptr) {
        return input->TakeText(300);
    }
    return OneOf<const char*>(byte, "", "482060", "482080", "482109", "482049", "Sortie a1",
                              "Extern trigger", "png", "bmp", "gif", "Ouvert|Fermé|", "Voltmètre",
                              "fr", "en", "2147483648", "Reglage=1\nReglage=4", "Etiquette=3",
                              "%s%n", "Reglage = 2");
}
