// Shared helpers of the tests.
#pragma once
#include <string>
#include <vector>

// Counts failed checks while it lives, instead of failing the test. Checks that fail with no
// capture active fail the running test.
class AssertCapture {
  public:
    AssertCapture();
    ~AssertCapture();
    AssertCapture(const AssertCapture&) = delete;
    AssertCapture& operator=(const AssertCapture&) = delete;
    int Count() const { return static_cast<int>(Messages().size()); }
    // The expressions (or messages) reported, oldest first.
    std::vector<std::string> Messages() const;
};

struct ProcessResult {
    int exitCode = -1; // the exit status, or 128 + signal
    std::string out, err;
};

// Runs the built vantrel-cli with arguments (no shell), in dir when given, and collects its
// output. With a signal, sends it once the output shows waitFor, as a user's Ctrl-C would.
ProcessResult RunCli(const std::vector<std::string>& args, const std::string& dir = "",
                     int signal = 0, const std::string& waitFor = "");

// A fresh empty folder under the build tree, removed when the object goes.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& text);
// The folder of the sources, for shipped files under data/.
inline std::string SourcePath(const std::string& relative) {
    return std::string(VANTREL_SOURCE_DIR) + "/" + relative;
}
// A folder in dir where no file can be made: read-only for a normal user; for the superuser,
// whom permissions don't stop, a folder under a regular file.
std::string UnwritableFolder(const TempDir& dir);

// Puts the instrument globals back at their built-in values: no driver and no cards, every
// virtual current and voltage with its DAC state, averaging (and its array), AutoZero, the
// delays and steps, the thermometer options and an empty calibration table.
void ResetInstrumentDefaults();
