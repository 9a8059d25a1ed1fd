// The critical current search: its bounded steps and accumulators, and the Ic(H) and Im(H)
// scans of vantrel-cli on the shipped simulated sample.
#include "common/test_support.h"
#include "instrument/daq/sim_internal.h"
#include "measure/bounded_bits.h"
#include "support/least_square_fit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <csignal>
#include <sstream>

namespace {

// Up, Down and Shift at and near the bounds: 0 a full step, 1 a step cut at the bound, -1 a
// step from the bound itself.
TEST(BoundedBits, StepsStopAtTheBoundsAndSayHow) {
    struct Case {
        std::uint32_t value;
        std::int64_t shift;
        int result;
        std::uint32_t after;
    } cases[] = {
        {100, 5, 0, 105},  {198, 5, 1, 200}, {200, 5, -1, 200}, {200, 0, 0, 200},
        {105, -5, 0, 100}, {52, -5, 1, 50},  {50, -5, -1, 50},  {60, -4294967295LL, 1, 50},
    };
    for (const Case& k : cases) {
        BoundedBits b(0);
        b.SetLower(50);
        b.SetUpper(200);
        b.Assign(k.value);
        EXPECT_EQ(b.Shift(k.shift), k.result) << k.value << " " << k.shift;
        EXPECT_EQ(b.Value(), k.after) << k.value << " " << k.shift;
    }
    // A bound moved past the value and the other bound drags both along.
    BoundedBits b(10);
    b.SetUpper(5);
    EXPECT_EQ(std::tuple(b.Lower(), b.Value(), b.Upper()), std::tuple(0u, 5u, 5u));
    b.SetLower(8);
    EXPECT_EQ(std::tuple(b.Lower(), b.Value(), b.Upper()), std::tuple(8u, 8u, 8u));
    BoundedBits top(UINT32_MAX - 1);
    EXPECT_EQ(top.Up(5), 1);
    EXPECT_EQ(top.Up(1), -1);
}

TEST(LeastSquareFit, LineGuardsAndStatistic) {
    LeastSquareFit fit;
    EXPECT_THROW(fit.A(), LeastSquareFitException);
    fit.Add(1, 2, 1);
    fit.Add(2, 3, 1);
    EXPECT_DOUBLE_EQ(fit.A(), 1.0);
    EXPECT_DOUBLE_EQ(fit.B(), 1.0);
    fit.Add(3, 2, 1);
    fit.Add(4, 1, 1);
    EXPECT_DOUBLE_EQ(fit.A(), -0.4);
    EXPECT_DOUBLE_EQ(fit.B(), 3.0);
    fit.Clear();
    fit.Add(5, 1, 1);
    fit.Add(5, 2, 3);
    EXPECT_EQ(fit.A(), DBL_MAX); // all x equal: no exception
    EXPECT_EQ(fit.B(), DBL_MAX);

    Statistic s;
    try {
        s.Average();
        ADD_FAILURE() << "no throw";
    } catch (const StatisticException& e) {
        EXPECT_STREQ(e.Message(), "Can't compute average value - the number of elements is zero");
    }
    for (double v : {2.0, 3.0, 1.0})
        s.Add(v);
    EXPECT_DOUBLE_EQ(s.Average(), 2.0);
    EXPECT_DOUBLE_EQ(s.StdDev(), std::sqrt(6.0) / 3);
    EXPECT_EQ(std::tuple(s.Min(), s.Max(), s.Count()), std::tuple(1.0, 3.0, 3u));
}

// Columns of the data file: x and y of each curve in turn.
std::vector<std::vector<double>> ReadColumns(const std::string& text) {
    std::vector<std::vector<double>> rows;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        std::istringstream fields(line);
        std::vector<double> row;
        for (double v; fields >> v;)
            row.push_back(v);
        if (!row.empty()) rows.push_back(row);
    }
    return rows;
}

// The shipped sample: coil 1 kOhm on +-10 V, J1 with H0 = 2 mA, the field offset 0.1 mA.
constexpr double kH0 = 2e-3, kOffset = 1e-4, kIc0 = 1e-4, kStepIc = 5e-5;
// The common scale of the coil's range for a coil current.
std::string Bits(double amps) {
    return std::to_string(static_cast<int>((amps + 0.01) / 0.02 * 65535));
}

class IcScanCli : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"vtl.ini", "thinfilm.R(T)"})
            WriteWholeFile(dir.File(name), ReadWholeFile(SourcePath(std::string("data/") + name)));
        std::string sim = ReadWholeFile(SourcePath("data/simdaq.ini"));
        sim.replace(sim.find("Mode=real"), 9, "Mode=step");
        WriteWholeFile(dir.File("simdaq.ini"), sim);
    }
    ProcessResult Run(const std::string& title, std::vector<std::string> extra) {
        std::vector<std::string> args = {"measure", title, "-i:" + dir.File("vtl.ini"),
                                         "-simdaq:" + dir.File("simdaq.ini"),
                                         "-o:" + dir.File("scan.dat")};
        // The array's voltage, read at gain 10, resolves only 30 uV: its search needs another
        // criterion, so it stays out of these scans.
        args.push_back("-set:Virtual Voltages/VirtVolt[002].kind=0");
        args.insert(args.end(), extra.begin(), extra.end());
        return RunCli(args);
    }
    TempDir dir;
};

