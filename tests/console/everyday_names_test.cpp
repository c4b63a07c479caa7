// A console may have globals of its own with everyday names: the driver's live in a namespace.

#include "acquisition_exports.h"
#include "channel_exports.h"
#include "console/console_port.h"
#include "lifecycle_exports.h"
#include "output_exports.h"
#include "radio_exports.h"
#include "spiro_exports.h"

#include <wx/init.h>
#include <wx/thread.h>

#include <gtest/gtest.h>

#include <array>

namespace {

using Own = std::array<unsigned char, 4096>;

constexpr Own untouched{0x5A};

} // namespace

Own Connection = untouched, Acquisition = untouched, InputChannels = untouched,
    OutputChannels = untouched, AcqChannels = untouched, Adapters = untouched,
    ConsoleMemory = untouched, GateTiming = untouched, Spiro = untouched, RadioDevices = untouched,
    Clock = untouched;

TEST(EverydayNames, OfAConsoleStayItsOwn) {
    const wxInitializer toolkit;
    wxMutex mutex;
    wxCondition condition(mutex);
    wxCriticalSection section;
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    ASSERT_EQ(CombienDeCanauxEnEntree(), 1);
    EXPECT_EQ(QuelUnitePour(0), wxString::FromUTF8("°C"));
    EXPECT_FALSE(OVDacStop(1, 0)) << "what the console leaves out is refused";
    InitAcqBuff(0.001, 100, 1, 0);
    StopAcqBuff();
    ASSERT_TRUE(StartThreadSpiro(&mutex, &condition, 0, 0.0, &section));
    StopThreadSpiro();
    DeviceCb(1, RadioPod, true);
    StopDll();
    for (const Own* own : {&Connection, &Acquisition, &InputChannels, &OutputChannels, &AcqChannels,
                           &Adapters, &ConsoleMemory, &GateTiming, &Spiro, &RadioDevices, &Clock}) {
        EXPECT_EQ(*own, untouched);
    }
}
