// The one QApplication of this test program, shared by its files.
#pragma once

// Makes the application on first use; it lives to the end of the run.
void App();

// A base that makes the application before a fixture's widget members are built.
struct AppFirst {
    AppFirst() { App(); }
};
