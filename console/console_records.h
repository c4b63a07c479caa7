#pragma once

/// \file
/// The records with which a console describes itself: plain values of fixed layout, handed
/// over by copy. Copies are independent of each other: a record holds no pointer.
///
/// Texts are UTF-8 in fixed fields and normally end with a NUL. A reader takes a text up to the
/// NUL or the field's end, whichever comes first; bytes that aren't UTF-8 make an empty text.

#include "radio_types.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

/// Bytes of a text field, terminator included.
inline constexpr std::size_t RecordTextSize = 256;

/// The picture of a record. The image data is read separately, with OVReadFunctionImage.
struct tImageDesc {
    uint32_t TailleImage;           ///< Bytes of image data; 0: no picture.
    char TypeImage[RecordTextSize]; ///< Begins with "png", "bmp" or "gif"; empty without a picture.
};

/// What is plugged into one connector; connector 0 is the console itself.
struct tAdapterDesc {
    char Nom[RecordTextSize];               ///< Name of the adapter; not read.
    char Reference[RecordTextSize];         ///< Reference number as decimal text, such as "482034".
    char Version[RecordTextSize];           ///< Not read.
    char Description[RecordTextSize];       ///< Not read.
    tImageDesc Image;                       ///< Picture of the adapter; not read.
    char NumSerie[RecordTextSize];          ///< Serial number; not read.
    char ManufacturingDate[8];              ///< 8 characters without terminator; not read.
    char ManufacturerIdent[RecordTextSize]; ///< Not read.
    uint8_t Indicateur;                     ///< Not read.
    uint32_t ValeurAdaptateur;              ///< Kind of adapter; 21 marks a gate adapter.
    uint8_t NbVoies;                        ///< Channels of this connector.
    uint8_t NbVoiesEnumerees;               ///< Not read here; see tInterfaceDesc.
};

/// The console's description of its interface.
struct tInterfaceDesc {
    char Nom[RecordTextSize];               ///< Not read.
    char Reference[RecordTextSize];         ///< Not read.
    char Version[RecordTextSize];           ///< Not read.
    char Description[RecordTextSize];       ///< Not read.
    tImageDesc Image;                       ///< Not read.
    char NumSerie[RecordTextSize];          ///< Not read.
    char ManufacturingDate[8];              ///< 8 characters without terminator; not read.
    char ManufacturerIdent[RecordTextSize]; ///< Not read.
    uint8_t Indicateur;                     ///< Not read.
    uint32_t ValeurAdaptateur;              ///< Not read.
    uint8_t NbConnecteurs;                  ///< Not read.
    uint8_t NbVoiesEnumerees;               ///< Channels to enumerate on connector 0.
    uint8_t IndicateurFin;                  ///< Not read.
};

/// What an interface reports before the console is connected.
struct tInterfaceInfo {
    uint32_t ReserveInfo;     ///< Not read.
    uint16_t Modele;          ///< Console model code, such as 12304.
    uint8_t ReserveSuite[58]; ///< Not read: the rest of what a console may write, 64 bytes in all.
};

/// One channel of a connector.
struct tChannelDesc {
    char Nom[RecordTextSize];         ///< Name of the channel.
    char Description[RecordTextSize]; ///< Label of an adjustment, or its states, separated by bars.
    uint8_t Genre;        ///< 0: measurement or output; 1: adjustment; 2: value of an adjustment.
    uint32_t TailleTexte; ///< Bytes of the channel's text block; 0: none.
    uint8_t Sens;         ///< 1: input; 0: output.
    uint8_t IndicateurA;  ///< Not read.
    uint8_t IndicateurB;  ///< Not read.
    uint16_t IndicateurC; ///< Not read.
    uint32_t TempsMinNs;  ///< Shortest sample period, ns.
    uint32_t ReserveA;    ///< Not read.
    uint32_t ReserveB;    ///< Not read.
    uint32_t PeriodeDefautNs; ///< Default sample period, ns.
    uint8_t NbFonctions;      ///< Functions of the channel.
    uint8_t FonctionCourante; ///< Selected function, below NbFonctions.
};

/// One function of a channel: a quantity that it can measure.
struct tFunctionDesc {
    char Nom[RecordTextSize];         ///< Name of the function.
    tImageDesc Image;                 ///< Picture of the function.
    char NomGrandeur[RecordTextSize]; ///< Name of the quantity; not read.
    char Grandeur[RecordTextSize];    ///< Symbol of the quantity, such as "u".
    char Unite[RecordTextSize];       ///< Symbol of the unit, such as "V".
    uint8_t TypeReglage;              ///< 0: no adjustment of its own; 1 to 3: its kind.
    uint32_t NbVoiesLiees;            ///< Above 0: a value can be read on another channel.
    uint8_t VoieLiee;                 ///< That channel, on the same connector.
    uint8_t IndicateurFonction;       ///< Not read.
    uint8_t NbCalibres;               ///< Calibres of the function.
    uint8_t CalibreCourant;           ///< Selected calibre, below NbCalibres.
};

