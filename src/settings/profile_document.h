// A profile file in memory: sections of lines, kept with their original text so that a write
// changes only the line it concerns.
#pragma once
#include <string>
#include <unordered_map>
#include <vector>

struct ProfileLine {
    std::string raw;   // the line as read or written, without its end
    std::string key;   // lower-case key, empty when the line is no key line
    std::string value; // the value with blanks and one pair of quotes removed
};

struct ProfileSection {
    std::string header; // "[Name]" as written; empty for the lines before the first section
    std::vector<ProfileLine> lines;
    std::unordered_map<std::string, size_t> index; // lower-case key -> first line with it
    void Reindex();
};

struct ProfileDocument {
    std::vector<ProfileSection> sections;          // sections[0] holds the lines before any header
    std::unordered_map<std::string, size_t> index; // lower-case name -> first section
    bool dirty = false;

    // Builds the document from the bytes of a file; CR LF and LF both end a line.
    void Parse(const std::string& text);
    // The file's text with CR LF line ends.
    std::string Serialize() const;

    const ProfileLine* Find(const char* section, const char* key) const;
    // Sets key=value, in place when the key exists, else at the end of its section.
    void Set(const char* section, const char* key, const char* value);
    void DeleteKey(const char* section, const char* key);
    void DeleteSection(const char* section);
    // The key names of a section, or the section names when section is null, in file order.
    std::vector<std::string> Names(const char* section) const;

  private:
    void Reindex();
    ProfileSection* FindSection(const char* section);
};

std::string ProfileLower(const char* text);
