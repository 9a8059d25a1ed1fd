// The run journal: a CLI run killed with SIGKILL leaves its points, and "recover" makes them a
// data pair equal to what an unbroken run measured; a damaged journal gives what it can.
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/run_journal_recover.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

TEST(RunJournal, KilledRunIsRecoveredAsMeasured) {
    TempDir dir;
    for (const char* name : {"vtl.ini", "thinfilm.R(T)"})
        WriteWholeFile(dir.File(name), ReadWholeFile(SourcePath(std::string("data/") + name)));
    // Without noise the simulated sample answers the same bias the same way in every run.
    std::string sim = ReadWholeFile(SourcePath("data/simdaq.ini"));
    sim.replace(sim.find("Sigma=3e-4"), 10, "Sigma=0");
    WriteWholeFile(dir.File("simdaq.ini"), sim);
    const std::vector<std::string> common = {"measure",
                                             "IVC",
                                             "-i:" + dir.File("vtl.ini"),
                                             "-simdaq:" + dir.File("simdaq.ini"),
                                             "-step:256",
                                             "-set:Measure/SystemDecayTime=20",
                                             "-set:Measure/InteractionTime=100"};

    std::vector<std::string> args = common;
    args.push_back("-o:" + dir.File("whole.dat"));
    ProcessResult whole = RunCli(args);
    ASSERT_EQ(whole.exitCode, 0) << whole.err;

    std::string command = "cd " + dir.Path() + " && (" VANTREL_CLI_PATH;
    for (const std::string& a : common)
        command += " '" + a + "'";
    command += " > killed.log 2>&1 & pid=$!; sleep 2.5; kill -9 $pid; wait $pid) 2>/dev/null";
    std::system(command.c_str());
    ProcessResult r =
        RunCli({"recover", "-i:" + dir.File("vtl.ini"), "-simdaq:" + dir.File("simdaq.ini")});
    ASSERT_EQ(r.exitCode, 0) << r.err << r.out;
    const size_t at = r.out.find("data: ");
    ASSERT_NE(at, std::string::npos) << r.out;
    const std::string pair = r.out.substr(at + 6, r.out.find('\n', at) - at - 6);
    const std::vector<std::string> got = Lines(ReadWholeFile(pair));
    const std::vector<std::string> want = Lines(ReadWholeFile(dir.File("whole.dat")));
    // 2.5 s of 20 ms points, less the start (slow under the thread sanitizer) and at most one
    // InteractionTime (5 points).
    EXPECT_GE(got.size(), 5u) << r.out;
    ASSERT_LT(got.size(), want.size());
    for (size_t k = 0; k < got.size(); ++k)
        ASSERT_EQ(got[k], want[k]) << "line " << k;
    EXPECT_NE(ReadWholeFile(pair.substr(0, pair.size() - 3) + "ini")
                  .find("Recovered from the journal of a run that did not end"),
              std::string::npos);
    // The journal is gone: a second recover finds nothing.
    r = RunCli({"recover", "-i:" + dir.File("vtl.ini"), "-simdaq:" + dir.File("simdaq.ini")});
    EXPECT_NE(r.out.find("no journal to recover"), std::string::npos) << r.out;
}

TEST(RunJournal, DamagedJournalGivesWhatItCanAndSaysSo) {
    HeadlessReset();
    TempDir dir;
    const std::string journal = dir.File("run_999999.journal");
    WriteWholeFile(journal, "VantrelJournal 1\ntitle IVC\nxunits A\nyunits V\ncurve 0 J1\n"
                            "curve 1 J2\np 0 0 1 2\np 0 1 2 4\ngarbage\np 1 0 1 -1\np 1 2 3 -3\n"
                            "p 0 2 3 6\np 0 3 4 8\np 0 4 5 1");
    std::string pair, report;
    ASSERT_EQ(RecoverJournal(journal.c_str(), pair, report), 0) << report;
    EXPECT_NE(report.find("recovered 5 point(s) in 2 curve(s)"), std::string::npos) << report;
    EXPECT_NE(report.find("cut short"), std::string::npos) << report;
    EXPECT_NE(report.find("2 damaged line(s) skipped"), std::string::npos) << report;
    ASSERT_EQ(gCurves.count, 2u);
    EXPECT_EQ(std::tuple(gCurves.GetCurve(0).count, gCurves.GetCurve(1).count), std::tuple(4u, 1u));
    EXPECT_FLOAT_EQ(gCurves.GetCurve(0).points[3].y, 8.0f);
    EXPECT_EQ(std::string(gCurves.xUnits) + gCurves.yUnits + gCurves.name, "AVIVC");
    EXPECT_FALSE(std::ifstream(journal).good()); // removed once the pair is written

    WriteWholeFile(journal, "not a journal\n");
    EXPECT_EQ(RecoverJournal(journal.c_str(), pair, report), -1);
    EXPECT_NE(report.find("nothing to recover"), std::string::npos);
    // A journal whose program still runs is not offered.
    WriteWholeFile(dir.File("run_1.journal"), "VantrelJournal 1\n");
    const auto left = LeftJournals(dir.Path().c_str());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0], journal);
}

} // namespace
