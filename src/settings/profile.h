// Profile files (vtl.ini, the .ini of a data pair, nidaq.ini, simdaq.ini) with the behaviour of
// the Windows profile calls: sections and keys match without regard to case, a written key
// replaces its value in place and keeps the rest of the file, a missing file or key gives the
// default. Lines are written with CR LF; LF alone is read. A write never leaves a half-written
// file.
#pragma once
#include <cstddef>
#include <string>

// The integer at the start of the value (decimal, optional sign), or defaultValue when the key
// is missing or the value does not start with a number.
int GetPrivateProfileInt(const char* section, const char* key, int defaultValue,
                         const char* fileName);
// Copies the value (or defaultValue) into out, cut to size; returns the characters copied.
// A null key lists the section's keys, a null section the sections: names ended by NULs.
unsigned GetPrivateProfileString(const char* section, const char* key, const char* defaultValue,
                                 char* out, size_t size, const char* fileName);
// Writes key=value in section, creating the file and section when missing. A null value
// deletes the key; a null key deletes the section. Returns 1, or 0 when the file can't be
// written. Inside a batch the write, and the report of its failure, come when the batch ends.
int WritePrivateProfileString(const char* section, const char* key, const char* value,
                              const char* fileName);

// The typed helpers. A value whose text starts with "?" counts as missing.
double ReadProfileDouble(const char* section, const char* key, double defaultValue,
                         const char* fileName);
long ReadProfileLong(const char* section, const char* key, long defaultValue, const char* fileName);
int WriteProfileDouble(const char* section, const char* key, const char* format, double value,
                       const char* fileName);
int WriteProfileInt(const char* section, const char* key, const char* format, int value,
                    const char* fileName);
int WriteProfileLong(const char* section, const char* key, const char* format, long value,
                     const char* fileName);

// The box of a file that could not be written, with the system's reason (an errno value):
// "Can not write file\n<fileName>\n<reason>" under "Error".
void ReportWriteFailure(const char* fileName, int error);

// While one lives, every call on fileName works on one copy read once, and writes reach the
// disk once, when the last batch on that file ends. LoadAllSettings and SaveAllSettings walk
// the groups inside one. When that one write fails, the user is told at once
// (ReportWriteFailure) and End gives 0, so the caller can give up too.
class ProfileBatch {
  public:
    explicit ProfileBatch(const char* fileName);
    ~ProfileBatch();
    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;

    // Ends the batch before its scope does; later calls give the same result. 0 when this was
    // the last batch on the file and its write failed; otherwise 1, also for an inner batch,
    // whose writes the outer one carries and answers for.
    int End();

  private:
    std::string file_;
    int result_ = -1; // -1 while open
};
