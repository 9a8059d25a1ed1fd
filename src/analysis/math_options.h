// The options of the Math menu in section "Math": smoothing, spike filter, thinning and the
// multi-point derivative. Written by the interface thread.
#pragma once
#include <cstdint>

extern std::uint32_t SmoothParameter; // points on each side
extern float FilterParameter;         // critical amplitude in units of y
extern float SEP_CriticalAngle;       // degrees
extern std::uint32_t DerivePoints;    // points on each side
extern std::int32_t DeriveDiscardEdge;
extern std::int32_t DeriveDiscardDir;

int LoadMathOptions(const char* fileName);
int SaveMathOptions(const char* fileName);
void ResetMathOptions();
// The small dialogs of the commands; 1 for OK.
int SmoothDialog(void* window);
int FilterDialog(void* window);
int SkipPointsDialog(void* window);
int MathSetupDialog(void* window);
