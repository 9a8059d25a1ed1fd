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
    std::string out;
    std::string err;
};

// Runs a program with arguments (no shell), in dir when given, and collects its output; with a
// signal, sends it afterMs milliseconds after the program's standard output first holds waitFor
// (at once when waitFor is empty; at most 60 s of waiting).
ProcessResult RunProcessSignalled(const std::vector<std::string>& argv, int signal, int afterMs,
                                  const std::string& waitFor = "", const std::string& dir = "");
// Runs the built vantrel-cli.
ProcessResult RunCli(const std::vector<std::string>& args, const std::string& dir = "");

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
