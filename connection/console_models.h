#pragma once

/// \file
/// All that depends on the console model, in one table.

#include <algorithm>
#include <array>
#include <cstdint>

namespace orvane {

/// What an analog output can give, in output units.
struct OutputRange {
    double ValMin;
    double ValMax;
};

/// The properties of a model. The defaults are those of a model that the driver doesn't know.
struct ModelTraits {
    int32_t Code = 0;                  ///< As the console reports it; 0: not in the table.
    const char* Name = "Orvane????";   ///< For GetInterfaceName.
    double MinPas = 0.0;               ///< Shortest period, s.
    uint32_t NbPointPreSynchro = 0;    ///< Pre-trigger points.
    bool WholeMicroseconds = false;    ///< Periods of an acquisition are cut to them.
    OutputRange Output{-1.0, 1.0};     ///< What the analog outputs can give.
    bool Generator = false;            ///< Its outputs play signals for the host.
    double KiroParamA = 5.0;           ///< First number of KiroDACParam.
    double GeneratorFrequency = 500.0; ///< Third number of KiroDACParam, Hz.
    bool RadioNetwork = false;         ///< Started and stopped with the connection.
    bool MemoryFirst = false;          ///< Memory is read before the interface is described.
    bool Pictures = true;              ///< Functions and states have pictures.
    bool Reselects = false;            ///< See ReferenceReselected.
};

inline constexpr int32_t ModelOrvane310 = 12304;
inline constexpr int32_t ModelOrvane310B = 12306;
inline constexpr int32_t ModelOrvane150 = 12336;
inline constexpr int32_t ModelOrvane3600 = 12368;

inline constexpr std::array<ModelTraits, 4> Models{{
    {.Code = ModelOrvane310, .Name = "Orvane310", .MinPas = 0.0001, .WholeMicroseconds = true},
    {.Code = ModelOrvane310B, .Name = "Orvane310", .MinPas = 0.0001, .WholeMicroseconds = true},
    {.Code = ModelOrvane150,
     .Name = "Orvane150",
     .MinPas = 0.00001,
     .WholeMicroseconds = true,
     .RadioNetwork = true,
     .MemoryFirst = true,
     .Pictures = false,
     .Reselects = true},
    {.Code = ModelOrvane3600,
     .Name = "Orvane3600",
     .MinPas = 6.666666e-8,
     .NbPointPreSynchro = 50,
     .Output = {-10.0, 10.0},
     .Generator = true,
     .KiroParamA = 10.0,
     .GeneratorFrequency = 500000.0},
}};

inline constexpr ModelTraits UnknownModel{};

constexpr const ModelTraits& TraitsOf(int32_t model) {
    const auto* row = std::ranges::find(Models, model, &ModelTraits::Code);
    return row != Models.end() ? *row : UnknownModel;
}

/// Whether the driver knows the model.
constexpr bool IsKnownModel(int32_t model) {
    return TraitsOf(model).Code != 0;
}

} // namespace orvane
