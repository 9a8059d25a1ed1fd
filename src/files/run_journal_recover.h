// Recovery of the journals that killed runs left: their points become a data pair.
#pragma once
#include <string>
#include <vector>

// The journals in folder whose program is no longer running.
std::vector<std::string> LeftJournals(const char* folder);

// Reads a journal into gCurves (the family is replaced), comments it as recovered and writes it
// as "<title>_<time>_recovered.dat" beside the journal, which is removed once the pair is
// written. The result of the pair's writer, or -1 when the journal held nothing; report tells
// what was recovered and whether the journal was cut short or damaged.
int RecoverJournal(const char* journal, std::string& pairPath, std::string& report);
