// The lines of one curve, gathered into polylines for the canvas. With a thin solid pen the
// points that fall into one pixel column are cut to what that column shows (entry, lowest,
// highest, exit), which paints the same pixels for a fraction of the vertices.
#pragma once
#include "ui/plot_canvas.h"

#include <vector>

class PlotPath {
  public:
    PlotPath(const PlotCanvas& dc, bool reduceColumns) : dc_(dc), reduce_(reduceColumns) {}
    PlotPath(const PlotPath&) = delete;
    PlotPath& operator=(const PlotPath&) = delete;
    ~PlotPath() { Flush(); }

    // Starts a new polyline unless the path already stands at (x, y).
    void MoveTo(int x, int y);
    void LineTo(int x, int y);
    // Hands what was gathered to the canvas.
    void Flush();

  private:
    void CloseRun();
    void Append(int x, int y);

    PlotCanvas dc_; // a copy: the table is small and callers often pass a temporary
    bool reduce_;
    std::vector<CanvasPoint> points_;
    bool open_ = false; // points_ holds a started polyline
    // The column run: further points in the column of the last vertex of points_.
    bool runOpen_ = false;
    int runMin_ = 0;
    int runMax_ = 0;
    int runLast_ = 0;
};
