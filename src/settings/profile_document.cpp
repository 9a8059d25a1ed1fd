#include "settings/profile_document.h"

#include <cctype>

namespace {

std::string Trim(const std::string& s) {
    size_t b = 0, e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t'))
        ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t'))
        --e;
    return s.substr(b, e - b);
}

// "[Name]" -> "Name"; false when the line is no section header.
bool SectionName(const std::string& line, std::string& name) {
    std::string t = Trim(line);
    if (t.size() < 2 || t[0] != '[') return false;
    size_t close = t.find(']');
    if (close == std::string::npos) return false;
    name = Trim(t.substr(1, close - 1));
    return true;
}

ProfileLine MakeLine(const std::string& raw) {
    ProfileLine line;
    line.raw = raw;
    size_t eq = raw.find('=');
    std::string t = Trim(raw);
    if (eq == std::string::npos || t.empty() || t[0] == ';') return line;
    line.key = ProfileLower(Trim(raw.substr(0, eq)).c_str());
    std::string v = Trim(raw.substr(eq + 1));
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
        v = v.substr(1, v.size() - 2);
    line.value = v;
    return line;
}

} // namespace

std::string ProfileLower(const char* text) {
    std::string s(text ? text : "");
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

void ProfileSection::Reindex() {
    index.clear();
    for (size_t i = 0; i < lines.size(); ++i)
        if (!lines[i].key.empty()) index.emplace(lines[i].key, i);
}

void ProfileDocument::Reindex() {
    index.clear();
    for (size_t i = 1; i < sections.size(); ++i) {
        std::string name;
        SectionName(sections[i].header, name);
        index.emplace(ProfileLower(name.c_str()), i);
    }
}

void ProfileDocument::Parse(const std::string& text) {
    sections.assign(1, ProfileSection());
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        std::string raw = text.substr(pos, end - pos);
        if (!raw.empty() && raw.back() == '\r') raw.pop_back();
        pos = end + 1;
        std::string name;
        if (SectionName(raw, name)) {
            sections.emplace_back();
            sections.back().header = raw;
        } else {
            sections.back().lines.push_back(MakeLine(raw));
        }
    }
    for (auto& s : sections)
        s.Reindex();
    Reindex();
    dirty = false;
}

std::string ProfileDocument::Serialize() const {
    std::string out;
    for (size_t i = 0; i < sections.size(); ++i) {
        if (i > 0) out += sections[i].header + "\r\n";
        for (const auto& line : sections[i].lines)
            out += line.raw + "\r\n";
    }
    return out;
}

ProfileSection* ProfileDocument::FindSection(const char* section) {
    auto it = index.find(ProfileLower(section));
    return it == index.end() ? nullptr : &sections[it->second];
}

const ProfileLine* ProfileDocument::Find(const char* section, const char* key) const {
    auto s = index.find(ProfileLower(section));
    if (s == index.end()) return nullptr;
    const ProfileSection& sec = sections[s->second];
    auto k = sec.index.find(ProfileLower(key));
    return k == sec.index.end() ? nullptr : &sec.lines[k->second];
}

void ProfileDocument::Set(const char* section, const char* key, const char* value) {
    ProfileSection* sec = FindSection(section);
    if (!sec) {
        // A new section follows a blank line, unless the file is empty.
        ProfileSection& last = sections.back();
        if (sections.size() > 1 || !last.lines.empty())
            if (last.lines.empty() || !Trim(last.lines.back().raw).empty())
                last.lines.push_back(MakeLine(""));
        sections.emplace_back();
        sections.back().header = std::string("[") + section + "]";
        index.emplace(ProfileLower(section), sections.size() - 1);
        sec = &sections.back();
    }
    std::string raw = std::string(key) + "=" + value;
    auto k = sec->index.find(ProfileLower(key));
    if (k != sec->index.end()) {
        sec->lines[k->second] = MakeLine(raw);
    } else {
        // After the last non-blank line, so the blank line before the next section stays.
        size_t at = sec->lines.size();
        while (at > 0 && Trim(sec->lines[at - 1].raw).empty())
            --at;
        sec->lines.insert(sec->lines.begin() + static_cast<long>(at), MakeLine(raw));
        if (at == sec->lines.size() - 1)
            sec->index.emplace(ProfileLower(key), at);
        else
            sec->Reindex();
    }
    dirty = true;
}

void ProfileDocument::DeleteKey(const char* section, const char* key) {
    ProfileSection* sec = FindSection(section);
    if (!sec) return;
    auto k = sec->index.find(ProfileLower(key));
    if (k == sec->index.end()) return;
    sec->lines.erase(sec->lines.begin() + static_cast<long>(k->second));
    sec->Reindex();
    dirty = true;
}

void ProfileDocument::DeleteSection(const char* section) {
    auto it = index.find(ProfileLower(section));
    if (it == index.end()) return;
    sections.erase(sections.begin() + static_cast<long>(it->second));
    Reindex();
    dirty = true;
}

std::vector<std::string> ProfileDocument::Names(const char* section) const {
    std::vector<std::string> names;
    if (!section) {
        for (size_t i = 1; i < sections.size(); ++i) {
            std::string name;
            SectionName(sections[i].header, name);
            names.push_back(name);
        }
        return names;
    }
    auto s = index.find(ProfileLower(section));
    if (s == index.end()) return names;
    for (const auto& line : sections[s->second].lines)
        if (!line.key.empty()) names.push_back(Trim(line.raw.substr(0, line.raw.find('='))));
    return names;
}
