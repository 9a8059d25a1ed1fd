// A clean family, options and host for every data file test.
#pragma once
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "platform/headless_host.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class DataFileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HeadlessReset();
        ResetDataFileOptions();
        gDataFileLink = {}; // no view to write, no window to tell
    }

    // Curves of the given lengths named "c<i>", point k of curve i at (k + i/4, -k * 1.5e-3).
    static void Fill(const std::vector<unsigned>& lengths) {
        gCurves.Reset();
        gCurves.SetCurveCount(static_cast<unsigned>(lengths.size()));
        for (unsigned i = 0; i < lengths.size(); ++i) {
            Curve& c = gCurves.GetCurve(i);
            c.SetName(("c" + std::to_string(i)).c_str());
            c.Resize(lengths[i]);
            for (unsigned k = 0; k < lengths[i]; ++k)
                c.GetPoint(k) = Point(k + i / 4.0f, -1.5e-3f * k);
        }
    }
    std::string Box(size_t i = 0) const {
        auto boxes = HeadlessBoxes();
        return i < boxes.size() ? boxes[i].caption + "|" + boxes[i].text : "<none>";
    }

    TempDir dir;
};
