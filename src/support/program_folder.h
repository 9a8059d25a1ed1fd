// Where the program lives, and who uses it: the folder of the executable holds the shipped
// defaults, vtl.ini and the sounds; the user name (-u:) signs every measured family.
#pragma once

// The program's folder with a trailing "/", found from the executable at first use.
const char* ProgramDirectory();
void SetProgramDirectory(const char* folder);
// Program folder + name, cut to size.
void ProgramFilePath(const char* name, char* out, unsigned size);

extern char gUserName[64];
