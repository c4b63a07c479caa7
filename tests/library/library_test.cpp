// The built library as a host meets it: loaded by name, used, unloaded.

#include "driver_loader.h"

#include <wx/arrstr.h>
#include <wx/translation.h>

#include <gmock/gmock.h>
#include <malloc.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <set>
#include <tuple>

namespace {

using testing::IsEmpty;

constexpr const char* library = ORVANE_LIBRARY;

std::set<std::string> LinesOf(const std::string& command) {
    std::set<std::string> lines;
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::array<char, 4096> line{};
    while (std::fgets(line.data(), line.size(), output.get()) != nullptr) {
        lines.insert(std::string(line.data(), std::strcspn(line.data(), "\n")));
    }
    return lines;
}

TEST(Library, ExportsWhatIsDeclaredAndListed) {
    const std::set<std::string> listed{
#define ORVANE_EXPORT_ENTRY(name, symbol) #name,
#include "driver_export_list.h"
    };
    EXPECT_THAT(LinesOf(R"(grep -hoP '^[^#]*ORVANE_EXPORT .*?\K\w+(?=\()' )" ORVANE_INCLUDE "/*.h"),
                testing::ContainerEq(listed));
    const std::string symbols = "nm -D --defined-only -C '" ORVANE_LIBRARY "' | cut -c20- |";
    EXPECT_THAT(LinesOf(symbols + "sed '/^TvlIntToAdapterDescMap/d; s/(.*//'"),
                testing::ContainerEq(listed));
#ifndef __clang__ // It has no way to keep inline functions.
    EXPECT_GT(LinesOf(symbols + "grep ^TvlIntToAdapterDescMap").size(), 60U)
        << "constructors, operators and iterators of the map";
#endif
}

TEST(Library, GivesTheLoaderEveryExport) {
    LoadedDriver driver = LoadDriver(library);
    ASSERT_NE(driver.Library, nullptr) << driver.Error;
    EXPECT_THAT(driver.Missing, IsEmpty());
    UnloadDriver(driver);
    EXPECT_EQ(driver.Exports.StartDll, nullptr);
    EXPECT_EQ(LoadDriver("/nowhere.so").Library, nullptr);
    EXPECT_NE(LoadDriver("/nowhere.so").Error, "");
    EXPECT_THAT(LoadDriver("libm.so.6").Missing, testing::Contains("StartDll"));
}

/// A run of a few points from start to stop.
void UseOnce(const DriverExports& driver) {
    ASSERT_TRUE(driver.StartDll(0, "", "fr", 0));
    EXPECT_FALSE(driver.VerifCanaux());
    ASSERT_EQ(driver.CombienDeCanauxEnEntree(), 2);
    EXPECT_EQ(driver.QuelNomPour(0, 0), wxString::FromUTF8("Voltmètre"));
    EXPECT_EQ(driver.QuelUnitePour(1), "A");
    EXPECT_EQ(driver.GetInterfaceName(), "Orvane310");
    EXPECT_EQ(driver.InitAcqBuff(1e-6, 1000, 3, 0), 1e-6);
    driver.StartAcqBuff(0, 0, 0.0, 0);
    while (!driver.TestFinAcq()) {
    }
    driver.StopAcqBuff();
    for (uint32_t point = 0; point < 1000; ++point) {
        EXPECT_LE(std::abs(driver.RecuperationPoint(0, point)), 9.37);
        EXPECT_GE(driver.RecuperationPoint(1, point), 0.29);
    }
    driver.StopDll();
}

class Drivers : public testing::TestWithParam<int> {};

/// A driver, a copy of it from another file, and one with another console.
TEST_P(Drivers, InOneProcessStayApart) {
    const std::string copy = std::getenv("HOME") + std::string("/copy.so");
    std::filesystem::copy_file(library, copy);
    std::vector<LoadedDriver> drivers;
    for (const char* path : {library, copy.c_str(), OTHER_DRIVER}) {
        ASSERT_NE(dlopen(path, RTLD_NOW | GetParam()), nullptr) << dlerror();
        drivers.push_back(LoadDriver(path));
    }
    const auto& [first, second, other] =
        std::tie(drivers[0].Exports, drivers[1].Exports, drivers[2].Exports);
    testing::internal::CaptureStderr();
    ASSERT_TRUE(first.StartDll(0, "", "fr", 0));
    first.VerifCanaux();
    EXPECT_EQ(first.CombienDeCanauxEnEntree(), 2);
    EXPECT_EQ(second.GetInterfaceName(), "Orvane????");
    EXPECT_EQ(second.CombienDeCanauxEnEntree(), 0);
    ASSERT_TRUE(other.StartDll(0, "", "fr", 0));
    EXPECT_EQ(other.CombienDeCanauxEnEntree(), 4);
    first.InitAcqBuff(1e-3, 20, 3, 0);
    first.StartAcqBuff(0, 0, 0.0, 0);
    UseOnce(second);
    EXPECT_EQ(other.QuelUnitePour(3), "L/s");
    UnloadDriver(drivers[2]);
    while (!first.TestFinAcq()) {
    }
    first.StopAcqBuff();
    EXPECT_GE(first.RecuperationPoint(1, 19), 0.29);
    EXPECT_EQ(first.QuelUnitePour(1), "A");
    first.StopDll();
    testing::internal::GetCapturedStderr();
}

INSTANTIATE_TEST_SUITE_P(Library, Drivers, testing::Values(RTLD_LOCAL, RTLD_GLOBAL));

TEST(Library, LeavesMemoryFlatOverManyLoads) {
    // The runs tell on standard error that the console has no memory.
    testing::internal::CaptureStderr();
    std::size_t settled = 0;
    constexpr int loads = 1000;
    for (int load = 1; load <= loads; ++load) {
        LoadedDriver driver = LoadDriver(library);
        ASSERT_NE(driver.Library, nullptr);
        UseOnce(driver.Exports);
        UnloadDriver(driver);
        EXPECT_EQ(dlopen(library, RTLD_NOLOAD | RTLD_NOW), nullptr) << "it is really gone";
        settled = load == 10 ? mallinfo2().uordblks : settled;
    }
    testing::internal::GetCapturedStderr();
    const std::size_t atTheEnd = mallinfo2().uordblks;
    // Blocks that wait to be used again count too; a leak would be 24 bytes a load at least.
    EXPECT_LT(atTheEnd, settled + std::size_t{8} * loads);
}

/// A catalogue of one text.
class OneText : public wxTranslationsLoader {
public:
    wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString& /*lang*/) override {
        // As compiled: a header that counts one text, the lengths and offsets of its key and of
        // itself, and the two.
        static constexpr char catalogue[] =
            "\xDE\x12\x04\x95\0\0\0\0\1\0\0\0\x1C\0\0\0\x24\0\0\0\0\0\0\0\x2C\0\0\0"
            "\x20\0\0\0\x2C\0\0\0"
            "\x09\0\0\0\x4D\0\0\0"
            "IDS_EXTERN_TRIGGER_CHANNEL1_NAME\0Auslöser";
        const auto data = wxScopedCharBuffer::CreateNonOwned(catalogue, sizeof catalogue);
        return wxMsgCatalog::CreateFromData(data, domain);
    }
    wxArrayString GetAvailableTranslations(const wxString& /*domain*/) const override {
        return wxArrayString(1, std::array{wxString("de")}.data());
    }
};

TEST(Library, TakesNamesFromTheCatalogueThatWasThereAtTheLoad) {
    auto translations = std::make_unique<wxTranslations>();
    translations->SetLoader(std::make_unique<OneText>().release());
    translations->SetLanguage("de");
    ASSERT_TRUE(translations->AddCatalog("host"));
    wxTranslations::Set(translations.release());
    LoadedDriver driver = LoadDriver(library);
    ASSERT_NE(driver.Library, nullptr) << driver.Error;
    wxTranslations::Set(nullptr); // The host's catalogue goes; the names stay.
    testing::internal::CaptureStderr();
    driver.Exports.StartDll(0, "", "de", 0);
    testing::internal::GetCapturedStderr();
    driver.Exports.CombienDeCanauxEnEntree();
    EXPECT_EQ(driver.Exports.QuelNomPour(1, 0), wxString::FromUTF8("Auslöser"));
    UnloadDriver(driver); // Without a stop.
}

} // namespace
