#include "sim_rig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace {

// Whether the input converts the reading, and to what.
std::pair<bool, double> Convert(i16 slot, i16 channel, i16 gainCode, int reading) {
    double v = 0;
    i16 status =
        gSimDaqDriver.AI_VScale(slot, channel, gainCode, 1.0, 0.0, static_cast<i16>(reading), &v);
    return {status == 0, v};
}

// '1' for each (slot, channel, gain code, reading), given in a row, that converts, '0' for each
// that fails.
std::string Converts(std::initializer_list<int> quads) {
    std::string s;
    for (const int* q = quads.begin(); q != quads.end(); q += 4)
        s += Convert(q[0], q[1], q[2], q[3]).first ? '1' : '0';
    return s;
}

bool OutputAccepts(i16 slot, i16 channel, double volts, i16* reading = nullptr) {
    i16 r = 0;
    i16 status = gSimDaqDriver.AO_VScale(slot, channel, volts, &r);
    if (reading) *reading = r;
    return status == 0;
}

// The highest voltage output 0 of a slot takes, found by bisection as the card probe does, and
// the reading it converts to.
std::pair<double, int> UpperLimit(i16 slot) {
    double good = 0, bad = 1000, probe = 500;
    while (probe != good && probe != bad) {
        (OutputAccepts(slot, 0, probe) ? good : bad) = probe;
        probe = (good + bad) / 2;
    }
    i16 r = 0;
    OutputAccepts(slot, 0, good, &r);
    return {good, r};
}

} // namespace

TEST(SimRack, DefaultRackAnswersTheProbesAndOutputsRefuseWhatTheyCannotReach) {
    TempDir dir;
    SimDaqLoad(dir.File("absent.ini").c_str());
    u32 id[2] = {};
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(1, kDaqInfoDeviceType, &id[0]), 0);
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(2, kDaqInfoDeviceType, &id[1]), 0);
    EXPECT_EQ(std::tuple(id[0], id[1]), std::tuple(16001u, 12008u));
    EXPECT_LT(gSimDaqDriver.Get_DAQ_Device_Info(3, kDaqInfoDeviceType, &id[0]), 0);
    EXPECT_EQ(gSimDaqDriver.Get_DAQ_Device_Info(1, 1, &id[0]), kDaqNotSupported);
    // Channels 0 to 15 of card 1, none on the output card; 16-bit two's complement readings;
    // gains 0.5 to 100, codes -1, 1, 2, 5, ..., 100.
    EXPECT_EQ(
        Converts({1, 0, 1, 0, 1, 15, 1, 0, 1, 16, 1, 0, 1, 255, 1, 0, 2, 0, 1, 0, 1, 0, 1, 4096}),
        "110001");
    std::string codes;
    for (int code : {-1, 1, 2, 5, 10, 20, 50, 100, 0, -2, -3, -10, 200, 1000})
        codes += Convert(1, 0, code, 0).first ? '1' : '0';
    EXPECT_EQ(codes, "11111111000000");
    EXPECT_EQ(Convert(1, 0, 1, -32768), std::pair(true, -10.0));
    EXPECT_NEAR(Convert(1, 0, 100, 32767).second, 0.1, 1e-5);
    // Outputs refuse what they cannot reach.
    i16 r;
    EXPECT_EQ((std::vector<bool>{OutputAccepts(1, 1, 0.0), OutputAccepts(1, 2, 0.0),
                                 OutputAccepts(2, 7, 0.0), OutputAccepts(2, 8, 0.0),
                                 OutputAccepts(1, 0, 10.0), OutputAccepts(1, 0, -10.001),
                                 OutputAccepts(1, 0, -10.0, &r)}),
              (std::vector<bool>{true, false, true, false, false, false, true}));
    EXPECT_EQ(r, -32768);
    EXPECT_EQ(UpperLimit(1).second, 32767);
    EXPECT_EQ(UpperLimit(2), std::pair(10.0 * 2047 / 2048, 2047));
    EXPECT_LT(gSimDaqDriver.AO_Write(2, 0, 2048), 0);
    EXPECT_EQ(gSimDaqDriver.AO_Write(2, 0, 2047), 0);
}

