#pragma once

#include <QString>

#include <map>
#include <string>
#include <vector>

/// Stands between a test program and the C library: while armed, it sees every call that touches a file of one folder,
/// in all threads, and makes chosen ones fail. A program that links it has these calls replaced throughout. Syncs do
/// not reach the disk, to save time.
namespace FaultyCalls {

struct Call {
    /// The name of the function, without the endings that tell file sizes and folder arguments apart; "tmpfile" for the
    /// opening of a file without a name.
    std::string name;
    /// What it was about: the path given, or that of the descriptor; where there are two, the new one.
    std::string path;
    bool failed = false;
    /// The old path where there are two.
    std::string from = {};
};

enum class Repeat {
    Once,
    /// Every later call of the same name, too.
    SameForEver,
    /// Every later call, too.
    AllForEver
};

/// A write that takes half of its bytes and says so.
inline constexpr int kShort = -1;

/// Why calls may fail, by their names.
using Reasons = std::map<std::string, std::vector<int>>;
/// Of calls that read, write or change something: no permission, a full disk, a full share of it, one that is lost, one
/// that takes a part, one that cannot do that.
[[nodiscard]] const Reasons& whyWorkFails();
/// Of calls that only look.
[[nodiscard]] const Reasons& whyLooksFail();

struct Fault {
    /// The number of the call that fails, from 0.
    std::size_t at = 0;
    /// An errno, or `kShort`.
    int error = 0;
    Repeat repeat = Repeat::Once;
};

/// Functions that the file system does not know: they always fail, as far as they concern the folder.
struct Unsupported {
    std::string name;
    int error = 0;
};

/// What was seen between arming and disarming.
struct Record {
    std::vector<Call> calls;
    /// The permission bits of all files at the moments when bytes were written to them.
    unsigned modesWhileWriting = 0;

    /// Whether a call of that name was made to fail.
    [[nodiscard]] bool failed(const char* name) const;
};

void arm(const QString& folder, std::vector<Fault> faults, std::vector<Unsupported> unsupported = {});
Record disarm();

/// Holds back every call of that name until the object is gone.
class Gate final {
public:
    explicit Gate(const char* name);
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    /// Blocks until a call stands at the gate.
    static void waitForArrival();
};

/// For the functions that replace those of the C library: the error with which this call is to fail, 0 when it is to
/// succeed. Every call is asked for once.
[[nodiscard]] int errorFor(const char* name, const std::string& path, const char* from = "");
[[nodiscard]] int errorFor(const char* name, const char* path, const char* from = "");
[[nodiscard]] int errorFor(const char* name, int descriptor);
/// For those that write: bytes are about to go to this file.
void noteMode(int descriptor);

} // namespace FaultyCalls
