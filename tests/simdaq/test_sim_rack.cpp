#include "sim_rig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

bool Converts(int slot, int channel, int gainCode, int reading, double* volts = nullptr) {
    double v = 0;
    i16 status = gSimDaqDriver.AI_VScale(static_cast<i16>(slot), static_cast<i16>(channel),
                                         static_cast<i16>(gainCode), 1.0, 0.0,
                                         static_cast<i16>(reading), &v);
    if (volts) *volts = v;
    return status == 0;
}

bool OutputAccepts(int slot, int channel, double volts, i16* reading = nullptr) {
    i16 r = 0;
    i16 status =
        gSimDaqDriver.AO_VScale(static_cast<i16>(slot), static_cast<i16>(channel), volts, &r);
    if (reading) *reading = r;
    return status == 0;
}

// The highest voltage an output takes, found by bisection as the card probe does.
double UpperLimit(int slot) {
    double good = 0, bad = 1000, probe = 500;
    while (probe != good && probe != bad) {
        (OutputAccepts(slot, 0, probe) ? good : bad) = probe;
        probe = (good + bad) / 2;
    }
    return good;
}

} // namespace

TEST(SimRack, DefaultRackAnswersTheProbes) {
    TempDir dir;
    SimDaqLoad(dir.File("absent.ini").c_str());
    u32 id = 0;
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(1, kDaqInfoDeviceType, &id), 0);
    EXPECT_EQ(id, 16001u);
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(2, kDaqInfoDeviceType, &id), 0);
    EXPECT_EQ(id, 12008u);
    EXPECT_LT(gSimDaqDriver.Get_DAQ_Device_Info(3, kDaqInfoDeviceType, &id), 0);
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(1, 1, &id), kDaqNotSupported);
    for (int ch = 0; ch < 16; ++ch)
        EXPECT_TRUE(Converts(1, ch, 1, 0)) << ch;
    EXPECT_FALSE(Converts(1, 16, 1, 0));
    EXPECT_FALSE(Converts(1, 255, 1, 0));
    EXPECT_FALSE(Converts(2, 0, 1, 0)); // the output card has no inputs
    // 16-bit two's complement: 4096 converts, -32767 is negative.
    double v;
    EXPECT_TRUE(Converts(1, 0, 1, 4096));
    EXPECT_TRUE(Converts(1, 0, 1, -32767, &v));
    EXPECT_LT(v, 0);
    EXPECT_TRUE(Converts(1, 0, 1, -32768, &v));
    EXPECT_DOUBLE_EQ(v, -10.0);
    // Gains 0.5..100: codes -1, 1, 2, 5, ..., 100.
    for (int code : {-1, 1, 2, 5, 10, 20, 50, 100})
        EXPECT_TRUE(Converts(1, 0, code, 0)) << code;
    for (int code : {0, -2, -3, -10, 200, 1000})
        EXPECT_FALSE(Converts(1, 0, code, 0)) << code;
    EXPECT_TRUE(Converts(1, 0, 100, 32767, &v));
    EXPECT_NEAR(v, 0.1, 1e-5);
}

TEST(SimRack, OutputsRefuseWhatTheyCannotReach) {
    TempDir dir;
    SimDaqLoad(dir.File("absent.ini").c_str());
    i16 r;
    EXPECT_TRUE(OutputAccepts(1, 1, 0.0));
    EXPECT_FALSE(OutputAccepts(1, 2, 0.0));
    EXPECT_TRUE(OutputAccepts(2, 7, 0.0));
    EXPECT_FALSE(OutputAccepts(2, 8, 0.0));
    EXPECT_FALSE(OutputAccepts(1, 0, 10.0));
    EXPECT_FALSE(OutputAccepts(1, 0, -10.001));
    EXPECT_TRUE(OutputAccepts(1, 0, -10.0, &r));
    EXPECT_EQ(r, -32768);
    EXPECT_TRUE(OutputAccepts(1, 0, UpperLimit(1), &r));
    EXPECT_EQ(r, 32767);
    EXPECT_TRUE(OutputAccepts(2, 0, UpperLimit(2), &r));
    EXPECT_EQ(r, 2047);
    EXPECT_NEAR(UpperLimit(2), 10.0 * 2047 / 2048, 1e-9);
    EXPECT_LT(gSimDaqDriver.AO_Write(2, 0, 2048), 0);
    EXPECT_EQ(gSimDaqDriver.AO_Write(2, 0, 2047), 0);
    EXPECT_EQ(gSimDaqDriver.WFM_Op(1, 1, nullptr, nullptr, 0, 0, 1.0), kDaqNotSupported);
    EXPECT_EQ(gSimDaqDriver.WFM_Check(1, 0, nullptr, nullptr, nullptr), kDaqNotSupported);
}

