// The console's texts and constants, and the folder for its cache.

#include "connection/connection_state.h"
#include "driver/data_folder.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <wx/stdpaths.h>

#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

using namespace orvane;

namespace {

using namespace testing;
using Volumes = std::vector<platform::MountedVolume>;

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

std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (const auto text :
         {GetInfoPerso2, GetInfoPerso1, GetEtablissementNumber, GetConsoleType, GetSerialNumber}) {
        texts.push_back(text().utf8_string());
    }
    return texts;
}

TEST(Identity, TextsAreReadOnceAndInTheirOrder) {
    Console.Memory = MemoryWith({u"SN 1", u"", u"É 2", u"line a", u"line b"});
    EXPECT_THAT(Texts(), ElementsAre("line b", "line a", "É 2", "-FR", "SN 1"));
    EXPECT_THAT(Console.CallsOf("OVReadMemory"), SizeIs(1));
}

TEST(Identity, HalfASurrogatePairCostsOneCharacterAndNoMore) {
    Console.Memory = MemoryWith({u"a\xDC01\xD83D\xDE00\xD83D", u"c\xD83D\x0064", u"e"});
    EXPECT_THAT(Texts(), ElementsAre("", "", "e", "c\uFFFDd-FR", "a\uFFFD\U0001F600\uFFFD"));
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
    Console.Memory = MemoryWith({u"late"});
    Console.MemorySize.reset();
    Console.Fail("OVGetMemorySize", 1);
    Console.Fail("OVReadMemory", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(GetSerialNumber() + GetSerialNumber(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "a refusal is no message";
    EXPECT_EQ(GetSerialNumber(), "late") << "the next call tries again";
}

TEST(Identity, ConstantsFollowTheModel) {
    for (const auto& [model, name, period, highest] : {std::tuple{0, "Orvane????", 0.0, 1.0},
                                                       {12304, "Orvane310", 0.0001, 1.0},
                                                       {12306, "Orvane310", 0.0001, 1.0},
                                                       {12336, "Orvane150", 0.00001, 1.0},
                                                       {12368, "Orvane3600", 6.666666e-8, 10.0}}) {
        Connection.ConsoleModel = model;
        EXPECT_EQ(GetInterfaceName(), name);
        EXPECT_THAT((std::array{GetMinPas(), GetMinInTime(), GetOutValMax(), GetOutValMin()}),
                    ElementsAre(period, period, highest, -highest));
    }
    EXPECT_EQ(GetBuilderName(), "Tavela");
    EXPECT_EQ(GetMaxDtInBuffMode(), 6.535);
    EXPECT_THAT((std::array{GetInResolution(), GetOutResolution(), GetParameter(3), GetParameter(4),
                            GetParameter(0x80000003U)}),
                ElementsAre(4096, 4096, 10000, 100, 0));
}

TEST(DataFolder, IsOnTheFirstVolumeThatCarriesAnyOfTheLabels) {
    EXPECT_EQ(FolderOnDataVolume(Volumes{
                  {"/media/a", "Other"}, {"/media/d", "BriseLink"}, {"/media/e", "ma pelore"}}),
              "/media/d/taveladata");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/", "MA VINOXE"}}), "/taveladata");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/x", "Ma Pelore 2"}}), "");
    EXPECT_EQ(FolderOnDataVolume(Volumes{{"/\xE9t\xE9", "BriseLink"}, {"/été", "BriseLink"}}),
              "/été/taveladata")
        << "a name that isn't UTF-8 is passed over";
}

TEST(DataFolder, IsLookedForOnMountedDevicesWithALabelByMountPoint) {
    const std::filesystem::path home(std::getenv("HOME"));
    create_directory(home / "labels");
    std::ofstream mounts(home / "mounts");
    for (const auto& [label, device, mountPoint] :
         {std::tuple{"Ma\\x20Pelore\\x2", "sdb", "/z"}, {"BriseLink", "sda", "/media/d"}}) {
        std::ofstream(home / device) << "device";
        create_symlink(home / device, home / "labels" / label);
        mounts << (home / device).native() << ' ' << mountPoint << " ext4 rw 0 0\n";
    }
    mounts << "proc /proc proc rw 0 0\n" << std::flush;
    std::vector<std::string> found;
    for (const auto& volume :
         platform::MountedVolumes((home / "labels").c_str(), (home / "mounts").c_str())) {
        found.push_back(volume.MountPoint + " " + volume.Label);
    }
    EXPECT_THAT(found, ElementsAre("/media/d BriseLink", "/z Ma Pelore\\x2"));
}

TEST(DataFolder, IsMadeUnderItsTrueNameAndToldAsAscii) {
    std::setlocale(LC_ALL, "C"); // As in a host that never sets one.
    const std::filesystem::path home(std::getenv("HOME"));
    setenv("HOME", (home / "été").c_str(), 1);
    std::array<char, 512> folder{};
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_t_/cache"));
    EXPECT_TRUE(std::filesystem::is_directory(home / "été/cache"));
    const auto length = static_cast<uint32_t>(std::strlen(folder.data()));
    for (const uint32_t capacity : {length + 1, length}) {
        folder.fill('#');
        FindDataFolder(folder.data(), capacity);
        EXPECT_EQ(std::strlen(folder.data()), capacity > length ? length : 0) << "whole or not";
        EXPECT_EQ(folder[capacity], '#');
    }
    FindDataFolder(nullptr, 0);

    wxStandardPaths::Get().SetFileLayout(wxStandardPaths::FileLayout_XDG);
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_t_/.config/cache"));
    setenv("XDG_CONFIG_HOME", (home / "\xE9").c_str(), 1);
    FindDataFolder(folder.data(), folder.size());
    EXPECT_THAT(folder.data(), EndsWith("/_/cache"));
    EXPECT_TRUE(std::filesystem::is_directory(home / "\xE9/cache"));
}

} // namespace
