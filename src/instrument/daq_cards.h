// The card tables, filled once at start-up from the driver, nidaq.ini and SCXI.ini, and the two
// lowest operations of the instrument layer: read one ADC channel and write one DAC channel,
// both in bits (bits = reading + ZeroShift, modulo 65536).
#pragma once
#include "instrument/daq/daq_driver.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

using f32 = float;

// Capacity of each table.
constexpr int kMaxCards = 16;
// Size of the report buffer that DetectCards fills.
constexpr size_t kCardsReportSize = 1024;

struct ChannelRange {
    u16 first = 0; // both inclusive
    u16 last = 0;
};

// Ascending, non-overlapping ranges of physical channels.
struct ChannelRangeList {
    std::vector<ChannelRange> ranges;
};

struct AdcCard {
    u32 id = 0;      // card id, or module id on SCXI
    i16 chassis = 0; // 0: a PC slot; 1 to 3: an SCXI chassis
    i16 slot = 0;    // driver device number, or module slot
    ChannelRangeList channels;
    u16 MinReading = 0;
    u16 MaxReading = 0;
    u16 ZeroReading = 0;
    f64 MinVoltage = 0.0; // at MinReading, unity gain
    f64 MaxVoltage = 0.0;
    i16 gainCount = 0;
    i16 logGains = 0; // not 0: the gains are decibels
    std::vector<f32> gains;
    u16 ZeroShift = 0;
    std::string name;
    // Iteration state of FirstChannel and NextChannel.
    size_t rangeCursor = 0;
    u16 nextChannel = 0;
};

struct DacCard {
    u32 id = 0;
    i16 chassis = 0;
    i16 slot = 0;
    u16 MinReading = 0;
    u16 MaxReading = 0;
    u16 ZeroReading = 0; // bits that output 0 V
    f64 MinVoltage = 0.0;
    f64 MaxVoltage = 0.0;
    u16 ZeroShift = 0;
    u16 channelCount = 0;
    std::string name;
};

extern AdcCard AdcCards[kMaxCards];
extern u16 AdcCardsCount;
extern DacCard DacCards[kMaxCards];
extern u16 DacCardsCount;

// Empties both tables.
void ResetCards();

// Probes every chassis and slot through Daq(), merges nidaq.ini and SCXI.ini from
// programDirectory, fills the tables and writes the hardware report into report. Returns 0 when
// there are DACs and ADCs, 1 with no DAC, 2 with DACs but no ADC.
int DetectCards(char* report, size_t size, const char* programDirectory);

// The text of a gains source (1, 0, -1, -2) as the report prints it.
const char* GainSourceName(int source);

// Channels over all ranges; the user interface numbers them 0 to ChannelCount - 1.
u16 ChannelCount(const AdcCard& card);
bool PhysicalFromLogical(const AdcCard& card, u16 logical, u16* physical);
bool LogicalFromPhysical(const AdcCard& card, u16 physical, u16* logical);
bool HasChannel(const AdcCard& card, u16 physical);
// The first physical channel; NextChannel then walks the ranges and wraps to the first.
u16 FirstChannel(AdcCard& card);
u16 NextChannel(AdcCard& card);

bool HasGain(const AdcCard& card, f32 gain);
i16 GainCode(f32 gain);

// A failed read beeps and gives the card's ZeroReading; a failed write beeps.
u16 ReadAdcBits(int adc, u16 channel, f32 gain);
// Without the DAQ_Op fallback of ReadAdcBits.
u16 ReadMonitorBits(int adc, u16 channel, f32 gain);
void WriteDacBits(int dac, u16 channel, u16 bits);

u16 AdcBitsFromReading(i16 reading, int adc);
i16 DacReadingFromBits(u16 bits, int dac);
u16 DacBitsFromReading(i16 reading, int dac);

// The blocks of the information text; each writes into text, cut to size. 1 when all fit.
int DescribeVersion(char* text, size_t size);
int DescribeDacs(char* text, size_t size);
int DescribeAdcs(char* text, size_t size);

// What the programs show when DetectCards gives 1 or 2: first the message with
// kCardsStartupCaption, then the report with kCardsReportCaption.
extern const char kCardsStartupCaption[];
extern const char kCardsReportCaption[];
int CardsStartupMessage(int result, const char* programName, char* text, size_t size);
// Shows both boxes through the host.
void ShowCardsStartupFailure(void* window, int result, const char* programName, const char* report);
// Detection for the command line: the report to out and 0, or the start-up message and the
// report to err and DetectCards' result.
int PrintCardsReport(const char* programDirectory, const char* programName, std::FILE* out,
                     std::FILE* err);
