// The exceptions of the numeric helpers: small values with one code that selects a text. A
// negative code names the trouble; 0 and above give the "Unknown" text. A code below the known
// ones is a programming error.
#pragma once

class MeasureIcException {
  public:
    static constexpr int ABORT_REQUESTED = -1;
    explicit MeasureIcException(int code) : code(code) {}
    const char* Message() const;
    int code;
};

class LeastSquareFitException {
  public:
    static constexpr int NO_ELEMENTS = -1;
    static constexpr int ZERO_DENOMINATOR = -2;
    explicit LeastSquareFitException(int code) : code(code) {}
    const char* Message() const;
    int code;
};

class StatisticException {
  public:
    static constexpr int NO_ELEMENTS = -1;
    static constexpr int ZERO_AVERAGE_DEVIATION = -2;
    static constexpr int ZERO_AVERAGE_DELTA = -3;
    explicit StatisticException(int code) : code(code) {}
    const char* Message() const;
    int code;
};

class GFontException {
  public:
    static constexpr int GET_DC_FAILED = -1;
    static constexpr int RELEASE_DC_FAILED = -2;
    explicit GFontException(int code) : code(code) {}
    const char* Message() const;
    int code;
};

class GPenUIException {
  public:
    static constexpr int INVALID_WIDTH = -1;
    explicit GPenUIException(int code) : code(code) {}
    const char* Message() const;
    int code;
};
