#pragma once

#include <QString>

#include <map>
#include <string>
#include <vector>

/// Replaces calls of the C library in a test program. While armed, the replacements see every call on the files of one
/// folder, in all threads, and make chosen calls fail. Linking this file replaces the calls in the whole program. Syncs
/// do not reach the disk, to save time.
namespace FaultyCalls {

struct Call {
    /// The name of the function, without the suffixes for file sizes and folder arguments; "tmpfile" for opening a file
    /// without a name.
    std::string name;
    /// The path of the call, or the path of its descriptor; where the call has two paths, the new one.
    std::string path;
    bool failed = false;
    /// The old path, where the call has two paths.
    std::string from = {};
};

enum class Repeat {
    Once,
    /// This call and every later one of the same name.
    SameForEver,
    /// This call and every later one.
    AllForEver
};

/// The pseudo error of a write that writes and reports only half of its bytes.
inline constexpr int kShort = -1;
/// The pseudo error that kills the process before the call.
inline constexpr int kKilled = -2;

/// The errors with which calls may fail, by the name of the call.
using Reasons = std::map<std::string, std::vector<int>>;
/// The errors of calls that read, write or change something: no permission, a full disk, an exhausted quota, an I/O
/// error, a partial write, an unsupported operation.
[[nodiscard]] const Reasons& whyWorkFails();
/// The errors of calls that only query something.
[[nodiscard]] const Reasons& whyLooksFail();

struct Fault {
    /// The index of the call that fails, from 0.
    std::size_t at = 0;
    /// An errno, `kShort` or `kKilled`.
    int error = 0;
    Repeat repeat = Repeat::Once;
};

/// A function that the file system does not support: calls on the folder always fail.
struct Unsupported {
    std::string name;
    int error = 0;
};

/// The calls between arming and disarming.
struct Record {
    std::vector<Call> calls;
    /// The combined permission bits of all files at the moments when bytes were written to them.
    unsigned modesWhileWriting = 0;

    /// Whether a call of that name was made to fail.
    [[nodiscard]] bool failed(const char* name) const;
};

void arm(const QString& folder, std::vector<Fault> faults, std::vector<Unsupported> unsupported = {});
Record disarm();

/// Blocks every call of a function until this object is destroyed.
class Gate final {
public:
    explicit Gate(const char* name);
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    /// Blocks until a call has reached the gate.
    static void waitForArrival();
};

/// For the replaced functions: the error with which this call must fail, or 0. Must be called once for each call.
[[nodiscard]] int errorFor(const char* name, const std::string& path, const char* from = "");
[[nodiscard]] int errorFor(const char* name, const char* path, const char* from = "");
[[nodiscard]] int errorFor(const char* name, int descriptor);
/// For the replaced functions that write: records the permission bits of the file before it is written.
void noteMode(int descriptor);

} // namespace FaultyCalls