/// One calibre (measuring range) of a function.
struct tCalibreDesc {
    char Nom[RecordTextSize];    ///< Name of the calibre, such as "+-12V".
    char Format[RecordTextSize]; ///< printf format of a value, such as "%+6.2f"; not read.
    float Min;                   ///< Lower limit, in the unit of the function.
    float Max;                   ///< Upper limit, in the unit of the function.
};

/// One event of a gate run, logged by the console.
struct tLogEntry {
    uint32_t Secondes;     ///< Whole seconds of the event's time.
    uint32_t Nanosecondes; ///< Nanoseconds of the event's time.
};

/// Identifier of a console interface: a GUID in its in-memory form.
struct tConsoleInterfaceId {
    uint8_t Octets[16]; ///< The bytes, in the order of memory.
};

/// The interface that the driver opens.
inline constexpr tConsoleInterfaceId ConsoleInterfaceId{{0x08, 0x20, 0x03, 0x2E, 0x8E, 0x4A, 0x8E,
                                                         0x4A, 0x88, 0xDA, 0xC0, 0xF1, 0xB5, 0x37,
                                                         0x7E, 0x0A}};

// The console defines the layout: no field may move.
static_assert(sizeof(tImageDesc) == 260 && offsetof(tImageDesc, TypeImage) == 4);
static_assert(sizeof(tAdapterDesc) == 1816 && offsetof(tAdapterDesc, Reference) == 256 &&
              offsetof(tAdapterDesc, Image) == 1024 && offsetof(tAdapterDesc, NumSerie) == 1284 &&
              offsetof(tAdapterDesc, ManufacturingDate) == 1540 &&
              offsetof(tAdapterDesc, Indicateur) == 1804 &&
              offsetof(tAdapterDesc, ValeurAdaptateur) == 1808 &&
              offsetof(tAdapterDesc, NbVoies) == 1812 &&
              offsetof(tAdapterDesc, NbVoiesEnumerees) == 1813);
static_assert(sizeof(tInterfaceDesc) == 1816 && offsetof(tInterfaceDesc, Image) == 1024 &&
              offsetof(tInterfaceDesc, ManufacturingDate) == 1540 &&
              offsetof(tInterfaceDesc, ValeurAdaptateur) == 1808 &&
              offsetof(tInterfaceDesc, NbConnecteurs) == 1812 &&
              offsetof(tInterfaceDesc, NbVoiesEnumerees) == 1813 &&
              offsetof(tInterfaceDesc, IndicateurFin) == 1814);
static_assert(sizeof(tInterfaceInfo) == 64 && offsetof(tInterfaceInfo, Modele) == 4 &&
              offsetof(tInterfaceInfo, ReserveSuite) == 6);
static_assert(sizeof(tChannelDesc) == 548 && offsetof(tChannelDesc, Genre) == 512 &&
              offsetof(tChannelDesc, TailleTexte) == 516 && offsetof(tChannelDesc, Sens) == 520 &&
              offsetof(tChannelDesc, TempsMinNs) == 528 &&
              offsetof(tChannelDesc, PeriodeDefautNs) == 540 &&
              offsetof(tChannelDesc, NbFonctions) == 544 &&
              offsetof(tChannelDesc, FonctionCourante) == 545);
static_assert(sizeof(tFunctionDesc) == 1296 && offsetof(tFunctionDesc, Image) == 256 &&
              offsetof(tFunctionDesc, NomGrandeur) == 516 &&
              offsetof(tFunctionDesc, Unite) == 1028 &&
              offsetof(tFunctionDesc, TypeReglage) == 1284 &&
              offsetof(tFunctionDesc, NbVoiesLiees) == 1288 &&
              offsetof(tFunctionDesc, VoieLiee) == 1292 &&
              offsetof(tFunctionDesc, NbCalibres) == 1294 &&
              offsetof(tFunctionDesc, CalibreCourant) == 1295);
static_assert(sizeof(tCalibreDesc) == 520 && offsetof(tCalibreDesc, Format) == 256 &&
              offsetof(tCalibreDesc, Min) == 512 && offsetof(tCalibreDesc, Max) == 516);
static_assert(sizeof(tLogEntry) == 8 && offsetof(tLogEntry, Nanosecondes) == 4);
static_assert(sizeof(tConsoleInterfaceId) == 16);
static_assert(std::is_trivially_copyable_v<tAdapterDesc> &&
              std::is_trivially_copyable_v<tInterfaceDesc> &&
              std::is_trivially_copyable_v<tChannelDesc> &&
              std::is_trivially_copyable_v<tFunctionDesc> &&
              std::is_trivially_copyable_v<tCalibreDesc>);
