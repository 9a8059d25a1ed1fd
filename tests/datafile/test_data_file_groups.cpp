// Every option group that can travel in a data .ini goes in when its save flag is on and comes
// back when its load flag is on, through the group's own load and save.
#include "data_file_fixture.h"

#include "instrument/averaging.h"
#include "instrument/delays.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "support/bounded_text.h"
#include "ui/plot_options.h"

#include <cstring>

namespace {

struct Group {
    DataFileGroupId id;
    void (*Set)(bool changed);
    bool (*IsChanged)();
};

const Group kGroups[] = {
    {DATA_GROUP_AVERAGING, [](bool c) { GetVoltageAveragingTimes = c ? 37 : 1; },
     [] { return GetVoltageAveragingTimes == 37; }},
    {DATA_GROUP_DELAYS, [](bool c) { MaxDACStep = c ? 77 : 256; }, [] { return MaxDACStep == 77; }},
    {DATA_GROUP_VIRTUAL_IV, [](bool c) { BoundedCopy(VoltageChannels[0].comment, c ? "J9" : ""); },
     [] { return std::strcmp(VoltageChannels[0].comment, "J9") == 0; }},
    {DATA_GROUP_THERMOMETER, [](bool c) { SensorCurrent = c ? 2.5e-6f : 1e-6f; },
     [] { return SensorCurrent == 2.5e-6f; }},
    {DATA_GROUP_OTHER, [](bool c) { CurrentMesureMethod = c ? 1 : 0; },
     [] { return CurrentMesureMethod == 1; }},
    {DATA_GROUP_AXES, [](bool c) { gPlotOptions.gridX = c ? 17 : 10; },
     [] { return gPlotOptions.gridX == 17; }},
    {DATA_GROUP_TRIGGER, [](bool c) { TriggerDelay = c ? 42 : 0; },
     [] { return TriggerDelay == 42; }},
};

} // namespace

TEST_F(DataFileTest, EveryBuiltGroupTravelsOnlyWithItsFlags) {
    for (const Group& g : kGroups) {
        const DataFileGroup& group = gDataFileGroups[g.id];
        SCOPED_TRACE(group.name);
        ASSERT_TRUE(group.Load && group.Save);
        std::string dat = dir.File(std::string("g") + std::to_string(g.id) + ".dat");
        std::string ini = dat.substr(0, dat.size() - 3) + "ini";
        Fill({2});
        ResetDataFileOptions();
        g.Set(true);
        ASSERT_EQ(WriteDataPair(dat.c_str()), 0); // no flag: the group stays out
        const size_t without = ReadWholeFile(ini).size();
        g.Set(false);
        ASSERT_EQ(ReadDataPair(dat.c_str(), 0), 0);
        EXPECT_FALSE(g.IsChanged());

        SetDataFileOption(group.saveKey, "1");
        SetDataFileOption(group.loadKey, "1"); // straight groups: Save steers saving
        g.Set(true);
        ASSERT_EQ(WriteDataPair(dat.c_str()), 0);
        EXPECT_GT(ReadWholeFile(ini).size(), without);
        g.Set(false);
        ASSERT_EQ(ReadDataPair(dat.c_str(), 0), 0);
        EXPECT_TRUE(g.IsChanged());
        g.Set(false);
    }
    ResetDataFileOptions();
}