// Ic(H) of J1 over +-3 H0 follows Ic0 AB(T0) |sin(pi h/H0)/(pi h/H0)|: RMS deviation under 2% of
// the maximum, and the minima lie at the offset + n H0 within one field step.
TEST_F(IcScanCli, FraunhoferPatternOfJ1) {
    const double step = 256 * 0.02 / 65535;
    ProcessResult r =
        Run("Ic(H)", {"-from:" + Bits(kOffset - 3 * kH0), "-to:" + Bits(kOffset + 3 * kH0),
                      "-step:256", "-autozero:+", "-set:Math/Ic(X)ShowPhaseMessage=0"});
    ASSERT_EQ(r.exitCode, 0) << r.err << r.out.substr(0, 2000);
    EXPECT_NE(r.out.find("J1/Bias current (J1, J2, array)"), std::string::npos) << r.out;
    const auto rows = ReadColumns(ReadWholeFile(dir.File("scan.dat")));
    ASSERT_GT(rows.size(), 80u);
    const double ab = SimAbRatio(4.2, 9.2);
    double sum2 = 0, peak = 0;
    std::vector<std::pair<double, double>> points;
    for (const auto& row : rows) {
        const double h = (row[0] - kOffset) / kH0;
        const double model = kIc0 * ab * (h == 0 ? 1 : std::fabs(std::sin(M_PI * h) / (M_PI * h)));
        sum2 += (row[1] - model) * (row[1] - model);
        peak = std::max(peak, row[1]);
        points.emplace_back(row[0], row[1]);
    }
    EXPECT_LT(std::sqrt(sum2 / rows.size()), 0.02 * peak);
    // The node: the middle of the three lowest points near it, within one field step.
    for (int node : {-2, -1, 1, 2}) {
        const double at = kOffset + node * kH0;
        std::vector<std::pair<double, double>> near;
        for (const auto& p : points)
            if (std::fabs(p.first - at) < 0.4 * kH0) near.emplace_back(p.second, p.first);
        ASSERT_GE(near.size(), 3u);
        std::sort(near.begin(), near.end());
        const double middle = (near[0].second + near[1].second + near[2].second) / 3;
        EXPECT_LE(std::fabs(middle - at), step) << node;
    }
}

// Im(H): between the nodes of Ic the junction switches onto the resonance step, whose top
// follows StepIc AB |sin(pi h/H0)|; in the central lobe it jumps past the step and the point is 0.
TEST_F(IcScanCli, ImFindsTheResonanceStepOutsideTheCentralLobe) {
    ProcessResult r =
        Run("Im(H)",
            {"-from:" + Bits(kOffset - 1.6 * kH0), "-to:" + Bits(kOffset + 1.6 * kH0), "-step:2048",
             "-autozero:+", "-set:Math/Ic(H)StepVoltage=2e-4", "-set:Math/Ic(H)ResetVoltage=2e-5",
             "-set:Math/Ic(H)Criterion=2e-5", "-set:Math/Ic(X)ShowPhaseMessage=0"});
    ASSERT_EQ(r.exitCode, 0) << r.err << r.out.substr(0, 2000);
    const auto rows = ReadColumns(ReadWholeFile(dir.File("scan.dat")));
    ASSERT_GT(rows.size(), 8u);
    const double ab = SimAbRatio(4.2, 9.2);
    int onStep = 0;
    for (const auto& row : rows) {
        const double h = (row[0] - kOffset) / kH0;
        const double top = kStepIc * ab * std::fabs(std::sin(M_PI * h));
        const double ic = kIc0 * ab * std::fabs(std::sin(M_PI * h) / (M_PI * h));
        if (std::fabs(h) < 0.5) {
            EXPECT_EQ(row[1], 0.0) << h;
        } else if (top > 1.2 * ic) {
            EXPECT_NEAR(row[1], top, 0.03 * kStepIc) << h;
            ++onStep;
        }
    }
    EXPECT_GE(onStep, 2);
}

// A criterion no voltage can pass shows the non-zero-voltage message; the family is left
// empty and the run still ends normally. Ctrl-C stops a scan with the points measured so far.
TEST_F(IcScanCli, FailureAndStop) {
    ProcessResult r = Run("Ic(H)", {"-step:4096", "-set:Math/Ic(H)Criterion=1e10"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("[Error in Ic<H>] Can not reach the state with non zero Voltage"),
              std::string::npos)
        << r.out.substr(0, 3000);
    EXPECT_NE(r.out.find("Ic(H): 0 curve(s)"), std::string::npos) << r.out.substr(0, 3000);

    WriteWholeFile(dir.File("simdaq.ini"), ReadWholeFile(SourcePath("data/simdaq.ini")));
    r = RunCli({"measure", "Ic(H)", "-i:" + dir.File("vtl.ini"),
                "-simdaq:" + dir.File("simdaq.ini"), "-o:" + dir.File("stop.dat"), "-step:64",
                "-autozero:+", "-set:Measure/SystemDecayTime=5",
                "-set:Math/Ic(X)ShowPhaseMessage=0"},
               "", SIGINT, " 1.0 %");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("(stopped)"), std::string::npos) << r.out.substr(0, 2000);
    const std::string ini = ReadWholeFile(dir.File("stop.ini"));
    const size_t at = ini.find("NumberOfPointsInCurve0=");
    ASSERT_NE(at, std::string::npos);
    const unsigned long points = std::stoul(ini.substr(at + 23));
    EXPECT_GE(points, 5u);
    EXPECT_LT(points, 1024u);
}

} // namespace