TEST(SimRack, ReadingRangesOfTwelveAndSixteenBitCodings) {
    TempDir dir;
    LoadSim(dir, "[Rack]\nCards=4\n"
                 "[Card1]\nSlot=1\nBits=12\nInputs=0-7,16-23\n"
                 "[Card2]\nSlot=2\nBits=12\nCoding=1\nInputs=0-3\nOutputs=2\n"
                 "[Card3]\nSlot=3\nBits=16\nCoding=1\nInputs=0-3\nOutputs=1\n"
                 "[Card4]\nSlot=4\nBits=16\nInputs=0-3\nGains=-20,-10,0,10,20,40\nLogGains=1\n");
    double v;
    // 12-bit two's complement: -2048..2047.
    EXPECT_FALSE(Converts(1, 0, 1, 4096));
    EXPECT_FALSE(Converts(1, 0, 1, 2049));
    EXPECT_TRUE(Converts(1, 0, 1, -2048, &v));
    EXPECT_DOUBLE_EQ(v, -10.0);
    // The gap in the channels.
    EXPECT_TRUE(Converts(1, 7, 1, 0));
    EXPECT_FALSE(Converts(1, 8, 1, 0));
    EXPECT_FALSE(Converts(1, 15, 1, 0));
    EXPECT_TRUE(Converts(1, 16, 1, 0));
    EXPECT_FALSE(Converts(1, 24, 1, 0));
    // 12-bit offset binary: 0..4095, zero at 2048.
    EXPECT_FALSE(Converts(2, 0, 1, 4096));
    EXPECT_TRUE(Converts(2, 0, 1, 2049, &v));
    EXPECT_GT(v, 0);
    EXPECT_FALSE(Converts(2, 0, 1, -1));
    i16 r;
    EXPECT_TRUE(OutputAccepts(2, 0, UpperLimit(2), &r));
    EXPECT_EQ(r, 4095);
    // 16-bit offset binary: -32767 is 32769, above zero.
    EXPECT_TRUE(Converts(3, 0, 1, -32767, &v));
    EXPECT_GT(v, 0);
    EXPECT_TRUE(OutputAccepts(3, 0, UpperLimit(3), &r));
    EXPECT_EQ(static_cast<u16>(r), 65535);
    // Decibels: code 1 fails, 0 dB and 20 dB pass, 20 dB is a factor 10.
    EXPECT_FALSE(Converts(4, 0, 1, 0));
    EXPECT_TRUE(Converts(4, 0, 0, 0));
    EXPECT_TRUE(Converts(4, 0, 20, 32767, &v));
    EXPECT_NEAR(v, 1.0, 1e-3);
    EXPECT_FALSE(Converts(4, 0, 30, 0));
}

TEST(SimRack, ScxiChassisWithOutputModules) {
    TempDir dir;
    LoadSim(dir, "[SCXI]\nChassis=1\nAddress=3\nSlots=4\nModules=1\n"
                 "[SCXIModule1]\nSlot=2\nId=1124\nChannels=6\n[Outputs]\nCoil=1,2,5\n");
    i16 type, addr, mode, path, slots, id, written;
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Chassis_Info(1, &type, &addr, &mode, &path, &slots), 0);
    EXPECT_EQ(addr, 3);
    EXPECT_NE(mode, 0);
    EXPECT_EQ(slots, 4);
    EXPECT_LT(gSimDaqDriver.SCXI_Get_Chassis_Info(2, &type, &addr, &mode, &path, &slots), 0);
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Module_Id(1, 2, &id), 0);
    EXPECT_EQ(id, 1124);
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Module_Id(1, 1, &id), 0);
    EXPECT_LT(id, 1);
    for (int ch = 0; ch < 6; ++ch)
        EXPECT_EQ(gSimDaqDriver.SCXI_AO_Write(1, 2, static_cast<i16>(ch), 2, 6, 0, 0, &written), 0);
    EXPECT_LT(gSimDaqDriver.SCXI_AO_Write(1, 2, 6, 2, 6, 0, 0, &written), 0);
    EXPECT_EQ(gSimDaqDriver.SCXI_AO_Write(1, 2, 5, 1, 5, 0, 2048 + 1024, &written), 0);
    EXPECT_NEAR(SimDaqSampleState().coilCurrent, 5.0 / 1000, 1e-12);
}

