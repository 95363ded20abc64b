#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Feeds the property that the target is built with whatever libFuzzer comes up with.
[[nodiscard]] QString CORVELLA_PROPERTY(const QByteArray& bytes);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    // Nearly every input is malformed; a line of log for each would drown the fuzzer's own.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString broken = CORVELLA_PROPERTY(bytes);
    if (!broken.isNull()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(broken));
        std::abort();
    }
    return 0;
}
