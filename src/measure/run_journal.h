// The run journal: while a measurement runs, the points measured so far are appended to a file
// beside the automatic data folder, at most once every InteractionTime, so that a program that
// is killed loses at most that much. A run that ends in any way removes its journal once its
// automatic data pair is written; a journal found later belongs to a run that never ended.
#pragma once
#include <cstdint>

// Where the next run's journal goes, set by the interface thread before the run; empty: none.
extern char gJournalFolder[4096];
// The "RunJournal" key of section "Measure": 0 turns the journal off.
extern std::int32_t fRunJournal;

// Measurement thread: opens the journal of a run (a no-op when off or without a folder).
void JournalBegin(const char* title, const char* xUnits = "", const char* yUnits = "");
// Measurement thread: appends the points [written, measured) of every curve when InteractionTime
// has passed since the last append, or at once with force.
void JournalPoints(std::uint32_t measured, bool force = false);
// Measurement thread: the last append and the file closed; the journal stays until discarded.
void JournalEnd();
// Interface thread, after the automatic data pair was written: removes the last run's journal.
void JournalDiscard();
// "<folder>/run_<pid>.journal", the name of this process's journal.
void JournalFileName(const char* folder, long pid, char* path, unsigned size);
