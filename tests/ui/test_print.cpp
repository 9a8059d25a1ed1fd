// Printing: the plot's place on the page, the text blocks and their page breaks, the job's
// name and failure, on a recording canvas; the PDF of vantrel-cli print.
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "platform/headless_host.h"
#include "recording_canvas.h"
#include "ui/print_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// Landscape A4 at 10 pixels a millimetre.
CanvasCaps Landscape() {
    return CanvasCaps{297, 210, 2970, 2100, 32, 1, -1, 254, 254};
}

struct FakeJob {
    RecordingCanvas dc;
    std::string log;
    bool refuse = false;

    PrintJob Job() {
        PrintJob job;
        job.canvas = dc.Table();
        job.context = this;
        job.StartDoc = [](void* c, const char* name) {
            FakeJob& j = *static_cast<FakeJob*>(c);
            j.log += std::string("doc ") + name + ";";
            return j.refuse ? 0 : 1;
        };
        job.StartPage = [](void* c) { static_cast<FakeJob*>(c)->log += "page;"; };
        job.EndPage = [](void* c) { static_cast<FakeJob*>(c)->log += "end;"; };
        job.EndDoc = [](void* c) { static_cast<FakeJob*>(c)->log += "done;"; };
        return job;
    }
};

class PrintTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HeadlessReset();
        ResetPrintOptions();
        gCurrentFileName[0] = '\0';
        gPrintJobCounter = 0;
        gCurves.Reset();
        gCurves.SetCurveCount(2);
        for (unsigned c = 0; c < 2; ++c) {
            gCurves.GetCurve(c).SetName(c ? "J2" : "J1");
            for (int i = 0; i < 10; ++i)
                gCurves.GetCurve(c).AddPoint(i, i * (c + 1.0f));
        }
        gCurves.SetPlotName("IVC");
    }
    // The headings and labels printed, in order, from the first "Picture Info" on.
    static std::vector<std::string> TextAfterPlot(const RecordingCanvas& dc, const char* first) {
        std::vector<std::string> texts = dc.Texts();
        auto at = std::find(texts.begin(), texts.end(), first);
        return std::vector<std::string>(at, texts.end());
    }
};

} // namespace

// Margins, then the layout's part of the page, then 16 to 10 by narrowing or by lowering the
// bottom (the top stays); RatioXY 1 keeps the whole part.
TEST(PrintedPlotArea, LayoutsAndRatio) {
    struct Case {
        int layout, ratio;
        CanvasRect expected;
    } cases[] = {
        {0, 1, {200, 200, 2870, 1900}},  {0, 0, {200, 200, 2870, 1868}},
        {1, 0, {855, 200, 2215, 1050}},  {5, 0, {855, 200, 2215, 1050}},
        {2, 1, {200, 1050, 2870, 1900}}, {3, 1, {200, 200, 1535, 1900}},
        {3, 0, {200, 200, 1535, 1034}},  {4, 1, {1535, 200, 2870, 1900}},
        {6, 1, {200, 200, 1535, 1050}},  {9, 1, {1535, 1050, 2870, 1900}},
    };
    for (const Case& k : cases) {
        PageSetup setup;
        setup.pageLayout = k.layout;
        setup.ratioXY = k.ratio;
        const CanvasRect a = PrintedPlotArea(Landscape(), setup);
        EXPECT_EQ(std::tuple(a.left, a.top, a.right, a.bottom),
                  std::tuple(k.expected.left, k.expected.top, k.expected.right, k.expected.bottom))
            << "layout " << k.layout << " ratio " << k.ratio;
    }
}

// The document is named after the file (or "Screen") and the job's number; a device that will
// not start shows the box and draws nothing.
TEST_F(PrintTest, JobNameCounterAndRefusal) {
    FakeJob fake;
    PrintJob job = fake.Job();
    fake.refuse = true;
    EXPECT_EQ(PrintOnJob(job, gCurves), 0);
    EXPECT_EQ(fake.log, "doc Vantrel -- Screen (ID=1);");
    ASSERT_EQ(HeadlessBoxes().size(), 1u);
    EXPECT_EQ(HeadlessBoxes()[0].caption + "|" + HeadlessBoxes()[0].text,
              "Print Error|Unable to start print job");
    EXPECT_TRUE(fake.dc.calls.empty());

    fake.refuse = false;
    fake.log.clear();
    strcpy(gCurrentFileName, "/data/B7.dat");
    EXPECT_EQ(PrintOnJob(job, gCurves), 1);
    EXPECT_EQ(fake.log.substr(0, fake.log.find(';')), "doc Vantrel -- /data/B7.dat (ID=2)");
}

