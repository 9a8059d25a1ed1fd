#include "ui/plot_path.h"

void PlotPath::Append(int x, int y) {
    const CanvasPoint& back = points_.back();
    if (back.x != x || back.y != y) points_.push_back(CanvasPoint{x, y});
}

void PlotPath::CloseRun() {
    if (!runOpen_) return;
    runOpen_ = false;
    int x = points_.back().x;
    // Entry to one extreme, to the other, to the exit: every pixel between the extremes, as the
    // vertical steps of the full run did.
    if (runLast_ != runMax_) {
        Append(x, runMin_);
        Append(x, runMax_);
    } else {
        Append(x, runMax_);
        Append(x, runMin_);
    }
    Append(x, runLast_);
}

void PlotPath::MoveTo(int x, int y) {
    if (open_) {
        int cx = points_.back().x;
        int cy = runOpen_ ? runLast_ : points_.back().y;
        if (cx == x && cy == y) return;
        Flush();
    }
    points_.push_back(CanvasPoint{x, y});
    open_ = true;
}

void PlotPath::LineTo(int x, int y) {
    if (!open_) {
        points_.push_back(CanvasPoint{x, y});
        open_ = true;
        return;
    }
    if (reduce_ && points_.back().x == x) {
        if (!runOpen_) {
            runOpen_ = true;
            runMin_ = runMax_ = points_.back().y;
        }
        if (y < runMin_) runMin_ = y;
        if (y > runMax_) runMax_ = y;
        runLast_ = y;
        return;
    }
    CloseRun();
    if (reduce_)
        Append(x, y);
    else
        points_.push_back(CanvasPoint{x, y});
}

void PlotPath::Flush() {
    CloseRun();
    if (points_.size() >= 2)
        dc_.Polyline(dc_.context, points_.data(), static_cast<unsigned>(points_.size()));
    points_.clear();
    open_ = false;
}
