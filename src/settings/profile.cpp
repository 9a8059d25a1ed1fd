#include "settings/profile.h"
#include "settings/profile_document.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <mutex>
#include <unistd.h>

namespace {

// A settings file is small; anything beyond this is not a profile file and is read as empty.
constexpr std::streamoff kLargestProfile = 64L << 20;

struct Batched {
    ProfileDocument doc;
    int depth = 0;
};

std::recursive_mutex gProfileLock;
std::map<std::string, Batched> gBatches;

bool ReadDocument(const char* fileName, ProfileDocument& doc) {
    std::ifstream in(fileName, std::ios::binary);
    if (!in) {
        doc.Parse(std::string());
        return false;
    }
    in.seekg(0, std::ios::end);
    std::streamoff size = in.tellg();
    in.seekg(0, std::ios::beg);
    if (size < 0 || size > kLargestProfile) {
        doc.Parse(std::string());
        return false;
    }
    std::string text(static_cast<size_t>(size), '\0');
    in.read(text.data(), size);
    text.resize(static_cast<size_t>(in.gcount()));
    doc.Parse(text);
    return true;
}

// Writes beside the file, then renames over it, so a crash never leaves half a file. Returns 0,
// or the errno of the step that failed; the file beside is removed then.
int WriteDocument(const char* fileName, const ProfileDocument& doc) {
    std::string aside = std::string(fileName) + ".tmp" + std::to_string(getpid());
    auto failure = [] { return errno ? errno : EIO; };
    errno = 0;
    std::FILE* out = std::fopen(aside.c_str(), "wb");
    if (!out) return failure();
    std::string text = doc.Serialize();
    int error = 0;
    if (std::fwrite(text.data(), 1, text.size(), out) != text.size()) error = failure();
    // A full disk often shows only when the buffer goes out, at the close.
    if (std::fclose(out) != 0 && !error) error = failure();
    if (!error && std::rename(aside.c_str(), fileName) != 0) error = failure();
    if (error) std::remove(aside.c_str());
    return error;
}

// Runs f on the document of fileName: the batched copy, or one read for this call alone.
// Writes outside a batch reach the disk before returning.
template <class F> auto WithDocument(const char* fileName, bool writes, F f) {
    std::lock_guard<std::recursive_mutex> hold(gProfileLock);
    auto it = gBatches.find(fileName ? fileName : "");
    if (it != gBatches.end()) return f(it->second.doc, true);
    ProfileDocument doc;
    ReadDocument(fileName, doc);
    return f(doc, false);
}

} // namespace

void ReportWriteFailure(const char* fileName, int error) {
    char text[1200];
    std::snprintf(text, sizeof text, "Can not write file\n%s\n%s", fileName ? fileName : "",
                  std::strerror(error ? error : EIO));
    MessageBoxBeep(nullptr, text, "Error", MB_OK | MB_ICONSTOP);
}

ProfileBatch::ProfileBatch(const char* fileName) : file_(fileName ? fileName : "") {
    std::lock_guard<std::recursive_mutex> hold(gProfileLock);
    Batched& b = gBatches[file_];
    if (b.depth++ == 0) ReadDocument(file_.c_str(), b.doc);
}

ProfileBatch::~ProfileBatch() {
    End();
}

int ProfileBatch::End() {
    if (result_ >= 0) return result_;
    result_ = 1;
    int error = 0;
    {
        std::lock_guard<std::recursive_mutex> hold(gProfileLock);
        auto it = gBatches.find(file_);
        if (it == gBatches.end() || --it->second.depth > 0) return result_;
        if (it->second.doc.dirty) error = WriteDocument(file_.c_str(), it->second.doc);
        gBatches.erase(it);
    }
    // The box waits for its answer outside the lock, so other threads' profile calls go on.
    if (error) {
        ReportWriteFailure(file_.c_str(), error);
        result_ = 0;
    }
    return result_;
}

unsigned GetPrivateProfileString(const char* section, const char* key, const char* defaultValue,
                                 char* out, size_t size, const char* fileName) {
    if (!out || size == 0) return 0;
    std::string value = WithDocument(fileName, false, [&](ProfileDocument& doc, bool) {
        if (!section || !key) {
            // Names separated by NULs and ended by two, as the original call lists them.
            std::string list;
            for (const auto& n : doc.Names(section))
                list += n + '\0';
            return list;
        }
        const ProfileLine* line = doc.Find(section, key);
        return line ? line->value : std::string(defaultValue ? defaultValue : "");
    });
    if (!section || !key) {
        size_t n = value.size() < size - 1 ? value.size() : size - 1;
        std::memcpy(out, value.data(), n);
        out[n] = '\0';
        if (n + 1 < size) out[n + 1] = '\0';
        return static_cast<unsigned>(n);
    }
    BoundedCopy(out, value.c_str(), size);
    return static_cast<unsigned>(std::strlen(out));
}

int GetPrivateProfileInt(const char* section, const char* key, int defaultValue,
                         const char* fileName) {
    char text[64];
    if (!GetPrivateProfileString(section, key, "", text, sizeof text, fileName))
        return defaultValue;
    char* end = nullptr;
    errno = 0;
    long v = std::strtol(text, &end, 10);
    if (end == text) return defaultValue;
    if (errno == ERANGE || v > INT_MAX || v < INT_MIN) return v < 0 ? INT_MIN : INT_MAX;
    return static_cast<int>(v);
}

int WritePrivateProfileString(const char* section, const char* key, const char* value,
                              const char* fileName) {
    if (!section || !fileName) return 0;
    return WithDocument(fileName, true, [&](ProfileDocument& doc, bool batched) {
        if (!key)
            doc.DeleteSection(section);
        else if (!value)
            doc.DeleteKey(section, key);
        else
            doc.Set(section, key, value);
        if (batched || !doc.dirty) return 1;
        return WriteDocument(fileName, doc) == 0 ? 1 : 0;
    });
}

double ReadProfileDouble(const char* section, const char* key, double defaultValue,
                         const char* fileName) {
    char text[512];
    GetPrivateProfileString(section, key, "?", text, sizeof text, fileName);
    if (text[0] == '?') return defaultValue;
    return StrToDoubleC(text, nullptr);
}

long ReadProfileLong(const char* section, const char* key, long defaultValue,
                     const char* fileName) {
    char text[512];
    GetPrivateProfileString(section, key, "?", text, sizeof text, fileName);
    if (text[0] == '?') return defaultValue;
    return std::strtol(text, nullptr, 10);
}

int WriteProfileDouble(const char* section, const char* key, const char* format, double value,
                       const char* fileName) {
    char text[512];
    SnprintfC(text, sizeof text, format, value);
    return WritePrivateProfileString(section, key, text, fileName);
}

int WriteProfileInt(const char* section, const char* key, const char* format, int value,
                    const char* fileName) {
    char text[64];
    SnprintfC(text, sizeof text, format, value);
    return WritePrivateProfileString(section, key, text, fileName);
}

int WriteProfileLong(const char* section, const char* key, const char* format, long value,
                     const char* fileName) {
    char text[64];
    SnprintfC(text, sizeof text, format, value);
    return WritePrivateProfileString(section, key, text, fileName);
}