// Layout 5 keeps the text on the plot's page; the others start a new page. The blocks come in
// their order, each only when its flag is on; the flags that steer nothing change nothing.
TEST_F(PrintTest, TextBlocksFollowTheFlagsAndTheLayout) {
    struct Case {
        int layout;
        std::vector<int> on, off;
        const char* log;
        std::vector<std::string> headings;
    } cases[] = {
        {0,
         {},
         {},
         "doc Vantrel -- Screen (ID=1);page;end;page;end;done;",
         {"Picture Info", "Legend", "Virtual Currents and Voltages", "Averaging", "Delays"}},
        {5,
         {PRINT_WFMS, PRINT_TRIGGER, PRINT_PARAMS_ON_SEPARATE_PAGE},
         {},
         "doc Vantrel -- Screen (ID=1);page;end;done;",
         {"Picture Info", "Legend", "Virtual Currents and Voltages", "Averaging", "Delays"}},
        {0,
         {PRINT_TERMOMETER_SETUP},
         {PRINT_INFO, PRINT_AVERAGING},
         "doc Vantrel -- Screen (ID=1);page;end;page;end;done;",
         {"Legend", "Virtual Currents and Voltages", "Delays", "Termometer Options"}},
    };
    for (const Case& k : cases) {
        ResetPrintOptions();
        gPrintJobCounter = 0;
        gPageSetup.pageLayout = k.layout;
        for (int f : k.on)
            gPrintFlags[f] = 1;
        for (int f : k.off)
            gPrintFlags[f] = 0;
        FakeJob fake;
        fake.dc.caps = Landscape();
        PrintJob job = fake.Job();
        ASSERT_EQ(PrintOnJob(job, gCurves), 1);
        EXPECT_EQ(fake.log, k.log) << k.layout;
        std::vector<std::string> headings;
        for (const std::string& t : fake.dc.Texts())
            for (const char* h : {"Picture Info", "Legend", "Virtual Currents and Voltages",
                                  "Averaging", "Delays", "Termometer Options"})
                if (t == h) headings.push_back(t);
        EXPECT_EQ(headings, k.headings) << k.layout;
    }
}

// The Picture Info rows with the date as day-month-year and the file name cut at its front; the
// legend has one row a curve.
TEST_F(PrintTest, PictureInfoAndLegendRows) {
    gCurves.date = 1700000000; // 14 or 15 Nov 2023, by the time zone
    gCurves.SetChipName("B7");
    std::string longName(300, 'x');
    strcpy(gCurrentFileName, ("/a/" + longName.substr(0, 200) + "/end.dat").c_str());
    FakeJob fake;
    fake.dc.caps = Landscape();
    PrintJob job = fake.Job();
    ASSERT_EQ(PrintOnJob(job, gCurves), 1);
    std::vector<std::string> t = TextAfterPlot(fake.dc, "Picture Info");
    ASSERT_GE(t.size(), 18u);
    EXPECT_EQ(std::vector<std::string>(t.begin(), t.begin() + 3),
              (std::vector<std::string>{"Picture Info", "Figure Name:", "IVC"}));
    EXPECT_EQ(t[3], "File Name:");
    EXPECT_EQ(t[4].substr(0, 3), "...");
    EXPECT_EQ(t[4].substr(t[4].size() - 8), "/end.dat");
    EXPECT_EQ(t[5], "Date:");
    EXPECT_TRUE(t[6] == "14-Nov-2023" || t[6] == "15-Nov-2023") << t[6];
    EXPECT_EQ(std::vector<std::string>(t.begin() + 7, t.begin() + 9),
              (std::vector<std::string>{"Chip Name:", "B7"}));
    auto legend = std::find(t.begin(), t.end(), "Legend");
    ASSERT_NE(legend, t.end());
    EXPECT_EQ(std::vector<std::string>(legend + 1, legend + 3),
              (std::vector<std::string>{"J1", "J2"}));
}

// vantrel-cli print makes the PDF the options ask for: one page with layout 5, two without, and
// the blocks' headings in its text.
TEST(PrintCli, PdfHasThePagesAndBlocksAsked) {
    if (std::system("command -v pdftotext >/dev/null 2>&1") != 0) GTEST_SKIP() << "no pdftotext";
    TempDir dir;
    for (const char* name : {"vtl.ini", "thinfilm.R(T)"})
        WriteWholeFile(dir.File(name), ReadWholeFile(SourcePath(std::string("data/") + name)));
    WriteWholeFile(dir.File("iv.dat"), "1 2\n2 4\n3 6\n4 8\n5 10\n");
    struct Case {
        std::vector<std::string> sets;
        const char* pages;
        bool info;
    } cases[] = {
        {{}, "Pages:           2", true},
        {{"-set:Print/PageLayout=5", "-set:Print/PrintInfo=0"}, "Pages:           1", false}};
    for (const Case& k : cases) {
        std::vector<std::string> args = {"print", dir.File("iv.dat"), "-o:" + dir.File("p.pdf"),
                                         "-i:" + dir.File("vtl.ini")};
        args.insert(args.end(), k.sets.begin(), k.sets.end());
        ProcessResult r = RunCli(args);
        ASSERT_EQ(r.exitCode, 0) << r.err << r.out;
        const std::string text = dir.File("p.txt");
        ASSERT_EQ(std::system(("pdftotext " + dir.File("p.pdf") + " " + text).c_str()), 0);
        const std::string info = dir.File("info.txt");
        ASSERT_EQ(std::system(("pdfinfo " + dir.File("p.pdf") + " > " + info).c_str()), 0);
        EXPECT_NE(ReadWholeFile(info).find(k.pages), std::string::npos) << ReadWholeFile(info);
        const std::string words = ReadWholeFile(text);
        EXPECT_EQ(words.find("Picture Info") != std::string::npos, k.info);
        for (const char* heading : {"Legend", "Averaging", "Delays"})
            EXPECT_NE(words.find(heading), std::string::npos) << heading;
    }
    ProcessResult r = RunCli({"print", dir.File("iv.dat"), "-o:" + dir.File("no/such/p.pdf"),
                              "-i:" + dir.File("vtl.ini")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.out.find("Unable to start print job"), std::string::npos) << r.out << r.err;
}
