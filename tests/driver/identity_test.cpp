// The console's texts and constants, and the folder for its cache.

#include "channel_exports.h"
#include "connection/connection_state.h"
#include "connection/console_memory.h"
#include "driver/data_folder.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <wx/stdpaths.h>

#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <cwctype>
#include <filesystem>
#include <fstream>

using namespace orvane;

namespace {

using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;

/// Texts as the console stores them: 16-bit characters from byte 7 on, a zero behind each.
std::vector<uint8_t> MemoryWith(const std::vector<std::u16string>& texts) {
    std::vector<uint8_t> memory(7, 0xAA);
    for (const std::u16string& text : texts) {
        for (const char16_t character : text + u'\0') {
            memory.push_back(static_cast<uint8_t>(character & 0xFF));
            memory.push_back(static_cast<uint8_t>(character >> 8));
        }
    }
    memory.resize(32768);
    return memory;
}

TEST(Identity, TextsAreReadOnceAndInTheirOrder) {
    Console.Memory = MemoryWith({u"SN 1", u"", u"É 2", u"line a", u"line b"});
    EXPECT_EQ(GetEtablissementNumber(), wxString::FromUTF8("É 2"));
    EXPECT_EQ(GetSerialNumber(), "SN 1");
    EXPECT_EQ(GetConsoleType(), "-FR");
    EXPECT_EQ(GetInfoPerso1(), "line a");
    EXPECT_EQ(GetInfoPerso2(), "line b");
    EXPECT_THAT(Console.CallsOf("OVReadMemory"), SizeIs(1));
}

TEST(Identity, HalfASurrogatePairCostsOneCharacterAndNoMore) {
    Console.Memory = MemoryWith({u"a\xDC01\xD83D\xDE00\xD83D"
                                 u"b",
                                 u"c\xD83D", u"d"});
    EXPECT_EQ(GetSerialNumber(), wxString::FromUTF8("a\uFFFD\U0001F600\uFFFDb"));
    EXPECT_EQ(GetConsoleType(), wxString::FromUTF8("c\uFFFD-FR"));
    EXPECT_EQ(GetEtablissementNumber(), "d");
}

TEST(Identity, MemoryOfAnotherSizeIsNotReadAndSaysSoEachTime) {
    for (const uint32_t size : {0U, 32767U, 32769U, 4294967295U}) {
        Console.MemorySize = size;
        testing::internal::CaptureStderr();
        EXPECT_EQ(GetConsoleType(), "-FR");
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Erreur pendant la lecture dans la mémoire de la console !!!\n");
    }
    EXPECT_THAT(Console.CallsOf("OVReadMemory"), IsEmpty());
    Console.Fail("OVGetMemorySize", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(GetSerialNumber(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "a refused size is no message";
    Console.MemorySize.reset();
    Console.Memory = MemoryWith({u"late"});
    Console.Fail("OVReadMemory", 1);
    EXPECT_EQ(GetSerialNumber(), "");
    EXPECT_EQ(GetSerialNumber(), "late") << "the next call tries again";
}

TEST(Identity, ConstantsFollowTheModel) {
    struct Row {
        int32_t model;
        const char* name;
        double period;
        double highest;
    };
    for (const Row& row :
         {Row{0, "Orvane????", 0.0, 1.0}, Row{12304, "Orvane310", 0.0001, 1.0},
          Row{12306, "Orvane310", 0.0001, 1.0}, Row{12336, "Orvane150", 0.00001, 1.0},
          Row{12368, "Orvane3600", 6.666666e-8, 10.0}}) {
        Connection.ConsoleModel = row.model;
        EXPECT_EQ(GetInterfaceName(), row.name);
        EXPECT_EQ(GetMinPas(), row.period);
        EXPECT_EQ(GetMinInTime(), row.period);
        EXPECT_EQ(GetOutValMax(), row.highest);
        EXPECT_EQ(GetOutValMin(), -row.highest);
    }
    EXPECT_EQ(GetParameter(3), 10000U);
    EXPECT_EQ(GetParameter(4), 100U);
    EXPECT_EQ(GetParameter(0x80000003U), 0U);
}

TEST(DataFolder, IsOnTheFirstVolumeThatCarriesAnyOfTheLabels) {
    using Volumes = std::vector<platform::MountedVolume>;
    EXPECT_EQ(FolderOnDataVolume(Volumes{
                  {"/media/a", "Other"}, {"/media/d", "BriseLink"}, {"/media/e", "ma pelore"}}),
              "/media/d/taveladata");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/", "MA VINOXE"}}), "/taveladata");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/x", "Ma Pelore 2"}}), "");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/\xE9t\xE9", "BriseLink"}, {"/été", "BriseLink"}}),
              "/été/taveladata")
        << "a name that isn't UTF-8 is passed over";
    EXPECT_EQ(platform::DecodedLabel("Ma\\x20Pelore\\x2"), "Ma Pelore\\x2");
}

TEST(DataFolder, IsMadeUnderItsTrueNameAndToldAsAscii) {
    std::setlocale(LC_ALL, "C"); // As in a host that never sets one.
    const std::filesystem::path home(std::getenv("HOME"));
    setenv("HOME", (home / "été").c_str(), 1);
    std::array<char, 512> folder{};
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_t_/cache"));
    EXPECT_TRUE(std::filesystem::is_directory(home / "été/cache"));
    wxStandardPaths::Get().SetFileLayout(wxStandardPaths::FileLayout_XDG);
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_t_/.config/cache"));
    setenv("XDG_CONFIG_HOME", (home / "\xE9").c_str(), 1);
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_/cache"));
    EXPECT_TRUE(std::filesystem::is_directory(home / "\xE9/cache"));

    folder.fill('#');
    FindDataFolder(folder.data(), 4);
    EXPECT_STREQ(folder.data(), "") << "a folder that does not fit is no folder";
    FindDataFolder(nullptr, 0);
}

TEST(DataFolder, ThatCannotBeMadeIsToldAllTheSameAndQuietly) {
    setenv("HOME", "/proc/nowhere", 1);
    std::array<char, 512> folder{};
    testing::internal::CaptureStderr();
    FindDataFolder(folder.data(), folder.size());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_STREQ(folder.data(), "/proc/nowhere/cache");
}

/// Sets a locale in which I is not the capital of i, as in Turkish; one of its own, because a
/// machine may have none.
void SetLocaleWithoutCapitalI() {
    const std::filesystem::path folder(std::getenv("HOME"));
    std::ofstream(folder / "source") << "LC_CTYPE\ntolower (<U0041>,<U0061>)\nEND LC_CTYPE\n";
    const std::string made =
        "localedef -c -i source ./made 2>/dev/null"; // Warns of what it leaves.
    ASSERT_NE(std::system(("cd " + folder.string() + " && " + made).c_str()), -1);
    setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_STREQ(std::setlocale(LC_CTYPE, "made"), "made");
    ASSERT_EQ(std::towlower(L'I'), wint_t{L'I'});
}

TEST(Locale, OfTheHostHasNoSayInLabelsAndNames) {
    SetLocaleWithoutCapitalI();
    using Volumes = std::vector<platform::MountedVolume>;
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/d", "BRISELINK"}}), "/d/taveladata");
    Console.Connectors[1] = Adapter("1", {InputChannel("EXTERN TRIGGER", 0, 5)});
    Console.Memory.assign(32768, 0);
    StartDll(0, "", "fr", 0);
    CombienDeCanauxEnEntree();
    EXPECT_TRUE(IsSynchroExternePour(0));
}

} // namespace
