// The built library as a host meets it: loaded by name, used, unloaded.

#include "driver_loader.h"

#include <wx/arrstr.h>
#include <wx/translation.h>

#include <gmock/gmock.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <set>

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

/// The names that the version script lists, without its patterns.
std::set<std::string> ListedExports() {
    std::ifstream script(ORVANE_EXPORT_MAP);
    std::set<std::string> names;
    for (std::string line; std::getline(script, line);) {
        line.erase(0, line.find_first_not_of(" \""));
        const std::string name = line.substr(0, line.find_first_of("\";"));
        if (name.size() + 1 < line.size() + 1 && line.ends_with(';') &&
            name.find_first_of("*}{") == std::string::npos) {
            names.insert(name);
        }
    }
    return names;
}

TEST(Library, ExportsWhatIsListedAndNoStranger) {
    std::set<std::string> strangers;
    std::set<std::string> absent = ListedExports();
    ASSERT_GT(absent.size(), 50U);
    std::size_t members = 0;
    const std::string symbols = "nm -D --defined-only -C '" + std::string(library) + "'";
    for (const std::string& line : LinesOf(symbols)) {
        const std::string name = line.substr(std::min(line.size(), std::size_t{19}));
        if (name.starts_with("TvlIntToAdapterDescMap")) {
            ++members;
        } else if (absent.erase(name) == 0) {
            strangers.insert(name);
        }
    }
    EXPECT_THAT(strangers, IsEmpty());
    EXPECT_THAT(absent, IsEmpty());
#ifndef __clang__ // It has no way to keep inline functions.
    EXPECT_GT(members, 60U) << "constructors, operators and iterators of the map";
#endif
}

TEST(Library, HasAWordOnThreadsForEachExport) {
    std::ifstream page(ORVANE_THREADS_PAGE);
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    for (const std::string& name : ListedExports()) {
        const std::string plain = name.substr(0, name.find('('));
        EXPECT_NE(text.find('`' + plain + '`'), std::string::npos) << plain;
    }
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

std::size_t BytesInUse() {
    return mallinfo2().uordblks;
}

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
        settled = load == 10 ? BytesInUse() : settled;
    }
    testing::internal::GetCapturedStderr();
    const std::size_t atTheEnd = BytesInUse();
    // Blocks that wait to be used again count too; a leak would be 24 bytes a load at least.
    EXPECT_LT(atTheEnd, settled + std::size_t{8} * loads);
    std::cout << "Bytes in use after 10 loads " << settled << ", after " << loads << " loads "
              << atTheEnd << '\n';
}

/// A catalogue of one text.
class OneText : public wxTranslationsLoader {
public:
    wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString& /*lang*/) override {
        // A compiled catalogue: magic, revision, one text, the tables, then both strings.
        static const std::string key = "IDS_EXTERN_TRIGGER_CHANNEL1_NAME";
        static const std::string text = "Auslöser";
        std::string data;
        const auto number = [&data](std::size_t value) {
            const auto word = static_cast<uint32_t>(value);
            data.append(reinterpret_cast<const char*>(&word), sizeof word);
        };
        for (const std::size_t word :
             {std::size_t{0x950412de}, std::size_t{0}, std::size_t{1}, std::size_t{28},
              std::size_t{36}, std::size_t{0}, std::size_t{44}, key.size(), std::size_t{44},
              text.size(), 45 + key.size()}) {
            number(word);
        }
        data += key + '\0' + text + '\0';
        return wxMsgCatalog::CreateFromData(
            wxScopedCharBuffer::CreateNonOwned(data.data(), data.size()), domain);
    }
    wxArrayString GetAvailableTranslations(const wxString& /*domain*/) const override {
        wxArrayString languages;
        languages.Add("de");
        return languages;
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
