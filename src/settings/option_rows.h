// Options as printed text: a group writes a title and then rows of label and value, and the
// printout lays the chosen groups out as a text table.
#pragma once
#include <string>
#include <vector>

struct OptionRow {
    std::string label;
    std::string value;
};

struct OptionRows {
    std::string title;
    std::vector<OptionRow> rows;
};

// Adds a row whose value is formatted in the C locale.
void AddOptionRow(OptionRows& out, const char* label, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
// The title on a line of its own, then "label\tvalue" lines, each ended by "\n".
std::string OptionRowsText(const OptionRows& rows);
