// The program's start, in its order: driver and command line, cards, settings, window
// position, then the About box or the files named on the command line. Qt-free, so that the
// tests run it over the headless host.
#pragma once

enum : int {
    STARTUP_RUNNING = 0,
    STARTUP_NO_DAC = 1,
    STARTUP_NO_ADC = 2,
    STARTUP_NO_DRIVER = 3, // -daq: named a driver this program does not have
};

// Selects the driver of -daq: (default "sim", the simulated instrument, which every build
// has). False for an unknown name, after a line on stderr that lists the drivers there are.
bool SelectDriverFromCommandLine();

// The creation event of the main window, on a parsed command line: user name, DetectCards and
// on failure its two boxes; otherwise the DAC state, gIniFileName, all settings and the window
// position. STARTUP_RUNNING when the window goes on, else the reason it must end.
int StartupCreate(void* window);

// What follows the creation: the selection starts empty, the plot fits the data, and command 2
// (About) runs when the command line names no file, else command 266 opens them. post runs a
// command after the queue is empty; null runs it at once.
void StartupFinish(void* window, void (*post)(void* window, int command));
