// Counts the single card reads and writes of the thread that called CountCardCallsOfThisThread
// last, through a driver it installs that forwards them to the simulated instrument.
#pragma once
#include "instrument/daq/sim_driver.h"

#include <atomic>
#include <thread>

inline std::thread::id gCountedThread;
inline std::atomic<int> gCountedCardCalls{0};

inline void CountCardCallsOfThisThread() {
    static const DaqDriver driver = [] {
        DaqDriver d = gSimDaqDriver;
        d.AI_Read = [](i16 s, i16 c, i16 g, i16* r) {
            gCountedCardCalls += std::this_thread::get_id() == gCountedThread;
            return gSimDaqDriver.AI_Read(s, c, g, r);
        };
        d.AO_Write = [](i16 s, i16 c, i16 r) {
            gCountedCardCalls += std::this_thread::get_id() == gCountedThread;
            return gSimDaqDriver.AO_Write(s, c, r);
        };
        return d;
    }();
    gCountedThread = std::this_thread::get_id();
    gCountedCardCalls = 0;
    SetDaqDriver(&driver);
}