TEST(SimRack, ReadingRangesOfTwelveAndSixteenBitCodings) {
    TempDir dir;
    LoadSim(dir, "[Rack]\nCards=4\n"
                 "[Card1]\nSlot=1\nBits=12\nInputs=0-7,16-23\n"
                 "[Card2]\nSlot=2\nBits=12\nCoding=1\nInputs=0-3\nOutputs=2\n"
                 "[Card3]\nSlot=3\nBits=16\nCoding=1\nInputs=0-3\nOutputs=1\n"
                 "[Card4]\nSlot=4\nBits=16\nInputs=0-3\nGains=-20,-10,0,10,20,40\nLogGains=1\n");
    // 12-bit two's complement, -2048 to 2047; the gap in the channels; 12-bit offset binary,
    // 0 to 4095; decibels: code 1 fails, 0 dB and 20 dB pass, 30 dB is not on the card.
    EXPECT_EQ(Converts({1, 0,  1, 4096, 1, 0,  1, 2049, 1, 7,  1, 0, 1, 8, 1,  0,
                        1, 15, 1, 0,    1, 16, 1, 0,    1, 24, 1, 0, 2, 0, 1,  4096,
                        2, 0,  1, -1,   4, 0,  1, 0,    4, 0,  0, 0, 4, 0, 30, 0}),
              "001001000010");
    EXPECT_EQ(Convert(1, 0, 1, -2048), std::pair(true, -10.0));
    EXPECT_GT(Convert(2, 0, 1, 2049).second, 0); // zero at 2048
    EXPECT_EQ(UpperLimit(2).second, 4095);
    EXPECT_GT(Convert(3, 0, 1, -32767).second, 0); // 16-bit offset binary: 32769, above zero
    EXPECT_EQ(static_cast<u16>(UpperLimit(3).second), 65535);
    EXPECT_NEAR(Convert(4, 0, 20, 32767).second, 1.0, 1e-3); // 20 dB is a factor 10
}

TEST(SimRack, ScxiChassisWithOutputModules) {
    TempDir dir;
    LoadSim(dir, "[SCXI]\nChassis=1\nAddress=3\nSlots=4\nModules=1\n"
                 "[SCXIModule1]\nSlot=2\nId=1124\nChannels=6\n[Outputs]\nCoil=1,2,5\n");
    i16 type, addr, mode, path, slots, id, other, written;
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Chassis_Info(1, &type, &addr, &mode, &path, &slots), 0);
    EXPECT_EQ(std::tuple(addr, mode != 0, slots), std::tuple(3, true, 4));
    EXPECT_LT(gSimDaqDriver.SCXI_Get_Chassis_Info(2, &type, &addr, &mode, &path, &slots), 0);
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Module_Id(1, 2, &id), 0);
    EXPECT_EQ(gSimDaqDriver.SCXI_Get_Module_Id(1, 1, &other), 0);
    EXPECT_EQ(std::tuple(id, other < 1), std::tuple(1124, true));
    EXPECT_EQ(gSimDaqDriver.SCXI_AO_Write(1, 2, 5, 2, 6, 0, 0, &written), 0);
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
    const SimCardConfig& c0 = c.cards[0];
    EXPECT_EQ(std::tuple(c0.bits, c0.span, c0.slot, c0.outputs, c0.inputs.size(), c.cards[1].slot),
              std::tuple(12, 10.0, 1, 2, 1u, 2));
    // Defaults stand for values out of range; Ie is no more than Ic.
    EXPECT_EQ(std::tuple(c.j1.ic0, c.j1.rn, c.j1.betaC, c.j1.ie),
              std::tuple(1e-4, 10.0, 5.0, 1e-4));
    // The bias no longer holds 1,0 for the heater; J1 holds input 0 before J2.
    EXPECT_EQ(std::tuple(c.bias.channel, c.heater.channel, c.inputs[kSigJ2].port.channel),
              std::tuple(-1, 0, -1));
    EXPECT_EQ(std::tuple(c.noiseSigma, c.fStepClock, c.array.count, c.tc, c.scxi.chassis),
              std::tuple(3e-4, false, 20, 9.2, 0));
    i16 r;
    EXPECT_EQ(gSimDaqDriver.AI_Read(1, 0, 1, &r), 0);
    EXPECT_FALSE(SimDaqLoad(dir.File("missing.ini").c_str()));
    EXPECT_EQ(SimDaqConfig().cards[0].bits, 16);
}