TEST(SimRack, GarbageFileLoadsWithRepairedValues) {
    TempDir dir;
    WriteWholeFile(dir.File("simdaq.ini"),
                   "\x01\xff garbage\n[Rack]\nCards=abc\nVersion=zz\n[Card1]\nBits=7\nSpan=-3\n"
                   "Inputs=zz\nGains=;;;\nSlot=99\nOutputs=9999\n[Card2]\nSlot=1\n"
                   "[J1]\nIc=-1\nRn=nan\nBetaC=1e9\nIe=2e-4\n[J2]\nIe=inf\n"
                   "[Outputs]\nBias=9,9\nHeater=1,0\n[Inputs]\nJ1=1,0\nJ2=1,0\n"
                   "[Noise]\nSigma=-2\nSeed=-5\n[Clock]\nMode=warp\n[Array]\nN=0\n"
                   "[Temperature]\nTc=0\nT0=-4\n[SCXI]\nChassis=9\nModules=50\n");
    EXPECT_TRUE(SimDaqLoad(dir.File("simdaq.ini").c_str()));
    const SimConfig& c = SimDaqConfig();
    ASSERT_EQ(c.cards.size(), 2u);
    EXPECT_EQ(c.cards[0].bits, 12);
    EXPECT_EQ(c.cards[0].span, 10.0);
    EXPECT_EQ(c.cards[0].slot, 1);
    EXPECT_EQ(c.cards[0].outputs, 2);
    EXPECT_EQ(c.cards[1].slot, 2);
    EXPECT_EQ(c.cards[0].inputs.size(), 1u);
    EXPECT_EQ(c.j1.ic0, 1e-4);
    EXPECT_EQ(c.j1.rn, 10.0);
    EXPECT_EQ(c.j1.betaC, 5.0); // the default stands for a value out of range
    EXPECT_EQ(c.j1.ie, 1e-4); // no more than Ic
    EXPECT_EQ(c.bias.channel, -1);
    EXPECT_EQ(c.heater.channel, 0);               // the bias no longer holds 1,0
    EXPECT_EQ(c.inputs[kSigJ2].port.channel, -1); // J1 holds input 0
    EXPECT_EQ(c.noiseSigma, 3e-4);
    EXPECT_FALSE(c.fStepClock);
    EXPECT_EQ(c.array.count, 20);
    EXPECT_EQ(c.tc, 9.2);
    EXPECT_EQ(c.scxi.chassis, 0);
    i16 r;
    EXPECT_EQ(gSimDaqDriver.AI_Read(1, 0, 1, &r), 0);
    EXPECT_FALSE(SimDaqLoad(dir.File("missing.ini").c_str()));
    EXPECT_EQ(SimDaqConfig().cards[0].bits, 16);
}

// The shipped file spells out the built-in defaults.
TEST(SimRack, ShippedFileEqualsTheBuiltInDefaults) {
    TempDir dir;
    SimDaqLoad(dir.File("absent.ini").c_str());
    SimSampleState builtIn = SimDaqSampleState();
    SimConfig a = SimDaqConfig();
    ASSERT_TRUE(SimDaqLoad(SourcePath("data/simdaq.ini").c_str()));
    const SimConfig& b = SimDaqConfig();
    ASSERT_EQ(a.cards.size(), b.cards.size());
    for (size_t k = 0; k < a.cards.size(); ++k) {
        EXPECT_EQ(a.cards[k].inputs.size(), b.cards[k].inputs.size());
        EXPECT_EQ(a.cards[k].gains, b.cards[k].gains);
        EXPECT_EQ(a.cards[k].name, b.cards[k].name);
        EXPECT_EQ(a.cards[k].outputs, b.cards[k].outputs);
    }
    for (int s = 0; s < kSigCount; ++s) {
        EXPECT_EQ(a.inputs[s].port.channel, b.inputs[s].port.channel) << s;
        EXPECT_EQ(a.inputs[s].gain, b.inputs[s].gain) << s;
        EXPECT_EQ(a.inputs[s].offset, b.inputs[s].offset) << s;
    }
    EXPECT_EQ(a.version, b.version);
    EXPECT_EQ(a.noiseSigma, b.noiseSigma);
    EXPECT_EQ(SimDaqSampleState().j1.ic, builtIn.j1.ic);
}
